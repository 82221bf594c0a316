// What the program needs of a library for archives: files out of an archive, an archive out of
// files.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brindlemoor {

enum class ArchiveEntryKind { kFile, kFolder, kLink, kOther };

/// What an archive says of one of its entries; nothing of it can be trusted.
struct ArchiveEntry {
  std::string Name;  ///< as it stands there; folders may end with "/"
  ArchiveEntryKind Kind = ArchiveEntryKind::kFile;
  bool IsEncrypted = false;
};

/// A file with its name in an archive, "/" between folders.
struct ArchiveFile {
  std::string Name;
  std::string Bytes;
  bool operator==(const ArchiveFile&) const = default;
};

/// Is told what an archive holds, entry by entry. False from either ends the reading.
class ArchiveVisitor {
 public:
  virtual ~ArchiveVisitor() = default;
  virtual bool Begin(const ArchiveEntry& entry) = 0;
  /// The next bytes of the file that began last, as they are unpacked.
  virtual bool Take(std::string_view bytes) = 0;
};

/// Reads and writes archives in memory. Nothing throws but for want of memory.
class ArchiveLibrary {
 public:
  virtual ~ArchiveLibrary() = default;

  /// "" or what is wrong with the archive, in words that go on from "it"; "" too when the visitor
  /// ended the reading.
  virtual std::string Read(std::string_view archive, ArchiveVisitor& visitor) const = 0;
  /// Makes an archive of files in their order. The same files give the same bytes, wherever and
  /// whenever. "" or what went wrong.
  virtual std::string Write(std::span<const ArchiveFile> files, std::string& archive) const = 0;
};

}  // namespace brindlemoor
