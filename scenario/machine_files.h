// MachineFiles: what scenarios read of the machine, kept for all of them. ScenarioFiles: the file
// system of one scenario, whose own files stay in memory.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/headless/memory_files.h"

namespace brindlemoor {

/// Files and folders of the machine, each looked up once. Only ordinary files are seen, and none
/// of a player's.
class MachineFiles {
 public:
  MachineFiles() : own_(std::make_unique<LocalFileSystem>()), machine_(*own_) {}
  /// Reads through files, which must outlive it.
  explicit MachineFiles(FileSystem& files) : machine_(files) {}

  /// From here on a file of this path holds these bytes, until KeepTo.
  void Put(const std::string& path, std::string bytes);
  /// See FileSystem. What was looked up with another folder is looked up again.
  void KeepTo(const std::string& programFolder);
  void TakeChoice(const std::string& path) { machine_.TakeChoice(path); }
  bool Exists(const std::string& path);
  bool FolderExists(const std::string& path);
  const std::vector<std::string>& FilesOf(const std::string& folder);
  const std::vector<std::string>& FoldersOf(const std::string& folder);
  /// nullptr when the file can't be read.
  const std::string* Read(const std::string& path);
  std::string WhyUnread(const std::string& path) const;
  /// A file that a scenario names itself, be it a player's and wherever it lies.
  std::optional<std::string> ReadNamed(const std::string& path);

 private:
  std::unique_ptr<FileSystem> own_;
  FileSystem& machine_;
  std::string programFolder_;
  std::unordered_map<std::string, bool> exists_;
  std::unordered_map<std::string, bool> folders_;
  std::unordered_map<std::string, std::vector<std::string>> files_;
  std::unordered_map<std::string, std::vector<std::string>> subfolders_;
  std::unordered_map<std::string, std::optional<std::string>> bytes_;
};

/// A file in Contents stands before one of the machine; nothing on the machine is changed.
class ScenarioFiles : public MemoryFileSystem {
 public:
  explicit ScenarioFiles(MachineFiles& machine) : machine_(machine) {}

  void KeepTo(const std::string& programFolder) override { machine_.KeepTo(programFolder); }
  void TakeChoice(const std::string& path) override { machine_.TakeChoice(path); }
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;

 private:
  bool Hides(const std::string& path) const;

  MachineFiles& machine_;
  std::vector<std::string> removed_;
};

}  // namespace brindlemoor
