// The calls by which files of the machine are opened, read and replaced: all that knows the system
// lies behind them. posix_file.cpp has them for systems with POSIX calls, portable_file.cpp for
// others.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#if (defined(__unix__) || defined(__APPLE__)) && !defined(BRINDLEMOOR_PORTABLE_FILES)
#define BRINDLEMOOR_POSIX_FILES
#endif

namespace brindlemoor {

/// Larger files are not read.
inline constexpr std::size_t kLargestFile = std::size_t{256} << 20;

/// The bytes of a file, or why there are none.
struct FileContent {
  std::optional<std::string> Bytes;
  std::string Problem{};  ///< "" where nothing is there
};

/// What the entry of a name is, links followed or not.
enum class EntryKind { kNothing, kFile, kFolder, kLink, kOther };

EntryKind KindOf(const std::string& path);
EntryKind KindOfTarget(const std::string& path);
/// Rights of the present user.
bool MayReadFile(const std::string& path);
bool MayListFolder(const std::string& path);

/// Reads a regular file, links followed. Nothing else is waited for or opened, and no more is read
/// than the file's size says.
FileContent ReadRegularFile(const std::string& path);

/// Writes beside a file, under a name that no other program or machine has, flushes and renames
/// over it. A link of this name is replaced, never followed; a folder, a device or a file without
/// the rights to read and write it is not. "" or what went wrong; then everything is as it was.
std::string ReplaceFile(const std::string& path, std::string_view bytes);

/// Writes to a device or a pipe that the user named, which no file could replace. "" or what went
/// wrong.
std::string WriteToDevice(const std::string& path, std::string_view bytes);

/// Removes a file; a link goes alone. "" or what went wrong; a file that is not there is removed
/// already.
std::string RemoveFile(const std::string& path);

/// What a folder holds is there after a loss of power, too, where the system can promise that.
void FlushFolder(const std::string& folder);

/// A file that grows line by line; it did not exist before.
class GrowingFile {
 public:
  GrowingFile() = default;
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;
  ~GrowingFile();

  /// "" or what went wrong. Whatever is there of this name, a link too, is not touched.
  std::string Create(const std::string& path);
  bool IsOpen() const { return file_ >= 0; }
  /// The bytes are in the file when this returns, those of one call together. "" or what went
  /// wrong.
  std::string Add(std::string_view bytes);
  void Close();

 private:
  int file_ = -1;
  std::string path_;
};

/// Whether this system lets files be held: where not, every program holds all of them.
#ifdef BRINDLEMOOR_POSIX_FILES
inline constexpr bool kFilesAreHeld = true;
#else
inline constexpr bool kFilesAreHeld = false;
#endif

/// Whether a program has what one program at a time may have.
enum class HoldResult {
  kHeld,
  kByAnother,
  kImpossible  ///< the folder takes no such file, or the system can't hold one
};

/// A file that one program at a time holds, and that is gone with it.
class HeldFile {
 public:
  HeldFile() = default;
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  ~HeldFile();

  /// Takes hold of a file, made where it is missing.
  HoldResult Take(const std::string& path);

 private:
  int file_ = -1;
  std::string path_;
};

}  // namespace brindlemoor
