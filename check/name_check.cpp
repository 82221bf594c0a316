// Two games or two card files of one name.
#include "check/name_check.h"

#include <algorithm>
#include <map>

#include "check/foreign_file_check.h"
#include "core/paths.h"
#include "core/state.h"
#include "game/game_list.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Where a file says that it is a game.
FilePlace PlaceOfGame(const CardSet& set, const std::string& shownPath) {
  const auto file = std::ranges::find(set.Files(), shownPath, &CheckedFile::Path);
  if (file == set.Files().end()) return {};
  const auto line = std::ranges::find(file->Directives(), "#GAMERULES", &CheckedDirective::Word);
  return line == file->Directives().end() ? FilePlace{} : file->PlaceOf(line->Head.Offset);
}

void CheckGames(const CardSet& set, const std::string& shownFolder,
                std::vector<Finding>& findings) {
  State().Games.Reset(1);
  DiscoverGames();
  for (const GameRec& game : State().Games) {
    for (const Text& rules : game.Namesakes) {
      const std::string path = Joined(shownFolder, "/", rules);
      findings.push_back(
          {path, PlaceOfGame(set, path), FindingCode::kDuplicateGame,
           Joined("This game is not listed: that of ", game.RulesFile, " has the same name."), ""});
    }
  }
}

void CheckFileNames(const CardSet& set, const std::string& shownFolder,
                    std::vector<Finding>& findings) {
  std::map<std::string, std::vector<std::string>> paths;  // by folded name
  for (const CheckedFile& file : set.Files()) {
    paths[FoldUpper(FileNameOf(file.Path()))].push_back(file.Path());
  }
  for (const auto& [name, twins] : paths) {
    if (twins.size() < 2) continue;
    for (const std::string& path : twins) {
      const std::string& other = path == twins[0] ? twins[1] : twins[0];
      findings.push_back(
          {path,
           {},
           FindingCode::kDuplicateFile,
           Joined("Where this file is meant, \"", other.substr(shownFolder.size() + 1),
                  "\" may be taken: it has the same name."),
           ""});
    }
  }
}

}  // namespace

void CheckNames(const CardSet& set, const std::string& shownFolder,
                std::vector<Finding>& findings) {
  CheckGames(set, shownFolder, findings);
  CheckFileNames(set, shownFolder, findings);
  CheckForeignFiles(set, shownFolder, findings);
}

}  // namespace brindlemoor
