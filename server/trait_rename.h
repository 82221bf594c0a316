// Giving a trait another name in all files of a game.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/stored_text.h"

namespace brindlemoor {

class CheckedFile;
class GameTexts;

/// The changes of one file.
struct FileEdits {
  const CheckedFile* File;
  std::vector<TextEdit> Edits;
};

struct TraitRename {
  std::string Problem;  ///< why the name can't be given, "" when it can
  std::vector<FileEdits> Files;
};

/// Every use of the trait, in any case of letters, and of its bonus. Names that scripts put
/// together while they run are not known, so they stay.
TraitRename RenameTrait(const GameTexts& game, std::string_view trait, std::string_view newName);

/// Why the trait keeps its name whatever the new one is, a sentence; "" when it need not.
std::string WhyKeptName(std::string_view trait);

}  // namespace brindlemoor
