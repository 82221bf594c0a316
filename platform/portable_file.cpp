// Files by the standard library alone, for systems without POSIX calls. Rights count when a file is
// opened, and no program can hold a file: each takes itself for the first on its folder.
#include "platform/machine_file.h"

#ifndef BRINDLEMOOR_POSIX_FILES

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/passing_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCantOpen = "it can't be opened";

std::string Reason(std::errc error) { return std::make_error_code(error).message(); }

bool HoldsNul(const std::string& path) { return path.find('\0') != std::string::npos; }

EntryKind KindOfType(fs::file_type type) {
  switch (type) {
    case fs::file_type::none:
    case fs::file_type::not_found:
      return EntryKind::kNothing;
    case fs::file_type::regular:
      return EntryKind::kFile;
    case fs::file_type::directory:
      return EntryKind::kFolder;
    case fs::file_type::symlink:
      return EntryKind::kLink;
    default:
      return EntryKind::kOther;
  }
}

/// "" or what went wrong.
std::string WriteNewFile(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file.flush() ? "" : Reason(std::errc::io_error);
}

}  // namespace

EntryKind KindOf(const std::string& path) {
  std::error_code failure;
  return HoldsNul(path) ? EntryKind::kNothing
                        : KindOfType(fs::symlink_status(path, failure).type());
}

EntryKind KindOfTarget(const std::string& path) {
  std::error_code failure;
  return HoldsNul(path) ? EntryKind::kNothing : KindOfType(fs::status(path, failure).type());
}

bool MayReadFile(const std::string& path) { return std::ifstream(path).is_open(); }

bool MayListFolder(const std::string& path) {
  std::error_code failure;
  const fs::directory_iterator entries(path, failure);
  return !failure;
}

FileContent ReadRegularFile(const std::string& path) {
  const EntryKind kind = KindOfTarget(path);
  if (kind == EntryKind::kNothing) return {};
  if (kind == EntryKind::kFolder) return {std::nullopt, "it is a folder"};
  std::error_code failure;
  if (kind != EntryKind::kFile) {
    return {std::nullopt, fs::is_fifo(path, failure) ? "it is a pipe" : "it is a device, no file"};
  }
  const std::uintmax_t size = fs::file_size(path, failure);
  if (failure) return {std::nullopt, failure.message()};
  if (size > kLargestFile) {
    return {std::nullopt, Joined("it is larger than ", kLargestFile >> 20, " MB")};
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return {std::nullopt, std::string(kCantOpen)};
  // One byte more than there should be, to see whether it grows.
  std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  const auto count = static_cast<std::size_t>(file.gcount());
  if (file.bad()) return {std::nullopt, Reason(std::errc::io_error)};
  if (count > size) {
    return {std::nullopt, "it grows while it is read, or gives more than its size says"};
  }
  bytes.resize(count);
  return {std::move(bytes)};
}

std::string ReplaceFile(const std::string& path, std::string_view bytes) {
  if (path.empty() || HoldsNul(path)) return Reason(std::errc::invalid_argument);
  const EntryKind old = KindOf(path);
  if (old == EntryKind::kFolder) return Reason(std::errc::is_a_directory);
  if (old == EntryKind::kOther) return "It is a device or a pipe, no file";
  if (old == EntryKind::kFile &&
      !std::fstream(path, std::ios::binary | std::ios::in | std::ios::out)) {
    return Reason(std::errc::permission_denied);
  }
  const fs::path beside = fs::path(path).parent_path() / PassingName(kPartEnding);
  std::string problem = WriteNewFile(beside, bytes);
  std::error_code failure;
  if (problem.empty()) {
    if (old == EntryKind::kFile) {
      fs::permissions(beside, fs::status(path, failure).permissions(), failure);
    }
    fs::rename(beside, path, failure);
    if (failure) problem = failure.message();
  }
  if (!problem.empty()) fs::remove(beside, failure);
  return problem;
}

std::string WriteToDevice(const std::string& path, std::string_view bytes) {
  return WriteNewFile(path, bytes);
}

std::string RemoveFile(const std::string& path) {
  if (HoldsNul(path)) return Reason(std::errc::invalid_argument);
  if (KindOf(path) == EntryKind::kFolder) return Reason(std::errc::is_a_directory);
  std::error_code failure;
  fs::remove(path, failure);
  return failure ? failure.message() : "";
}

void FlushFolder(const std::string&) {}

GrowingFile::~GrowingFile() = default;

void GrowingFile::Close() { file_ = -1; }

std::string GrowingFile::Create(const std::string& path) {
  if (HoldsNul(path)) return Reason(std::errc::invalid_argument);
  if (KindOf(path) != EntryKind::kNothing) return Reason(std::errc::file_exists);
  path_ = path;
  file_ = std::ofstream(path, std::ios::binary).is_open() ? 0 : -1;
  return IsOpen() ? "" : Reason(std::errc::permission_denied);
}

std::string GrowingFile::Add(std::string_view bytes) {
  std::ofstream file(path_, std::ios::binary | std::ios::app);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file.flush() ? "" : Reason(std::errc::io_error);
}

HeldFile::~HeldFile() = default;

HoldResult HeldFile::Take(const std::string& path) {
  path_ = path;
  return HoldResult::kHeld;
}

}  // namespace brindlemoor

#endif
