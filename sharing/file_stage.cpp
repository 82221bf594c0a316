// Moving numbered files to their places.
#include "sharing/file_stage.h"

#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "platform/passing_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kList = "list";
/// No name of a file has a colon.
constexpr std::string_view kRemoval = "remove:";
constexpr std::string_view kOldEnding = ".old~";
constexpr int kMostOld = 1000;

std::string InFolder(const std::string& folder, std::string_view name) {
  return Joined(folder == "/" ? "" : folder, "/", name);
}

}  // namespace

FileStage::FileStage(FileSystem& files, std::string folder, const StagePurpose& purpose)
    : files_(files),
      folder_(std::move(folder)),
      purpose_(purpose),
      stage_(InFolder(folder_, Joined(kPassingFile, purpose_.Name))),
      lock_(Joined(stage_, ".lock")),
      held_(files_.Hold(lock_) != HoldResult::kByAnother) {}

FileStage::~FileStage() {
  if (held_) files_.LetGo(lock_);
}

std::string FileStage::PathOf(std::string_view name) const { return InFolder(folder_, name); }

/// With the ending of the file's name, so that whoever looks at the stage sees pictures as such.
std::string FileStage::StagedPath(std::size_t index) const {
  const std::string& name = entries_[index].Name;
  const std::size_t dot = name.find_last_of("./");
  const bool hasEnding = dot != name.npos && name[dot] == '.';
  return Joined(stage_, "/~", index + 1, hasEnding ? name.substr(dot) : "");
}

bool FileStage::HasLeftovers() const { return files_.FolderExists(stage_); }

bool FileStage::IsBare() const { return files_.ListFiles(stage_).empty(); }

std::string FileStage::Add(std::string_view name, std::string_view bytes) {
  std::string problem = files_.AddFolder(stage_);
  if (!problem.empty()) return problem;
  entries_.push_back({std::string(name)});
  return files_.Write(StagedPath(entries_.size() - 1), bytes);
}

void FileStage::AddRemoval(std::string_view name) { entries_.push_back({std::string(name), true}); }

std::string FileStage::Complete() {
  std::string problem = files_.AddFolder(stage_);
  if (!problem.empty()) return problem;
  std::string list(purpose_.ListHead);
  for (const Entry& entry : entries_) {
    list += Joined(entry.IsRemoval ? kRemoval : "", entry.Name, "\n");
  }
  return files_.Write(Joined(stage_, "/", kList), list);
}

bool FileStage::TakeLeftovers() {
  const auto list = files_.Read(Joined(stage_, "/", kList));
  if (!list || !list->starts_with(purpose_.ListHead)) return false;
  std::vector<Entry> entries;
  for (std::size_t start = purpose_.ListHead.size(); start < list->size();) {
    const std::size_t end = std::min(list->find('\n', start), list->size());
    std::string name = list->substr(start, end - start);
    const bool isRemoval = name.starts_with(kRemoval);
    if (isRemoval) name.erase(0, kRemoval.size());
    if (!purpose_.WhyNoName(name).empty()) return false;
    entries.push_back({std::move(name), isRemoval});
    start = end + 1;
  }
  entries_ = std::move(entries);
  return true;
}

/// In the stage, or the first name beside that is free.
std::string FileStage::PathForOld(std::size_t index) const {
  if (!purpose_.KeepsReplaced) return Joined(stage_, "/~", index + 1, kOldEnding);
  const std::string path = PathOf(entries_[index].Name);
  std::string old = Joined(path, kOldEnding);
  for (int number = 2; number <= kMostOld && IsThere(files_, old); ++number) {
    old = Joined(path, ".old", number, "~");
  }
  return old;
}

std::string FileStage::MakeFolderOf(const std::string& name) {
  const std::size_t slash = name.find('/');
  return slash == name.npos ? "" : files_.AddFolder(PathOf(name.substr(0, slash)));
}

std::string FileStage::MoveOldOne(std::size_t index) {
  const std::string path = PathOf(entries_[index].Name);
  const std::string old = PathForOld(index);
  std::string problem = files_.Rename(path, old);
  if (!problem.empty()) return problem;
  moves_.push_back({path, old});
  if (purpose_.KeepsReplaced) kept_.push_back(old.substr(PathOf("").size()));
  return "";
}

std::string FileStage::MoveOne(std::size_t index, const Permission& mayReplace) {
  const auto& [name, isRemoval] = entries_[index];
  const std::string staged = StagedPath(index);
  if (!isRemoval && !files_.Exists(staged)) return "";  // it is in its place
  const bool isThere = IsThere(files_, PathOf(name));
  if (isRemoval && !isThere) return "";
  if (isThere && mayReplace) {
    const std::optional<bool> may = mayReplace(name);
    if (!may) return Joined(name, ": it can't be read");
    if (!*may) return "";
  }
  std::string problem = isRemoval ? "" : MakeFolderOf(name);
  if (problem.empty() && isThere) problem = MoveOldOne(index);
  if (problem.empty() && !isRemoval) {
    problem = files_.Rename(staged, PathOf(name));
    if (problem.empty()) moves_.push_back({staged, PathOf(name)});
  }
  if (!problem.empty()) return Joined(name, ": ", problem);
  ++moved_;
  return "";
}

bool FileStage::TakeBack() {
  bool isBack = true;
  for (auto move = moves_.rbegin(); move != moves_.rend(); ++move) {
    isBack = files_.Rename(move->To, move->From).empty() && isBack;
  }
  moves_.clear();
  kept_.clear();
  moved_ = 0;
  return isBack;
}

std::string FileStage::MoveIn(const Permission& mayReplace) {
  for (std::size_t index = 0; index < entries_.size(); ++index) {
    std::string problem = MoveOne(index, mayReplace);
    if (problem.empty()) continue;
    if (TakeBack() && Clear()) return problem;
    return Joined(problem,
                  ", and not all files could be moved back: the next start of the program ",
                  "goes on with this");
  }
  Clear();
  return "";
}

bool FileStage::Clear() {
  // Without its list the rest of a stage is nothing.
  if (!files_.Remove(Joined(stage_, "/", kList)).empty()) return false;
  files_.RemoveFolderOfFiles(stage_);
  return true;
}

}  // namespace brindlemoor
