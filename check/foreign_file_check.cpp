// Files of one game that take cards from files of another.
#include "check/foreign_file_check.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "core/paths.h"
#include "core/state.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The directives that name a card file, and the field, from 1, in which they do.
struct NamingRow {
  std::string_view Word;
  std::size_t Field;
};
constexpr std::array<NamingRow, 6> kNaming = {{{"#INCLUDE", 1},
                                               {"#CARD", 4},
                                               {"#REFINDECK", 2},
                                               {"#REFINPLAY", 2},
                                               {"#REFCOLLECTION", 2},
                                               {"#REFINPLAYERDECK", 3}}};

class Games {
 public:
  Games(const CardSet& set, const std::string& shownFolder) {
    for (const CheckedFile& file : set.Files()) {
      const std::string game = GameOf(file, shownFolder);
      byPath_[file.Path()] = game;
      byName_[FoldUpper(FileNameOf(file.Path()))].push_back(game);
    }
  }

  /// "" for a file of no game, or of several.
  const std::string& Of(const CheckedFile& file) const { return byPath_.at(file.Path()); }
  /// The one game that every file of this name belongs to, "" for none.
  std::string OfReference(std::string_view reference) const {
    const auto games = byName_.find(FoldUpper(FileNameOf(reference)));
    if (games == byName_.end()) return "";
    const std::string& first = games->second.front();
    const bool isOne = std::ranges::all_of(
        games->second, [&first](const std::string& game) { return game == first; });
    return isOne ? first : "";
  }

 private:
  /// The rules file is the game's, and all in the folder of its opponents.
  static std::string GameOf(const CheckedFile& file, const std::string& shownFolder) {
    std::string found;
    for (const GameRec& game : State().Games) {
      if (game.RulesFile.empty()) continue;
      const bool isRules = file.Path() == Joined(shownFolder, "/", game.RulesFile);
      const bool isBelow = !game.Folder.empty() &&
                           file.Path().starts_with(Joined(shownFolder, "/", game.Folder, "/"));
      if (!isRules && !isBelow) continue;
      if (!found.empty()) return "";
      found = game.Name.Str();
    }
    return found;
  }

  std::map<std::string, std::string> byPath_;
  std::map<std::string, std::vector<std::string>> byName_;  ///< by folded file name
};

}  // namespace

void CheckForeignFiles(const CardSet& set, const std::string& shownFolder,
                       std::vector<Finding>& findings) {
  const Games games(set, shownFolder);
  for (const CheckedFile& file : set.Files()) {
    const std::string& own = games.Of(file);
    if (own.empty()) continue;
    for (const CheckedDirective& directive : file.Directives()) {
      const auto* row = std::ranges::find(kNaming, directive.Word, &NamingRow::Word);
      if (row == kNaming.end() || directive.Fields.size() < row->Field) continue;
      const CheckedField& named = directive.Fields[row->Field - 1];
      const std::string game = named.Text.empty() ? "" : games.OfReference(named.Text);
      if (game.empty() || game == own) continue;
      findings.push_back(file.At(named.Offset, FindingCode::kForeignFile,
                                 Joined("\"", named.Text, "\" is a file of ", game,
                                        ", and this one belongs to ", own, ".")));
    }
  }
}

}  // namespace brindlemoor
