// Folders by the standard library.
#include "platform/machine_folder.h"

#include <filesystem>
#include <system_error>

#include "platform/machine_file.h"

namespace brindlemoor {

namespace fs = std::filesystem;

std::string MakeFolder(const std::string& path) {
  std::error_code failure;
  if (fs::create_directories(path, failure)) FlushFolder(fs::path(path).parent_path().string());
  return failure ? failure.message() : "";
}

std::string RenameEntry(const std::string& from, const std::string& to) {
  std::error_code failure;
  fs::rename(from, to, failure);
  if (!failure) FlushFolder(fs::path(to).parent_path().string());
  return failure ? failure.message() : "";
}

std::string RemoveFolder(const std::string& path) {
  std::error_code failure;
  fs::remove_all(path, failure);
  return failure ? failure.message() : "";
}

std::string RemoveEmptyFolder(const std::string& path) {
  std::error_code failure;
  fs::remove(path, failure);
  return failure ? failure.message() : "";
}

std::optional<std::chrono::seconds> AgeOfFile(const std::string& path) {
  std::error_code failure;
  const fs::file_time_type written = fs::last_write_time(path, failure);
  if (failure) return std::nullopt;
  return std::chrono::floor<std::chrono::seconds>(fs::file_time_type::clock::now() - written);
}

}  // namespace brindlemoor
