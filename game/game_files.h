// The card files that make up a game.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// Paths of the rules file, of the card files in the folder of the opponents (of those in the
/// program's folder that declare no game, where the game has no folder), and of all that these
/// include. Each once; of two files of one name, which cards could not tell apart, the first.
std::vector<std::string> CardFilesOf(const GameRec& game);
/// Paths of a file and of all that it includes, on the same terms.
std::vector<std::string> FilesIncludedBy(const std::string& path);

}  // namespace brindlemoor
