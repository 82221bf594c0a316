// File operations behind an interface, so that tests can let each of them fail.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_reach.h"
#include "platform/machine_file.h"

namespace brindlemoor {

/// What the program does with files: the one way to them. Paths are absolute UTF-8. Nothing throws.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// How far the files may lead from now on (platform/file_reach.h): the program's folder, "" for
  /// no bound, and what the user chose in a dialog.
  virtual void KeepTo(const std::string& /*programFolder*/) {}
  virtual void TakeChoice(const std::string& /*path*/) {}

  /// True for a regular file that can be read.
  virtual bool Exists(const std::string& path) const = 0;
  virtual bool FolderExists(const std::string& path) const = 0;
  /// Names (not paths) of a folder's files, sorted by name; empty when it can't be listed.
  virtual std::vector<std::string> ListFiles(const std::string& folder) const = 0;
  /// Names of a folder's direct subfolders, sorted by name, without "." and "..".
  virtual std::vector<std::string> ListFolders(const std::string& folder) const = 0;
  /// The bytes of a file; nothing when it can't be read.
  virtual std::optional<std::string> Read(const std::string& path) const = 0;
  /// Why what is there of this name is not read; "" where it can be or where nothing is.
  virtual std::string WhyUnread(const std::string& /*path*/) const { return ""; }
  /// Where a path of the program's folder leads by way of links.
  virtual std::string Followed(const std::string& path) const { return path; }
  /// Writes beside the file, flushes and renames over it; a link is replaced. Returns "" or what
  /// went wrong; then the old file is as it was.
  virtual std::string Write(const std::string& path, std::string_view bytes) = 0;
  /// Removes a file, a link rather than its target. Returns "" or what went wrong; a file that is
  /// not there is removed already.
  virtual std::string Remove(const std::string& path) = 0;
  /// Makes a folder whose parent is there. "" or what went wrong; one that is there is made
  /// already.
  virtual std::string AddFolder(const std::string& /*path*/) { return ""; }
  /// Gives a file another name, in one step where the system can; what had that name is replaced.
  /// "" or what went wrong.
  virtual std::string Rename(const std::string& from, const std::string& to);
  /// Removes a folder that holds nothing but files, with them. "" or what went wrong.
  virtual std::string RemoveFolderOfFiles(const std::string& folder);

  /// Holds a passing file of the program's folder until LetGo, or to the program's end: of all
  /// programs on the folder, one at a time. Whoever holds it holds it again.
  virtual HoldResult Hold(const std::string& /*path*/) { return HoldResult::kHeld; }
  virtual void LetGo(const std::string& /*path*/) {}
};

/// True for what would be there if it could be read; what is saved must not take its place.
bool IsThere(const FileSystem& files, const std::string& path);

/// The file system of the machine. Only regular files are read and written, whatever a name says.
class LocalFileSystem : public FileSystem {
 public:
  void KeepTo(const std::string& programFolder) override { reach_.KeepTo(programFolder); }
  void TakeChoice(const std::string& path) override { reach_.TakeChoice(path); }
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string WhyUnread(const std::string& path) const override;
  std::string Followed(const std::string& path) const override { return reach_.Followed(path); }
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;
  std::string AddFolder(const std::string& path) override;
  std::string Rename(const std::string& from, const std::string& to) override;
  std::string RemoveFolderOfFiles(const std::string& folder) override;
  HoldResult Hold(const std::string& path) override;
  void LetGo(const std::string& path) override { held_.erase(path); }

 private:
  FileReach reach_;
  std::map<std::string, std::unique_ptr<HeldFile>> held_;
};

}  // namespace brindlemoor
