// The files of the machine, with everything that is written kept in memory.
#include "platform/headless/overlay_files.h"

#include <set>

namespace brindlemoor {
namespace {

std::vector<std::string> Merged(const std::vector<std::string>& a,
                                const std::vector<std::string>& b) {
  if (a.empty()) return b;
  std::set<std::string> names(a.begin(), a.end());
  names.insert(b.begin(), b.end());
  return {names.begin(), names.end()};
}

}  // namespace

bool OverlayFileSystem::Hides(const std::string& path) const {
  return removed_.contains(path) || hides_(path);
}

bool OverlayFileSystem::Exists(const std::string& path) const {
  return MemoryFileSystem::Exists(path) || (!Hides(path) && below_.Exists(path));
}

bool OverlayFileSystem::FolderExists(const std::string& path) const {
  return MemoryFileSystem::FolderExists(path) || below_.FolderExists(path);
}

std::vector<std::string> OverlayFileSystem::ListFiles(const std::string& folder) const {
  std::vector<std::string> shown = below_.ListFiles(folder);
  std::erase_if(shown, [&](const std::string& name) { return Hides(folder + "/" + name); });
  return Merged(MemoryFileSystem::ListFiles(folder), shown);
}

std::vector<std::string> OverlayFileSystem::ListFolders(const std::string& folder) const {
  return Merged(MemoryFileSystem::ListFolders(folder), below_.ListFolders(folder));
}

std::optional<std::string> OverlayFileSystem::Read(const std::string& path) const {
  if (MemoryFileSystem::Exists(path)) return MemoryFileSystem::Read(path);
  return Hides(path) ? std::nullopt : below_.Read(path);
}

std::string OverlayFileSystem::WhyUnread(const std::string& path) const {
  return MemoryFileSystem::Exists(path) || Hides(path) ? "" : below_.WhyUnread(path);
}

std::string OverlayFileSystem::Followed(const std::string& path) const {
  return MemoryFileSystem::Exists(path) ? path : below_.Followed(path);
}

std::string OverlayFileSystem::Remove(const std::string& path) {
  removed_.insert(path);
  return MemoryFileSystem::Remove(path);
}

}  // namespace brindlemoor
