// MemoryFileSystem: files kept in memory, for tests.
#pragma once

#include <map>
#include <string>

#include "platform/files.h"

namespace brindlemoor {

/// Every path that begins with a folder's path and "/" lies in that folder.
class MemoryFileSystem : public FileSystem {
 public:
  std::map<std::string, std::string> Contents;  ///< bytes by absolute path
  bool OthersHold = false;  ///< another program holds whatever this one asks for
  std::string WriteError;   ///< when not empty, writes and removals fail with it

  bool Exists(const std::string& path) const override { return Contents.contains(path); }
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;
  HoldResult Hold(const std::string&) override {
    return OthersHold ? HoldResult::kByAnother : HoldResult::kHeld;
  }
};

}  // namespace brindlemoor
