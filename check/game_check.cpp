// Checking card files together.
#include "check/game_check.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "check/card_set.h"
#include "check/check_session.h"
#include "check/deck_check.h"
#include "check/file_check.h"
#include "check/name_check.h"
#include "check/text_check.h"
#include "check/trait_check.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/profiles.h"
#include "lint/word_distance.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Text files without any directive are no card files.
bool HoldsDirectives(const std::string& path) {
  const auto bytes = Desktop().Files().Read(path);
  return !bytes || bytes->find('#') != std::string::npos;
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

bool HoldsGame(const std::string& folder) {
  for (const std::string& name : Desktop().Files().ListFiles(folder)) {
    if (!IsCardFileName(name)) continue;
    const auto bytes = Desktop().Files().Read(Joined(folder, "/", name));
    if (bytes && bytes->find("#GAMERULES") != std::string::npos) return true;
  }
  return false;
}

/// Custom strings are known to messages of every file.
void TakeCustomStrings(const CardSet& set) {
  for (const CheckedFile& file : set.Files()) {
    for (const CheckedDirective& directive : file.Directives()) {
      if (directive.Word != "#CUSTOMSTRING") continue;
      AddCustomString(directive.Fields[0].Text, directive.Fields[1].Text);
    }
  }
}

/// A store can sell any card of the folder.
void CheckStoreCards(const SetFacts& facts, std::vector<Finding>& findings) {
  std::vector<std::string_view> names(facts.CardNames.begin(), facts.CardNames.end());
  std::ranges::sort(names);
  for (const auto& [name, use] : facts.StoreCards) {
    if (facts.CardNames.contains(name) || facts.UniqueIds.contains(name)) continue;
    findings.push_back({use.File, use.Place, FindingCode::kMissingReference,
                        Joined("There is no card \"", name, "\" that a store could give."),
                        NearestWord(name, names)});
  }
}

class Check {
 public:
  /// Of the folder of a game's opponents the whole game is read, and only the folder's findings
  /// are told.
  void Folder(const std::string& path, const std::string& shown) {
    session_.Begin(path, BelongsToPlayers);
    const std::string base = BaseOf(path);
    if (base == path) {
      ProgramFolder(path, shown);
      return;
    }
    Check whole;
    whole.session_.Begin(base, BelongsToPlayers);
    whole.ProgramFolder(base, base);
    const auto inside = [&path](const std::string& file) { return file.starts_with(path + "/"); };
    for (Finding& finding : whole.result_.Findings) {
      if (!inside(finding.File)) continue;
      result_.CouldRead &= finding.Code != FindingCode::kUnreadable;
      finding.File = shown + finding.File.substr(path.size());
      result_.Findings.push_back(std::move(finding));
    }
    result_.Files += static_cast<int>(std::ranges::count_if(whole.read_, inside));
  }

  void File(const std::string& path, const std::string& shown) {
    // Who names a player's file wants it checked.
    const auto hidesNone = [](const std::string&) { return false; };
    const std::string folder = FolderOf(path);
    session_.Begin(folder, hidesNone);
    const std::string base = BaseOf(folder);
    session_.Begin(base, hidesNone);
    TakeGameStrings(base);
    CardSet set;
    AddFile(set, path, shown);
    CheckFiles(set);
  }

  void Unreadable(const std::string& shown, const std::string& reason) {
    result_.CouldRead = false;
    result_.Findings.push_back(
        {shown,
         {},
         FindingCode::kUnreadable,
         Joined("This can't be read", reason.empty() ? "" : ": ", reason, "."),
         ""});
  }

  CheckResult Take() {
    SortFindings(result_.Findings);
    return std::move(result_);
  }

 private:
  /// The program's folder of what is in a folder: that one, or the one above if it has the game.
  const std::string& BaseOf(const std::string& folder) {
    const auto [entry, isNew] = bases_.try_emplace(folder, folder);
    const std::string game = isNew ? FolderOfGame(folder) : "";
    if (!game.empty()) entry->second = game;
    return entry->second;
  }

  void ProgramFolder(const std::string& path, const std::string& shown) {
    CardSet set;
    AddFiles(set, path, shown);
    for (const std::string& name : Desktop().Files().ListFolders(path)) {
      const std::string below = Joined(path, "/", name);
      if (!Desktop().Files().FolderExists(below)) Unreadable(Joined(shown, "/", name), "");
      AddFiles(set, below, Joined(shown, "/", name));
    }
    const SetFacts facts = CheckFiles(set);
    CheckTraits(facts, result_.Findings);
    CheckCardTexts(facts, result_.Findings);
    CheckStoreCards(facts, result_.Findings);
    CheckNames(set, shown, result_.Findings);
    CheckDecks(path, shown, result_.Findings);
  }

  /// What a game's other files give to the messages of a single one.
  void TakeGameStrings(const std::string& base) {
    if (stringsOf_ != base) {
      strings_ = {};
      stringsOf_ = base;
      if (!HoldsGame(base)) return;
      Check around;
      around.session_.Begin(base, BelongsToPlayers);
      CardSet set;
      around.AddFiles(set, base, base);
      for (const std::string& name : Desktop().Files().ListFolders(base)) {
        around.AddFiles(set, Joined(base, "/", name), "");
      }
      TakeCustomStrings(set);
      strings_ = State().CustomStrings;
    }
    State().CustomStrings = strings_;
  }

  void AddFiles(CardSet& set, const std::string& folder, const std::string& shown) {
    for (const std::string& name : Desktop().Files().ListFiles(folder)) {
      const std::string path = Joined(folder, "/", name);
      if (IsCardFileName(name) && HoldsDirectives(path)) {
        AddFile(set, path, Joined(shown, "/", name));
      }
    }
  }

  void AddFile(CardSet& set, const std::string& path, const std::string& shown) {
    if (set.Add(path, shown)) {
      ++result_.Files;
      read_.push_back(path);
    } else {
      Unreadable(shown, Desktop().Files().WhyUnread(path));
    }
  }

  SetFacts CheckFiles(CardSet& set) {
    TakeCustomStrings(set);
    SetFacts facts;
    for (const CheckedFile& file : set.Files()) {
      CheckCardFile(file, set, facts, result_.Findings);
    }
    return facts;
  }

  CheckSession session_;
  CheckResult result_;
  std::vector<std::string> read_;             ///< paths
  std::map<std::string, std::string> bases_;  ///< by folder
  std::string stringsOf_;                     ///< the program's folder that strings_ are of
  Table<CustomStringRec> strings_;
};

}  // namespace

std::string FolderOfGame(const std::string& folder) {
  if (HoldsGame(folder)) return folder;
  const std::string above = FolderOf(folder);
  return HoldsGame(above) ? above : "";
}

CheckResult CheckPaths(const std::vector<std::string>& paths) {
  const std::shared_ptr<Platform> desktop = State().Desktop;
  FileSystem& files = desktop->Files();
  Check check;
  for (const std::string& shown : paths) {
    std::string path = shown;
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    files.TakeChoice(path);  // what is named is meant, whatever leads to it
    if (files.FolderExists(path)) {
      check.Folder(path, path);
    } else if (files.Exists(path)) {
      check.File(path, path);
    } else {
      check.Unreadable(shown, files.WhyUnread(path));
    }
  }
  return check.Take();
}

}  // namespace brindlemoor
