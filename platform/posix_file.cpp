// Files by POSIX calls.
#include "platform/machine_file.h"

#ifdef BRINDLEMOOR_POSIX_FILES

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/passing_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr mode_t kNewFileRights = 0666;
constexpr mode_t kRights = 0777;
constexpr int kNameAttempts = 8;

std::string Reason(int error) { return std::generic_category().message(error); }

/// Such a path would end at the NUL for the system, and name another file.
bool HoldsNul(const std::string& path) { return path.find('\0') != std::string::npos; }

/// An open file that is closed at the end of its scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags, mode_t mode = 0)
      : descriptor_(::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode)) {}
  ~OpenFile() { Close(); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }
  bool Close() {
    const bool closed = descriptor_ < 0 || ::close(descriptor_) == 0;
    descriptor_ = -1;
    return closed;
  }

 private:
  int descriptor_;
};

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool Flush(int descriptor) {
  // Some file systems know no flushing; that is no failure of the write.
  return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

EntryKind KindOfMode(mode_t mode) {
  if (S_ISREG(mode)) return EntryKind::kFile;
  if (S_ISDIR(mode)) return EntryKind::kFolder;
  return S_ISLNK(mode) ? EntryKind::kLink : EntryKind::kOther;
}

/// Why an entry is not read; "" for a file of a bearable size.
std::string RefuseEntry(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) return "it is a folder";
  if (S_ISFIFO(status.st_mode)) return "it is a pipe";
  if (!S_ISREG(status.st_mode)) return "it is a device, no file";
  if (status.st_size < 0 || static_cast<std::size_t>(status.st_size) > kLargestFile) {
    return Joined("it is larger than ", kLargestFile >> 20, " MB");
  }
  return "";
}

/// Reads up to the size that the file had when it was opened.
FileContent ReadAll(int descriptor, std::size_t size) {
  std::string bytes;
  bytes.reserve(size);
  std::array<char, 1 << 16> buffer;
  while (true) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return {std::nullopt, Reason(errno)};
    if (count == 0) return {std::move(bytes)};
    if (static_cast<std::size_t>(count) > size - bytes.size()) {
      return {std::nullopt, "it grows while it is read, or gives more than its size says"};
    }
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

/// Writes and flushes a new file with some rights. Returns 0 or the error number.
int WriteNewFile(const std::string& path, std::string_view bytes, const struct stat* replaced) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, kNewFileRights);
  if (!file.IsOpen()) return errno;
  const bool hasRights =
      replaced == nullptr || ::fchmod(file.Descriptor(), replaced->st_mode & kRights) == 0;
  const bool written =
      hasRights && WriteAll(file.Descriptor(), bytes) && Flush(file.Descriptor()) && file.Close();
  return written ? 0 : errno;
}

/// Why a file may not take the place of what is there; "" when it may.
std::string RefuseReplacing(const std::string& path, const struct stat& old) {
  if (S_ISLNK(old.st_mode)) return "";
  if (S_ISDIR(old.st_mode)) return Reason(EISDIR);
  if (!S_ISREG(old.st_mode)) return "It is a device or a pipe, no file";
  // What cannot be read has not been read: nothing that is saved can know what is in it.
  return ::access(path.c_str(), R_OK | W_OK) == 0 ? "" : Reason(errno);
}

}  // namespace

EntryKind KindOf(const std::string& path) {
  struct stat status {};
  if (HoldsNul(path) || ::lstat(path.c_str(), &status) != 0) return EntryKind::kNothing;
  return KindOfMode(status.st_mode);
}

EntryKind KindOfTarget(const std::string& path) {
  struct stat status {};
  if (HoldsNul(path) || ::stat(path.c_str(), &status) != 0) return EntryKind::kNothing;
  return KindOfMode(status.st_mode);
}

bool MayReadFile(const std::string& path) { return ::access(path.c_str(), R_OK) == 0; }

bool MayListFolder(const std::string& path) { return ::access(path.c_str(), R_OK | X_OK) == 0; }

FileContent ReadRegularFile(const std::string& path) {
  struct stat status {};
  if (HoldsNul(path) || ::stat(path.c_str(), &status) != 0) {
    const bool nothing =
        HoldsNul(path) || errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
    return {std::nullopt, nothing ? "" : Reason(errno)};
  }
  // Opening a device may do something to it already.
  if (std::string refusal = RefuseEntry(status); !refusal.empty()) return {std::nullopt, refusal};
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  if (!file.IsOpen() || ::fstat(file.Descriptor(), &status) != 0) {
    return {std::nullopt, Reason(errno)};
  }
  if (std::string refusal = RefuseEntry(status); !refusal.empty()) return {std::nullopt, refusal};
  return ReadAll(file.Descriptor(), static_cast<std::size_t>(status.st_size));
}

std::string ReplaceFile(const std::string& path, std::string_view bytes) {
  if (path.empty() || HoldsNul(path)) return Reason(EINVAL);
  struct stat old {};
  const bool replaces = ::lstat(path.c_str(), &old) == 0;
  if (replaces) {
    if (std::string refusal = RefuseReplacing(path, old); !refusal.empty()) return refusal;
  }
  const bool keepsRights = replaces && S_ISREG(old.st_mode);
  const std::size_t separator = path.rfind('/');
  const std::string folder = separator == std::string::npos ? "./" : path.substr(0, separator + 1);
  std::string beside;
  int error = EEXIST;
  for (int attempt = 0; attempt < kNameAttempts && error == EEXIST; ++attempt) {
    beside = folder + PassingName(kPartEnding);
    error = WriteNewFile(beside, bytes, keepsRights ? &old : nullptr);
  }
  if (error == EEXIST) return Reason(error);
  if (error == 0 && ::rename(beside.c_str(), path.c_str()) != 0) error = errno;
  if (error != 0) {
    ::unlink(beside.c_str());
    return Reason(error);
  }
  FlushFolder(folder);
  return "";
}

void FlushFolder(const std::string& folder) {
  const OpenFile entries(folder, O_RDONLY | O_DIRECTORY);
  if (entries.IsOpen()) Flush(entries.Descriptor());
}

std::string WriteToDevice(const std::string& path, std::string_view bytes) {
  OpenFile device(path, O_WRONLY);
  const bool written = device.IsOpen() && WriteAll(device.Descriptor(), bytes) && device.Close();
  return written ? "" : Reason(errno);
}

std::string RemoveFile(const std::string& path) {
  if (HoldsNul(path)) return Reason(EINVAL);
  return ::unlink(path.c_str()) == 0 || errno == ENOENT ? "" : Reason(errno);
}

GrowingFile::~GrowingFile() { Close(); }

void GrowingFile::Close() {
  if (file_ >= 0) ::close(std::exchange(file_, -1));
}

std::string GrowingFile::Create(const std::string& path) {
  if (HoldsNul(path)) return Reason(EINVAL);
  path_ = path;
  file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_APPEND | O_CLOEXEC,
                 kNewFileRights);
  return file_ >= 0 ? "" : Reason(errno);
}

std::string GrowingFile::Add(std::string_view bytes) {
  return WriteAll(file_, bytes) ? "" : Reason(errno);
}

HeldFile::~HeldFile() {
  if (file_ < 0) return;
  ::unlink(path_.c_str());
  ::close(file_);
}

namespace {

HoldResult TryToHold(int file, const std::string& path) {
  struct stat held {};
  struct stat named {};
  if (::fstat(file, &held) != 0 || !S_ISREG(held.st_mode)) return HoldResult::kImpossible;
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    return errno == EWOULDBLOCK ? HoldResult::kByAnother : HoldResult::kImpossible;
  }
  // The program that held it may have taken it away meanwhile: then another one has the name.
  const bool isNamed = ::lstat(path.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
                       held.st_dev == named.st_dev;
  return isNamed ? HoldResult::kHeld : HoldResult::kByAnother;
}

}  // namespace

HoldResult HeldFile::Take(const std::string& path) {
  const int file =
      ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY,
             kNewFileRights);
  if (file < 0) return HoldResult::kImpossible;
  const HoldResult result = TryToHold(file, path);
  if (result == HoldResult::kHeld) {
    file_ = file;
    path_ = path;
  } else {
    ::close(file);
  }
  return result;
}

}  // namespace brindlemoor

#endif
