// Judging the new name, and collecting the changes.
#include "server/trait_rename.h"

#include <algorithm>
#include <utility>

#include "check/checked_file.h"
#include "core/strings.h"
#include "language/program_traits.h"
#include "language/value_keywords.h"
#include "lint/value_check.h"
#include "script/command_table.h"
#include "server/game_texts.h"
#include "server/trait_uses.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The part of a use that is the trait's own name: all of it, or what stands behind the prefix of a
/// bonus. Empty when another trait is meant.
std::string_view OwnPart(std::string_view use, std::string_view trait) {
  if (FoldEquals(use, trait)) return use;
  for (const ProgramTrait& row : ProgramTraits()) {
    if (row.Place != TraitPlace::kPrefix || !FoldStartsWith(use, row.Name)) continue;
    const std::string_view rest = use.substr(row.Name.size());
    if (FoldEquals(rest, trait)) return rest;
  }
  return "";
}

bool CanBeTraitName(std::string_view name) {
  const auto divides = [](char character) {
    return static_cast<unsigned char>(character) < ' ' ||
           std::string_view(":,/\"#$%&<>|\x7F").find(character) != std::string_view::npos;
  };
  return !name.empty() && Trimmed(name) == name && std::ranges::none_of(name, divides) &&
         !BeginsWithNumber(name);
}

bool IsProgramsOwn(std::string_view name) {
  return FindProgramTrait(name) != nullptr || FoldEquals(name, kTraitGraphic);
}

std::string OwnOfProgram(std::string_view name) {
  return Joined("\"", name, "\" means something to the program itself.");
}

/// True for a word that scripts or values would take for their own.
bool IsWordOfScripts(std::string_view name) {
  const std::string word = FoldUpper(name);
  return FindCommand(word) != nullptr || FindValueKeyword(word) != nullptr ||
         std::ranges::find(OwnerWords(), word) != OwnerWords().end();
}

bool IsUsed(const GameTexts& game, std::string_view trait) {
  bool isUsed = false;
  for (const CheckedFile& file : game.Files()) {
    VisitTraitUses(file, [&](std::string_view use, std::size_t) {
      isUsed = isUsed || !OwnPart(use, trait).empty();
    });
  }
  return isUsed;
}

std::string ProblemOfName(const GameTexts& game, std::string_view trait, std::string_view name) {
  const std::string quoted = Joined("\"", name, "\"");
  if (!CanBeTraitName(name)) return quoted + " can't be the name of a trait.";
  if (IsProgramsOwn(name)) return OwnOfProgram(name);
  if (IsWordOfScripts(name)) return quoted + " is a word of scripts.";
  const bool isOther = !FoldEquals(trait, name) && IsUsed(game, name);
  return isOther ? quoted + " is a trait of the game already." : "";
}

std::vector<TextEdit> EditsOf(const CheckedFile& file, std::string_view trait,
                              std::string_view name) {
  std::vector<TextEdit> edits;
  VisitTraitUses(file, [&](std::string_view use, std::size_t begin) {
    const std::string_view own = OwnPart(use, trait);
    if (own.empty()) return;
    begin += use.size() - own.size();
    edits.push_back({begin, begin + own.size(), std::string(name)});
  });
  // A mark may stand in two others that are looked for.
  std::ranges::sort(edits, {}, &TextEdit::Begin);
  const auto isSame = [](const TextEdit& a, const TextEdit& b) { return a.Begin == b.Begin; };
  edits.erase(std::unique(edits.begin(), edits.end(), isSame), edits.end());
  return edits;
}

}  // namespace

std::string WhyKeptName(std::string_view trait) {
  const ProgramTrait* row = FindProgramTrait(trait);
  if (row != nullptr && row->Place == TraitPlace::kPrefix) {
    return Joined("A bonus follows its trait: rename \"", trait.substr(row->Name.size()), "\".");
  }
  return IsProgramsOwn(trait) ? OwnOfProgram(trait) : "";
}

TraitRename RenameTrait(const GameTexts& game, std::string_view trait, std::string_view newName) {
  TraitRename rename{WhyKeptName(trait), {}};
  if (rename.Problem.empty()) rename.Problem = ProblemOfName(game, trait, newName);
  if (!rename.Problem.empty()) return rename;
  for (const CheckedFile& file : game.Files()) {
    std::vector<TextEdit> edits = EditsOf(file, trait, newName);
    if (!edits.empty()) rename.Files.push_back({&file, std::move(edits)});
  }
  return rename;
}

}  // namespace brindlemoor
