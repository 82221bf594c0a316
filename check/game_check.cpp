// Checking card files together.
#include "check/game_check.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "check/card_set.h"
#include "check/deck_check.h"
#include "check/file_check.h"
#include "core/fold.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/text.h"
#include "data/card_reader.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "script/word_distance.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kExtension = ".txt";
constexpr std::string_view kProfiles = "PlayerProfiles.txt";

bool IsCardFileName(std::string_view name) {
  return name.size() > kExtension.size() && name != kProfiles &&
         FoldEquals(name.substr(name.size() - kExtension.size()), kExtension);
}

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

/// What players did in the folder must not change what is found.
bool BelongsToPlayers(const std::string& path) {
  return path.ends_with(".plr") || FileNameOf(path) == kProfiles;
}

/// A session of its own on the files of the present one, which comes back at the end.
class CheckSession {
 public:
  CheckSession() : before_(std::exchange(State(), Session{})) {}
  ~CheckSession() { State() = std::move(before_); }
  CheckSession(const CheckSession&) = delete;
  CheckSession& operator=(const CheckSession&) = delete;

  void Begin(const std::string& folder) {
    auto desktop = std::make_shared<HeadlessPlatform>(
        std::make_unique<OverlayFileSystem>(before_.Desktop->Files(), BelongsToPlayers));
    desktop->AcceptMessages = true;
    State() = Session{};
    State().Desktop = std::move(desktop);
    State().ProgramFolder = folder;
    State().CurrentFolder = folder;
    State().Profile.PlayerName = "Check";  // nobody is asked for a name
  }

 private:
  Session before_;
};

/// Custom strings are known to messages of every file.
void TakeCustomStrings(const CardSet& set) {
  for (const CheckedFile& file : set.Files()) {
    for (const CheckedDirective& directive : file.Directives()) {
      if (directive.Word != "#CUSTOMSTRING") continue;
      AddCustomString(directive.Fields[0].Text, directive.Fields[1].Text);
    }
  }
}

void CheckTraits(const SetFacts& facts, std::vector<Finding>& findings) {
  std::vector<std::string_view> given(facts.GivenTraits.begin(), facts.GivenTraits.end());
  std::ranges::sort(given);
  for (const auto& [folded, reading] : facts.ReadTraits) {
    if (facts.GivenTraits.contains(folded) || folded == "#ANY#") continue;
    findings.push_back({reading.File, reading.Place, FindingCode::kTraitNeverGiven,
                        Joined("No card has or gets the trait \"", reading.Name, "\"."),
                        NearestWord(folded, given)});
  }
}

class Check {
 public:
  void Folder(const std::string& path, const std::string& shown) {
    session_.Begin(path);
    CardSet set;
    AddFiles(set, path, shown);
    for (const std::string& name : Desktop().Files().ListFolders(path)) {
      AddFiles(set, Joined(path, "/", name), Joined(shown, "/", name));
    }
    const SetFacts facts = CheckFiles(set);
    CheckTraits(facts, result_.Findings);
    CheckDecks(path, shown, result_.Findings);
  }

  void File(const std::string& path, const std::string& shown) {
    const std::string folder = FolderOf(path);
    session_.Begin(folder);
    session_.Begin(HoldsGame(FolderOf(folder)) && !HoldsGame(folder) ? FolderOf(folder) : folder);
    CardSet set;
    AddFile(set, path, shown);
    CheckFiles(set);
  }

  void Unreadable(const std::string& shown) {
    result_.CouldRead = false;
    result_.Findings.push_back({shown, {}, FindingCode::kUnreadable, "This can't be read.", ""});
  }

  CheckResult Take() {
    SortFindings(result_.Findings);
    return std::move(result_);
  }

 private:
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
    } else {
      Unreadable(shown);
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
};

}  // namespace

CheckResult CheckPaths(const std::vector<std::string>& paths) {
  const std::shared_ptr<Platform> desktop = State().Desktop;
  const FileSystem& files = desktop->Files();
  Check check;
  for (const std::string& shown : paths) {
    std::string path = shown;
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    if (files.FolderExists(path)) {
      check.Folder(path, path);
    } else if (files.Exists(path)) {
      check.File(path, path);
    } else {
      check.Unreadable(shown);
    }
  }
  return check.Take();
}

}  // namespace brindlemoor
