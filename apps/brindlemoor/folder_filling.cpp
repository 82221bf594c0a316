// Copying games so that a start that fails or is killed leaves nothing half done.
#include "apps/brindlemoor/folder_filling.h"

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "platform/files.h"
#include "platform/machine_folder.h"
#include "platform/passing_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

constexpr auto kLongestWait = 10s;
constexpr auto kBetweenLooks = 20ms;
constexpr auto kOldPart = 24h;
constexpr std::size_t kMostSubfolders = 100;
constexpr std::string_view kHalfMade = ".new~";
constexpr std::string_view kMarkerText =
    "The games that come with the program are being copied to this folder.\r\n";

std::string Above(const std::string& folder) { return fs::path(folder).parent_path().string(); }
std::string LockOf(const std::string& folder) {
  return Joined(Above(folder), "/", kPassingFile, "filling.lock");
}
std::string MarkerOf(const std::string& folder) {
  return Joined(folder, "/", kPassingFile, "filling");
}

/// The tools and notes of those who make the games stay behind.
bool BelongsToGame(const fs::path& file) {
  return file.extension() != ".py" && file.extension() != ".md";
}

/// Copies a folder with all that is in it; what is there already stays as it is. "" or what went
/// wrong.
std::string CopyMissing(const std::string& from, const std::string& to) {
  std::error_code error;
  LocalFileSystem files;
  files.KeepTo(to);
  std::string problem;
  fs::recursive_directory_iterator entry(from, error);
  for (const fs::recursive_directory_iterator end; !error && problem.empty() && entry != end;
       entry.increment(error)) {
    const fs::path target = to / entry->path().lexically_relative(from);
    const bool isCopied = !entry->is_directory(error) && !error && BelongsToGame(target) &&
                          KindOf(target.string()) == EntryKind::kNothing;
    if (error) break;
    if (!isCopied) continue;
    problem = MakeFolder(target.parent_path().string());
    if (!problem.empty()) break;
    const FileContent content = ReadRegularFile(entry->path().string());
    problem = content.Bytes ? files.Write(target.string(), *content.Bytes) : content.Problem;
    if (!content.Bytes && problem.empty()) problem = "a file of the games has gone";
  }
  return error ? error.message() : problem;
}

/// Makes a folder that is not there with the games in it.
std::string MakeFilled(const std::string& games, const std::string& folder) {
  const std::string beside = Joined(Above(folder), "/", PassingName(kHalfMade));
  std::string problem = MakeFolder(beside);
  if (problem.empty()) problem = CopyMissing(games, beside);
  if (problem.empty()) problem = RenameEntry(beside, folder);
  if (!problem.empty()) RemoveFolder(beside);
  return problem;
}

/// Adds the games to a folder that is there.
std::string FillUp(const std::string& games, const std::string& folder) {
  LocalFileSystem files;
  files.KeepTo(folder);
  const std::string marker = MarkerOf(folder);
  std::string problem;
  if (KindOf(marker) != EntryKind::kFile) problem = files.Write(marker, kMarkerText);
  if (problem.empty()) problem = CopyMissing(games, folder);
  return problem.empty() ? files.Remove(marker) : problem;
}

/// Folders beside that a start began to fill, by their paths.
std::vector<std::string> HalfMade(const std::string& folder) {
  const std::string above = Above(folder);
  std::vector<std::string> found;
  for (const std::string& name : LocalFileSystem().ListFolders(above)) {
    const std::string path = Joined(above, "/", name);
    if (IsPassingName(name, kHalfMade) && KindOf(path) == EntryKind::kFolder) {
      found.push_back(path);
    }
  }
  return found;
}

void RemoveOldPartsOf(LocalFileSystem& files, const std::string& folder) {
  for (const std::string& name : files.ListFiles(folder)) {
    if (!name.starts_with(kPassingFile) || !name.ends_with(kPartEnding)) continue;
    const std::string path = Joined(folder, "/", name);
    if (KindOf(path) == EntryKind::kFile && AgeOfFile(path) > kOldPart) files.Remove(path);
  }
}

}  // namespace

FillingTurn::FillingTurn(const std::string& folder, bool waits) {
  const std::string lock = LockOf(folder);
  const auto end = std::chrono::steady_clock::now() + (waits ? kLongestWait : 0s);
  HoldResult result = held_.Take(lock);
  while (result == HoldResult::kByAnother && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kBetweenLooks);
    result = held_.Take(lock);
  }
  if (result != HoldResult::kHeld || !kFilesAreHeld) return;
  for (const std::string& half : HalfMade(folder)) RemoveFolder(half);
}

bool FillingTurn::IsDue(const std::string& folder) {
  return KindOf(LockOf(folder)) == EntryKind::kFile || !HalfMade(folder).empty();
}

bool IsUnfilled(const std::string& folder) {
  return KindOf(folder) == EntryKind::kNothing || KindOf(MarkerOf(folder)) == EntryKind::kFile;
}

std::string FillFolder(const std::string& games, const std::string& folder) {
  if (KindOf(folder) != EntryKind::kNothing) return FillUp(games, folder);
  std::string problem = MakeFilled(games, folder);
  // Another program has made the folder meanwhile.
  if (!problem.empty() && KindOfTarget(folder) == EntryKind::kFolder) {
    problem = FillUp(games, folder);
  }
  return problem;
}

void RemoveOldParts(const std::string& folder) {
  LocalFileSystem files;
  files.KeepTo(folder);
  RemoveOldPartsOf(files, folder);
  std::vector<std::string> below = files.ListFolders(folder);
  if (below.size() > kMostSubfolders) below.resize(kMostSubfolders);
  for (const std::string& name : below) {
    const std::string path = Joined(folder, "/", name);
    if (KindOf(path) == EntryKind::kFolder) RemoveOldPartsOf(files, path);
  }
}

}  // namespace brindlemoor
