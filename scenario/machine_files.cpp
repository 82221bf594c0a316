// Looking files of the machine up once, and the files of a scenario over them.
#include "scenario/machine_files.h"

#include <algorithm>
#include <set>
#include <utility>

#include "data/profiles.h"

namespace brindlemoor {

namespace {

std::vector<std::string> Merged(std::vector<std::string> names,
                                const std::vector<std::string>& more) {
  if (names.empty()) return more;
  std::set<std::string> all(more.begin(), more.end());
  all.insert(names.begin(), names.end());
  return {all.begin(), all.end()};
}

}  // namespace

void MachineFiles::KeepTo(const std::string& programFolder) {
  if (programFolder == programFolder_) return;
  programFolder_ = programFolder;
  machine_.KeepTo(programFolder);
  exists_.clear();
  folders_.clear();
  files_.clear();
  subfolders_.clear();
  bytes_.clear();
}

void MachineFiles::Put(const std::string& path, std::string bytes) {
  exists_[path] = true;
  bytes_[path] = std::move(bytes);
}

std::string MachineFiles::WhyUnread(const std::string& path) const {
  return BelongsToPlayers(path) ? "" : machine_.WhyUnread(path);
}

bool MachineFiles::Exists(const std::string& path) {
  const auto [entry, isNew] = exists_.try_emplace(path, false);
  if (isNew) entry->second = !BelongsToPlayers(path) && machine_.Exists(path);
  return entry->second;
}

bool MachineFiles::FolderExists(const std::string& path) {
  const auto [entry, isNew] = folders_.try_emplace(path, false);
  if (isNew) entry->second = machine_.FolderExists(path);
  return entry->second;
}

const std::vector<std::string>& MachineFiles::FilesOf(const std::string& folder) {
  const auto [entry, isNew] = files_.try_emplace(folder);
  if (isNew) {
    entry->second = machine_.ListFiles(folder);
    std::erase_if(entry->second, BelongsToPlayers);
  }
  return entry->second;
}

const std::vector<std::string>& MachineFiles::FoldersOf(const std::string& folder) {
  const auto [entry, isNew] = subfolders_.try_emplace(folder);
  if (isNew) entry->second = machine_.ListFolders(folder);
  return entry->second;
}

const std::string* MachineFiles::Read(const std::string& path) {
  const auto [entry, isNew] = bytes_.try_emplace(path);
  if (isNew && Exists(path)) entry->second = machine_.Read(path);
  return entry->second ? &*entry->second : nullptr;
}

std::optional<std::string> MachineFiles::ReadNamed(const std::string& path) {
  const auto put = bytes_.find(path);
  if (put != bytes_.end() && put->second) return put->second;
  machine_.TakeChoice(path);
  return machine_.Read(path);
}

bool ScenarioFiles::Hides(const std::string& path) const {
  return std::ranges::find(removed_, path) != removed_.end();
}

bool ScenarioFiles::Exists(const std::string& path) const {
  return MemoryFileSystem::Exists(path) || (!Hides(path) && machine_.Exists(path));
}

bool ScenarioFiles::FolderExists(const std::string& path) const {
  return MemoryFileSystem::FolderExists(path) || machine_.FolderExists(path);
}

std::vector<std::string> ScenarioFiles::ListFiles(const std::string& folder) const {
  std::vector<std::string> shown = machine_.FilesOf(folder);
  std::erase_if(shown, [&](const std::string& name) { return Hides(folder + "/" + name); });
  return Merged(MemoryFileSystem::ListFiles(folder), shown);
}

std::vector<std::string> ScenarioFiles::ListFolders(const std::string& folder) const {
  return Merged(MemoryFileSystem::ListFolders(folder), machine_.FoldersOf(folder));
}

std::optional<std::string> ScenarioFiles::Read(const std::string& path) const {
  if (MemoryFileSystem::Exists(path)) return MemoryFileSystem::Read(path);
  if (Hides(path)) return std::nullopt;
  const std::string* bytes = machine_.Read(path);
  return bytes != nullptr ? std::optional<std::string>(*bytes) : std::nullopt;
}

std::string ScenarioFiles::WhyUnread(const std::string& path) const {
  return MemoryFileSystem::Exists(path) || Hides(path) ? "" : machine_.WhyUnread(path);
}

std::string ScenarioFiles::Write(const std::string& path, std::string_view bytes) {
  std::erase(removed_, path);
  return MemoryFileSystem::Write(path, bytes);
}

std::string ScenarioFiles::Remove(const std::string& path) {
  if (Exists(path)) removed_.push_back(path);
  return MemoryFileSystem::Remove(path);
}

}  // namespace brindlemoor
