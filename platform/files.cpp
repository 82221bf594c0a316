// The file system of the machine.
#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/machine_file.h"
#include "platform/machine_folder.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLeadsOut = "it is a link that leads out of the program's folder";
constexpr std::string_view kOutside = "It lies outside of the program's folder";
constexpr std::string_view kCantBeRead = "it can't be read";

/// Names of a folder's entries, the folders or the others.
std::vector<std::string> List(const std::string& folder, bool folders) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "/" : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unreadable;
    if (entry->is_directory(unreadable) == folders && !unreadable) {
      names.push_back(entry->path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

bool IsThere(const FileSystem& files, const std::string& path) {
  return files.Exists(path) || !files.WhyUnread(path).empty();
}

std::string FileSystem::Rename(const std::string& from, const std::string& to) {
  const auto bytes = Read(from);
  if (!bytes) return std::string(kCantBeRead);
  std::string problem = Write(to, *bytes);
  return problem.empty() ? Remove(from) : problem;
}

std::string FileSystem::RemoveFolderOfFiles(const std::string& folder) {
  for (const std::string& name : ListFiles(folder)) {
    std::string problem = Remove(Joined(folder, "/", name));
    if (!problem.empty()) return problem;
  }
  return "";
}

bool LocalFileSystem::Exists(const std::string& path) const {
  return KindOfTarget(path) == EntryKind::kFile && MayReadFile(path) && reach_.AllowsReading(path);
}

bool LocalFileSystem::FolderExists(const std::string& path) const {
  return KindOfTarget(path) == EntryKind::kFolder && MayListFolder(path) &&
         reach_.AllowsFolder(path);
}

std::vector<std::string> LocalFileSystem::ListFiles(const std::string& folder) const {
  return reach_.AllowsFolder(folder) ? List(folder, false) : std::vector<std::string>();
}

std::vector<std::string> LocalFileSystem::ListFolders(const std::string& folder) const {
  return reach_.AllowsFolder(folder) ? List(folder, true) : std::vector<std::string>();
}

std::optional<std::string> LocalFileSystem::Read(const std::string& path) const {
  return reach_.AllowsReading(path) ? ReadRegularFile(path).Bytes : std::nullopt;
}

std::string LocalFileSystem::WhyUnread(const std::string& path) const {
  if (KindOfTarget(path) == EntryKind::kNothing) return "";
  return reach_.AllowsReading(path) ? ReadRegularFile(path).Problem : std::string(kLeadsOut);
}

std::string LocalFileSystem::Write(const std::string& path, std::string_view bytes) {
  return reach_.AllowsWriting(path) ? ReplaceFile(path, bytes) : std::string(kOutside);
}

std::string LocalFileSystem::Remove(const std::string& path) {
  return reach_.AllowsWriting(path) ? RemoveFile(path) : std::string(kOutside);
}

std::string LocalFileSystem::AddFolder(const std::string& path) {
  if (!reach_.AllowsWriting(path)) return std::string(kOutside);
  return KindOf(path) == EntryKind::kFolder ? "" : MakeFolder(path);
}

std::string LocalFileSystem::Rename(const std::string& from, const std::string& to) {
  if (!reach_.AllowsWriting(from) || !reach_.AllowsWriting(to)) return std::string(kOutside);
  const EntryKind kind = KindOf(from);
  const bool isFile = kind == EntryKind::kFile || kind == EntryKind::kLink;
  return isFile ? RenameEntry(from, to) : std::string(kCantBeRead);
}

std::string LocalFileSystem::RemoveFolderOfFiles(const std::string& folder) {
  if (!reach_.AllowsWriting(folder)) return std::string(kOutside);
  std::string problem = FileSystem::RemoveFolderOfFiles(folder);
  return problem.empty() ? RemoveEmptyFolder(folder) : problem;
}

HoldResult LocalFileSystem::Hold(const std::string& path) {
  if (held_.contains(path)) return HoldResult::kHeld;
  if (!reach_.AllowsWriting(path)) return HoldResult::kImpossible;
  auto file = std::make_unique<HeldFile>();
  const HoldResult result = file->Take(path);
  if (result == HoldResult::kHeld) held_[path] = std::move(file);
  return result;
}

}  // namespace brindlemoor
