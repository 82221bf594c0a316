// Moving numbered files to their places.
#include "sharing/opening_stage.h"

#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "platform/passing_names.h"
#include "sharing/entry_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kStage = "opening";
constexpr std::string_view kLock = "opening.lock";
constexpr std::string_view kList = "list";
constexpr std::string_view kListHead = "The files of a game, to be moved to their places:\n";
constexpr std::string_view kOldEnding = ".old~";
constexpr int kMostOld = 1000;

std::string InFolder(const std::string& folder, std::string_view name) {
  return Joined(folder == "/" ? "" : folder, "/", name);
}

}  // namespace

OpeningStage::OpeningStage(FileSystem& files, std::string folder)
    : files_(files),
      folder_(std::move(folder)),
      stage_(InFolder(folder_, Joined(kPassingFile, kStage))),
      held_(files_.Hold(InFolder(folder_, Joined(kPassingFile, kLock))) != HoldResult::kByAnother) {
}

OpeningStage::~OpeningStage() {
  if (held_) files_.LetGo(InFolder(folder_, Joined(kPassingFile, kLock)));
}

std::string OpeningStage::PathOf(std::string_view name) const { return InFolder(folder_, name); }

/// With the ending of the file's name, so that whoever looks at the stage sees pictures as such.
std::string OpeningStage::StagedPath(std::size_t index) const {
  const std::string& name = names_[index];
  return Joined(stage_, "/~", index + 1, name.substr(name.rfind('.')));
}

bool OpeningStage::HasLeftovers() const { return files_.FolderExists(stage_); }

bool OpeningStage::IsBare() const { return files_.ListFiles(stage_).empty(); }

std::string OpeningStage::Add(std::string_view name, std::string_view bytes) {
  std::string problem = files_.AddFolder(stage_);
  if (!problem.empty()) return problem;
  names_.emplace_back(name);
  return files_.Write(StagedPath(names_.size() - 1), bytes);
}

std::string OpeningStage::Complete() {
  std::string list(kListHead);
  for (const std::string& name : names_) list += Joined(name, "\n");
  return files_.Write(Joined(stage_, "/", kList), list);
}

bool OpeningStage::TakeLeftovers() {
  const auto list = files_.Read(Joined(stage_, "/", kList));
  if (!list || !list->starts_with(kListHead)) return false;
  std::vector<std::string> names;
  for (std::size_t start = kListHead.size(); start < list->size();) {
    const std::size_t end = std::min(list->find('\n', start), list->size());
    std::string name = list->substr(start, end - start);
    if (!WhyNoEntry(name).empty()) return false;
    names.push_back(std::move(name));
    start = end + 1;
  }
  names_ = std::move(names);
  return true;
}

/// The first name beside that is free.
std::string OpeningStage::NameForOld(const std::string& name) const {
  std::string old = Joined(name, kOldEnding);
  for (int number = 2; number <= kMostOld && IsThere(files_, PathOf(old)); ++number) {
    old = Joined(name, ".old", number, "~");
  }
  return old;
}

std::string OpeningStage::MakeFolderOf(const std::string& name) {
  const std::size_t slash = name.find('/');
  return slash == name.npos ? "" : files_.AddFolder(PathOf(name.substr(0, slash)));
}

std::string OpeningStage::MoveOne(std::size_t index) {
  const std::string& name = names_[index];
  const std::string staged = StagedPath(index);
  if (!files_.Exists(staged)) return "";  // it is in its place
  std::string problem = MakeFolderOf(name);
  if (problem.empty() && IsThere(files_, PathOf(name))) {
    const std::string old = NameForOld(name);
    problem = files_.Rename(PathOf(name), PathOf(old));
    if (problem.empty()) {
      moves_.push_back({PathOf(name), PathOf(old)});
      kept_.push_back(old);
    }
  }
  if (problem.empty()) problem = files_.Rename(staged, PathOf(name));
  if (!problem.empty()) return Joined(name, ": ", problem);
  moves_.push_back({staged, PathOf(name)});
  ++moved_;
  return "";
}

bool OpeningStage::TakeBack() {
  bool isBack = true;
  for (auto move = moves_.rbegin(); move != moves_.rend(); ++move) {
    isBack = files_.Rename(move->To, move->From).empty() && isBack;
  }
  moves_.clear();
  kept_.clear();
  moved_ = 0;
  return isBack;
}

std::string OpeningStage::MoveIn() {
  for (std::size_t index = 0; index < names_.size(); ++index) {
    std::string problem = MoveOne(index);
    if (problem.empty()) continue;
    if (TakeBack() && Clear()) return problem;
    return Joined(problem,
                  ", and not all files could be moved back: the next start of the program ",
                  "goes on with this");
  }
  Clear();
  return "";
}

bool OpeningStage::Clear() {
  // Without its list the rest of a stage is nothing.
  if (!files_.Remove(Joined(stage_, "/", kList)).empty()) return false;
  files_.RemoveFolderOfFiles(stage_);
  return true;
}

}  // namespace brindlemoor
