// Where what a word of a card file names stands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class CheckedFile;
class GameTexts;

struct DefinitionPlace {
  std::string Path;
  const CheckedFile* File = nullptr;  ///< nullptr for a file as a whole
  std::size_t Begin = 0;              ///< bytes of the file's text
  std::size_t End = 0;
};

/// Of a card its line, in the file that it belongs to; of a file its beginning; of a game its
/// rules; of a trait the actions that it brings.
std::vector<DefinitionPlace> DefinitionsAt(std::string_view text, std::size_t caret,
                                           const GameTexts& game);

}  // namespace brindlemoor
