// CachedFileSystem: the files of the machine as they were when they were first asked for.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace brindlemoor {

/// Asks the machine, or other files, for each file and folder once (giant files are not all kept).
/// What is written is dropped, nothing on the machine is changed, and the files of players are
/// hidden.
class CachedFileSystem : public FileSystem {
 public:
  explicit CachedFileSystem(
      std::unique_ptr<FileSystem> machine = std::make_unique<LocalFileSystem>())
      : machine_(std::move(machine)) {}

  /// A file that stands before one of the machine.
  void Put(const std::string& path, std::string bytes) {
    exists_[path] = true;
    read_[path] = std::move(bytes);
  }

  /// Gets what is written and dropped.
  std::function<void(std::string_view bytes)> OnWrite;

  void KeepTo(const std::string& programFolder) override { machine_->KeepTo(programFolder); }
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Write(const std::string&, std::string_view bytes) override {
    if (OnWrite) OnWrite(bytes);
    return "";
  }
  std::string Remove(const std::string&) override { return ""; }

 private:
  std::unique_ptr<FileSystem> machine_;
  template <class Value>
  using ByPath = std::unordered_map<std::string, Value>;
  mutable ByPath<bool> exists_;
  mutable ByPath<bool> folderExists_;
  mutable ByPath<std::vector<std::string>> files_;
  mutable ByPath<std::vector<std::string>> folders_;
  mutable ByPath<std::optional<std::string>> read_;
  mutable std::size_t remembered_ = 0;  // bytes in read_
};

}  // namespace brindlemoor
