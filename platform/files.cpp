// The file system of the machine.
#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = 256U << 20;

std::string Reason(int error) { return std::generic_category().message(error); }

/// Such a path would end at the NUL for the system, and name another file.
bool HoldsNul(const std::string& path) { return path.find('\0') != std::string::npos; }

/// An open file that is closed at the end of its scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags, mode_t mode = 0)
      : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
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

/// Names of a folder's entries, the folders or the others.
std::vector<std::string> List(const std::string& folder, bool folders) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "/" : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unreadable;
    if (entry->is_directory(unreadable) == folders && !unreadable) {
      names.push_back(entry->path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Writes and flushes a new file with the rights of the one that it will replace. Returns 0 or the
/// error number.
int WriteNewFile(const std::string& path, std::string_view bytes, const struct stat* replaced) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
  if (!file.IsOpen()) return errno;
  if (replaced != nullptr && ::fchmod(file.Descriptor(), replaced->st_mode & 07777) != 0) {
    return errno;
  }
  if (!WriteAll(file.Descriptor(), bytes) || !Flush(file.Descriptor()) || !file.Close()) {
    return errno;
  }
  return 0;
}

}  // namespace

bool LocalFileSystem::Exists(const std::string& path) const {
  struct stat status {};
  return !HoldsNul(path) && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::access(path.c_str(), R_OK) == 0;
}

bool LocalFileSystem::FolderExists(const std::string& path) const {
  struct stat status {};
  return !HoldsNul(path) && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         ::access(path.c_str(), R_OK | X_OK) == 0;
}

std::vector<std::string> LocalFileSystem::ListFiles(const std::string& folder) const {
  return List(folder, false);
}

std::vector<std::string> LocalFileSystem::ListFolders(const std::string& folder) const {
  return List(folder, true);
}

std::optional<std::string> LocalFileSystem::Read(const std::string& path) const {
  if (!Exists(path)) return std::nullopt;
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode) ||
      static_cast<std::size_t>(status.st_size) > kLargestFile) {
    return std::nullopt;
  }
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(status.st_size));
  char buffer[1 << 16];
  while (bytes.size() <= kLargestFile) {
    const ssize_t count = ::read(file.Descriptor(), buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return bytes;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

std::string LocalFileSystem::Write(const std::string& path, std::string_view bytes) {
  if (path.empty() || HoldsNul(path)) return Reason(EINVAL);
  // A link to a file stays a link: its target is what is replaced.
  std::error_code noLink;
  const fs::path real = fs::canonical(path, noLink);
  const std::string target = noLink ? path : real.string();

  struct stat old {};
  const bool replaces = ::stat(target.c_str(), &old) == 0;
  if (replaces && S_ISDIR(old.st_mode)) return Reason(EISDIR);
  if (replaces && !S_ISREG(old.st_mode)) return "It is a device or a pipe, no file";
  // What cannot be read has not been read: nothing that is saved can know what is in it.
  if (replaces && ::access(target.c_str(), R_OK | W_OK) != 0) return Reason(errno);

  // The name does not grow with the file's, which may be as long as the system allows.
  const std::string folder = fs::path(target).parent_path().string();
  const std::string beside = Joined(folder, "/.brindlemoor-", ::getpid(), ".part~");
  ::unlink(beside.c_str());
  int error = WriteNewFile(beside, bytes, replaces ? &old : nullptr);
  if (error == 0 && ::rename(beside.c_str(), target.c_str()) != 0) error = errno;
  if (error != 0) {
    ::unlink(beside.c_str());
    return Reason(error);
  }
  const OpenFile entries(folder, O_RDONLY | O_DIRECTORY);
  if (entries.IsOpen()) Flush(entries.Descriptor());
  return "";
}

std::string LocalFileSystem::Remove(const std::string& path) {
  if (HoldsNul(path)) return Reason(EINVAL);
  return ::unlink(path.c_str()) == 0 || errno == ENOENT ? "" : Reason(errno);
}

}  // namespace brindlemoor
