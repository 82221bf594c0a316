// OverlayFileSystem: the files of the machine, with everything that is written kept in memory.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/files.h"
#include "platform/headless/memory_files.h"

namespace brindlemoor {

/// Shows the machine's files, or those of another file system, except those that it is told to
/// hide. A file in Contents stands before one below; nothing below is changed.
class OverlayFileSystem : public MemoryFileSystem {
 public:
  using Test = std::function<bool(const std::string& path)>;
  explicit OverlayFileSystem(Test hides) : below_(machine_), hides_(std::move(hides)) {}
  OverlayFileSystem(FileSystem& below, Test hides) : below_(below), hides_(std::move(hides)) {}

  void KeepTo(const std::string& programFolder) override { below_.KeepTo(programFolder); }
  void TakeChoice(const std::string& path) override { below_.TakeChoice(path); }
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Followed(const std::string& path) const override;
  std::string Remove(const std::string& path) override;

 private:
  bool Hides(const std::string& path) const;

  LocalFileSystem machine_;
  FileSystem& below_;
  Test hides_;
  std::set<std::string> removed_;
};

}  // namespace brindlemoor
