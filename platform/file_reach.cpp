// Following links as far as they may lead.
#include "platform/file_reach.h"

#include <system_error>

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

/// Without detours and without a separator at the end.
std::string Plain(const std::string& path) {
  const bool hasDetours = path.find("/.") != path.npos || path.find("//") != path.npos;
  std::string plain = hasDetours ? fs::path(path).lexically_normal().generic_string() : path;
  while (plain.size() > 1 && plain.back() == '/') plain.pop_back();
  return plain;
}

std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  if (separator == std::string::npos) return ".";
  return separator == 0 ? "/" : path.substr(0, separator);
}

bool IsLink(const std::string& path) {
  std::error_code failure;
  return fs::symlink_status(path, failure).type() == fs::file_type::symlink;
}

/// True when one of the names of a path behind its base is a link. The path is taken as it is: ".."
/// behind a link leads elsewhere than it seems.
bool PassesLink(const std::string& path, std::string_view base) {
  for (std::size_t end = path.starts_with(base) ? base.size() : 0; end != std::string::npos;) {
    end = path.find('/', end + 1);
    if (IsLink(path.substr(0, end))) return true;
  }
  return false;
}

}  // namespace

void FileReach::KeepTo(const std::string& programFolder) {
  folder_ = Plain(programFolder);
  parent_ = FolderOf(folder_);
  std::error_code failure;
  realFolder_ = fs::canonical(folder_, failure);
  realParent_ = realFolder_.parent_path();
}

void FileReach::TakeChoice(const std::string& path) {
  const std::string chosen = Plain(path);
  std::error_code failure;
  if (fs::is_directory(chosen, failure)) {
    chosenFolders_.insert(chosen);
  } else {
    chosenFiles_.insert(chosen);
    chosenFolders_.insert(FolderOf(chosen));
  }
}

std::string_view FileReach::BaseOf(const std::string& path) const {
  if (folder_.empty()) return "";
  if (path.size() > folder_.size() && path.starts_with(folder_) &&
      (path[folder_.size()] == '/' || folder_ == "/")) {
    return folder_;
  }
  return path != folder_ && FolderOf(path) == parent_ ? parent_ : std::string_view();
}

bool FileReach::IsBelow(const fs::path& real) const {
  if (realFolder_.empty()) return false;
  const std::string& folder = realFolder_.native();
  const std::string& path = real.native();
  return path == folder || path.starts_with(folder == "/" ? folder : folder + "/");
}

bool FileReach::AllowsReading(const std::string& path) const {
  const std::string plain = Plain(path);
  const std::string_view base = BaseOf(plain);
  if (base.empty() || !PassesLink(path, base)) return true;
  if (chosenFiles_.contains(path)) return true;
  if (chosenFolders_.contains(FolderOf(path)) && !IsLink(path)) return true;
  std::error_code failure;
  const fs::path real = fs::canonical(path, failure);
  return !failure && (IsBelow(real) || real.parent_path() == realParent_);
}

bool FileReach::AllowsFolder(const std::string& folder) const {
  const std::string plain = Plain(folder);
  const std::string_view base = BaseOf(plain);
  if (base != folder_ || base.empty() || !PassesLink(folder, base)) return true;
  std::error_code failure;
  return chosenFolders_.contains(folder) || IsBelow(fs::canonical(folder, failure));
}

bool FileReach::AllowsWriting(const std::string& path) const {
  if (folder_.empty()) return true;
  const std::string folder = FolderOf(path);
  if (folder == folder_ || chosenFolders_.contains(folder)) return true;
  if (BaseOf(Plain(folder)) == folder_ && !PassesLink(folder, folder_)) return true;
  std::error_code failure;
  const fs::path real = fs::canonical(folder, failure);
  return !failure && IsBelow(real);
}

std::string FileReach::Followed(const std::string& path) const {
  const std::string plain = Plain(path);
  const std::string_view base = BaseOf(plain);
  if (base.empty() || !PassesLink(path, base)) return path;
  std::error_code failure;
  const fs::path real = fs::canonical(path, failure);
  return failure ? path : real.string();
}

}  // namespace brindlemoor
