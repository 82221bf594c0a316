// The files of the machine as they were when they were first asked for.
#include "simulation/cached_files.h"

#include "data/profiles.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostRemembered = 256U << 20;  // bytes of all files

/// What the map holds for a key, found out when it is asked for first.
template <class Value, class Find>
const Value& Remembered(std::unordered_map<std::string, Value>& known, const std::string& key,
                        Find find) {
  const auto entry = known.find(key);
  return entry != known.end() ? entry->second : known.emplace(key, find()).first->second;
}

}  // namespace

bool CachedFileSystem::Exists(const std::string& path) const {
  return Remembered(exists_, path,
                    [&] { return !BelongsToPlayers(path) && machine_->Exists(path); });
}

bool CachedFileSystem::FolderExists(const std::string& path) const {
  return Remembered(folderExists_, path, [&] { return machine_->FolderExists(path); });
}

std::vector<std::string> CachedFileSystem::ListFiles(const std::string& folder) const {
  return Remembered(files_, folder, [&] {
    std::vector<std::string> names = machine_->ListFiles(folder);
    std::erase_if(names, [](const std::string& name) { return BelongsToPlayers(name); });
    return names;
  });
}

std::vector<std::string> CachedFileSystem::ListFolders(const std::string& folder) const {
  return Remembered(folders_, folder, [&] { return machine_->ListFolders(folder); });
}

std::optional<std::string> CachedFileSystem::Read(const std::string& path) const {
  if (!Exists(path)) return std::nullopt;
  if (const auto known = read_.find(path); known != read_.end()) return known->second;
  auto bytes = machine_->Read(path);
  if (remembered_ > kMostRemembered) return bytes;
  remembered_ += bytes ? bytes->size() : 0;
  return read_.emplace(path, std::move(bytes)).first->second;
}

std::string CachedFileSystem::WhyUnread(const std::string& path) const {
  return BelongsToPlayers(path) ? "" : machine_->WhyUnread(path);
}

}  // namespace brindlemoor
