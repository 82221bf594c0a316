// CachedFileSystem: the files of the machine as they were when they were first asked for.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace brindlemoor {

/// Asks the machine for each file and folder once. What is written is dropped, nothing on the
/// machine is changed, and the files of players are hidden.
class CachedFileSystem : public FileSystem {
 public:
  /// A file that stands before one of the machine.
  void Put(const std::string& path, std::string bytes) { read_[path] = std::move(bytes); }

  /// Gets what is written and dropped.
  std::function<void(std::string_view bytes)> OnWrite;

  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string Write(const std::string&, std::string_view bytes) override {
    if (OnWrite) OnWrite(bytes);
    return "";
  }
  std::string Remove(const std::string&) override { return ""; }

 private:
  LocalFileSystem machine_;
  mutable std::map<std::string, bool> exists_;
  mutable std::map<std::string, bool> folderExists_;
  mutable std::map<std::string, std::vector<std::string>> files_;
  mutable std::map<std::string, std::vector<std::string>> folders_;
  mutable std::map<std::string, std::optional<std::string>> read_;
};

}  // namespace brindlemoor
