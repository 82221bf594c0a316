// Files kept in memory.
#include "platform/headless/memory_files.h"

#include <set>

namespace brindlemoor {

bool MemoryFileSystem::FolderExists(const std::string& path) const {
  const auto entry = Contents.lower_bound(path + "/");
  return entry != Contents.end() && entry->first.starts_with(path + "/");
}

std::vector<std::string> MemoryFileSystem::ListFiles(const std::string& folder) const {
  const std::string prefix = folder + "/";
  std::vector<std::string> names;
  for (const auto& [path, bytes] : Contents) {
    if (!path.starts_with(prefix)) continue;
    if (path.find('/', prefix.size()) == std::string::npos)
      names.push_back(path.substr(prefix.size()));
  }
  return names;
}

std::vector<std::string> MemoryFileSystem::ListFolders(const std::string& folder) const {
  const std::string prefix = folder + "/";
  std::set<std::string> names;
  for (const auto& [path, bytes] : Contents) {
    if (!path.starts_with(prefix)) continue;
    const auto end = path.find('/', prefix.size());
    if (end != std::string::npos) names.insert(path.substr(prefix.size(), end - prefix.size()));
  }
  return {names.begin(), names.end()};
}

std::optional<std::string> MemoryFileSystem::Read(const std::string& path) const {
  const auto entry = Contents.find(path);
  if (entry == Contents.end()) return std::nullopt;
  return entry->second;
}

std::string MemoryFileSystem::Write(const std::string& path, std::string_view bytes) {
  if (!WriteError.empty()) return WriteError;
  Contents[path] = bytes;
  return "";
}

std::string MemoryFileSystem::Remove(const std::string& path) {
  if (!WriteError.empty() && Exists(path)) return WriteError;
  Contents.erase(path);
  return "";
}

}  // namespace brindlemoor
