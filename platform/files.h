// File operations behind an interface, so that tests can let each of them fail.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// What the program does with files. Paths are absolute UTF-8. Nothing throws.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// True for a readable entry that is no folder.
  virtual bool Exists(const std::string& path) const = 0;
  virtual bool FolderExists(const std::string& path) const = 0;
  /// Names (not paths) of a folder's files, sorted by name; empty when it can't be listed.
  virtual std::vector<std::string> ListFiles(const std::string& folder) const = 0;
  /// Names of a folder's direct subfolders, sorted by name, without "." and "..".
  virtual std::vector<std::string> ListFolders(const std::string& folder) const = 0;
  /// The bytes of a file; nothing when it can't be read.
  virtual std::optional<std::string> Read(const std::string& path) const = 0;
  /// Writes beside the file, flushes and renames over it. Returns "" or what went wrong; then the
  /// old file is as it was.
  virtual std::string Write(const std::string& path, std::string_view bytes) = 0;
  /// Removes a file, a link rather than its target. Returns "" or what went wrong; a file that is
  /// not there is removed already.
  virtual std::string Remove(const std::string& path) = 0;
};

/// The file system of the machine.
class LocalFileSystem : public FileSystem {
 public:
  bool Exists(const std::string& path) const override;
  bool FolderExists(const std::string& path) const override;
  std::vector<std::string> ListFiles(const std::string& folder) const override;
  std::vector<std::string> ListFolders(const std::string& folder) const override;
  std::optional<std::string> Read(const std::string& path) const override;
  std::string Write(const std::string& path, std::string_view bytes) override;
  std::string Remove(const std::string& path) override;
};

}  // namespace brindlemoor
