// The tests of cards that belong to a game.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// Paths of the text files in the folder "tests" of the program's folder that read this rules file,
/// and of those beside that they include.
std::vector<std::string> TestsOfGame(std::string_view rulesFile);

}  // namespace brindlemoor
