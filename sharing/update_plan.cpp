// Comparing editions of the shipped games with a user's folder.
#include "sharing/update_plan.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "platform/file_rights.h"
#include "platform/files.h"
#include "platform/passing_names.h"
#include "sharing/entry_names.h"
#include "text/fold.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

std::string FolderOf(const std::string& name) {
  const std::size_t slash = name.find('/');
  return slash == name.npos ? "" : name.substr(0, slash);
}

/// References find a file by this, wherever it lies.
std::string FoldedLastPart(const std::string& name) {
  return FoldUpper(std::string_view(name).substr(name.find('/') + 1));
}

std::string HashIn(const FileHashes& hashes, const std::string& name) {
  const auto entry = hashes.find(name);
  return entry == hashes.end() ? "" : entry->second;
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

class Planning {
 public:
  Planning(const FileSystem& files, const std::string& folder, const PutBefore& before,
           const FileHashes& shipped)
      : files_(files), folder_(folder), before_(before), shipped_(shipped) {}

  UpdatePlan Take() {
    ListFolder("");
    for (const std::string& folder : files_.ListFolders(folder_)) ListFolder(folder);
    CheckLists();
    for (const auto& [name, was] : before_.Files()) {
      const std::string now = HashIn(shipped_, name);
      if (was != now && IsThere(files_, PathOf(name))) TakeOld(name, now);
    }
    KeepWhatIsNamed();
    for (const auto& [name, now] : shipped_) {
      if (!before_.Files().contains(name)) TakeNew(name, now);
    }
    return std::move(plan_);
  }

 private:
  std::string PathOf(const std::string& name) const { return Joined(folder_, "/", name); }

  void ListFolder(const std::string& folder) {
    const std::string path = folder.empty() ? folder_ : PathOf(folder);
    for (const std::string& file : files_.ListFiles(path)) {
      if (file.starts_with(kPassingFile)) continue;
      present_.insert(folder.empty() ? file : Joined(folder, "/", file));
    }
  }

  /// A folder that can't be read to its end looks like a shorter one.
  void CheckLists() {
    for (const auto& [name, hash] : before_.Files()) {
      if (files_.Exists(PathOf(name)) && !present_.contains(name)) {
        plan_.Problem = "the folder can't be listed";
      }
    }
  }

  /// A file that another edition had, too, is there.
  void TakeOld(const std::string& name, const std::string& now) {
    const std::optional<bool> isUntouched = before_.IsUntouched(name);
    if (!isUntouched) {
      NoteUnread(name);
    } else if (*isUntouched) {
      (now.empty() ? plan_.Removed : plan_.Written).push_back(name);
    } else if (!now.empty() && !IsAlready(name, now)) {
      plan_.Kept.push_back(name);
    }
  }

  void TakeNew(const std::string& name, const std::string& now) {
    const std::string folder = FolderOf(name);
    const bool isFolderGone = !folder.empty() && !files_.FolderExists(PathOf(folder)) &&
                              std::ranges::any_of(before_.Files(), [&](const auto& file) {
                                return FolderOf(file.first) == folder;
                              });
    if (isFolderGone || IsAlready(name, now)) return;
    const bool isTaken =
        files_.FolderExists(PathOf(name)) ||
        (!folder.empty() && IsThere(files_, PathOf(folder)) &&
         !files_.FolderExists(PathOf(folder))) ||
        std::ranges::any_of(present_, [&](const std::string& other) {
          return FoldedLastPart(other) == FoldedLastPart(name) && !Holds(plan_.Removed, other);
        });
    (isTaken ? plan_.Kept : plan_.Written).push_back(name);
  }

  void NoteUnread(const std::string& name) { plan_.Problem = Joined(name, ": it can't be read"); }

  /// The bytes of a file; nothing where none is or where only the user can say why not.
  std::optional<std::string> BytesOf(const std::string& name) {
    auto bytes = files_.Read(PathOf(name));
    if (!bytes && files_.Exists(PathOf(name))) NoteUnread(name);
    return bytes;
  }

  bool IsAlready(const std::string& name, const std::string& hash) {
    const auto bytes = BytesOf(name);
    return bytes && HashOf(*bytes) == hash;
  }

  /// The folded bytes of files that the user has made or changed and that may name others.
  std::vector<std::string> TextsOfUser() {
    std::vector<std::string> texts;
    for (const std::string& name : present_) {
      const std::string last = name.substr(name.find('/') + 1);
      const GameFileKind kind = KindOfGameFile(name);
      const bool isMadeAnew = kind == GameFileKind::kPage && IsProgramsOwn(last);
      if (kind == GameFileKind::kPicture || isMadeAnew || name == kShippedList) continue;
      if (Holds(plan_.Written, name) || Holds(plan_.Removed, name)) continue;
      const auto bytes = BytesOf(name);
      if (bytes && HashOf(*bytes) != HashIn(shipped_, name)) texts.push_back(FoldUpper(*bytes));
    }
    return texts;
  }

  /// What a deck or a game of the user's takes from a file that would go must stay, and what that
  /// file needs with it.
  void KeepWhatIsNamed() {
    for (bool isSettled = plan_.Removed.empty(); !isSettled;) {
      const std::vector<std::string> texts = TextsOfUser();
      const auto isUnnamed = [&texts](const std::string& name) {
        return std::ranges::none_of(texts, [last = FoldedLastPart(name)](const std::string& text) {
          return text.find(last) != text.npos;
        });
      };
      std::vector<std::string>& removed = plan_.Removed;
      const auto named = std::stable_partition(removed.begin(), removed.end(), isUnnamed);
      isSettled = named == removed.end();
      plan_.Named.insert(plan_.Named.end(), named, removed.end());
      removed.erase(named, removed.end());
    }
  }

  const FileSystem& files_;
  const std::string& folder_;
  const PutBefore& before_;
  const FileHashes& shipped_;
  std::set<std::string> present_;  ///< names of all files that are there
  UpdatePlan plan_;
};

}  // namespace

PutBefore::PutBefore(const FileSystem& files, std::string folder, std::optional<ShippedList> record,
                     const ShippedList& shipped)
    : files_(files), folder_(std::move(folder)), record_(std::move(record)), shipped_(shipped) {}

std::optional<bool> PutBefore::IsUntouched(const std::string& name) const {
  const std::string path = Joined(folder_, "/", name);
  if (files_.Followed(path) != path || IsWriteProtected(path)) return false;
  if (!files_.Exists(path)) return false;
  const auto bytes = files_.Read(path);
  if (!bytes) return std::nullopt;
  const std::string hash = HashOf(*bytes);
  return record_ ? HashIn(record_->Latest, name) == hash : shipped_.Known.contains({name, hash});
}

bool PutBefore::WasFilled() const {
  return record_ || std::ranges::any_of(shipped_.First, [this](const auto& file) {
           return IsUntouched(file.first).value_or(false);
         });
}

UpdatePlan PlanUpdate(const FileSystem& files, const std::string& folder, const PutBefore& before,
                      const FileHashes& shipped) {
  return Planning(files, folder, before, shipped).Take();
}

}  // namespace brindlemoor
