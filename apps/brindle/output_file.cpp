// Where a command writes what it has made.
#include "apps/brindle/output_file.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <unistd.h>

#include "platform/files.h"
#include "platform/machine_file.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

std::string Refusal(const std::string& path, std::string_view reason) {
  return Joined("can't write ", path, ": ", reason);
}

std::string Reason() { return std::generic_category().message(errno); }

/// A device or a pipe can't be replaced by a file.
bool IsSpecial(const std::string& path) { return KindOfTarget(path) == EntryKind::kOther; }

std::string AbsolutePath(const std::string& path) {
  std::error_code failure;
  return std::filesystem::absolute(path, failure).lexically_normal().generic_string();
}

}  // namespace

std::string OutputProblem(const std::string& path) {
  if (path.empty() || IsSpecial(path)) return "";
  std::error_code failure;
  if (std::filesystem::is_directory(path, failure)) return Refusal(path, "it is a folder");
  const std::string folder =
      std::filesystem::path(AbsolutePath(path)).parent_path().generic_string();
  return ::access(folder.c_str(), W_OK | X_OK) == 0 ? "" : Refusal(path, Reason());
}

std::string WriteOutput(const std::string& path, std::string_view bytes) {
  if (path.empty()) {
    std::cout << bytes;  // the end of the program tells when that could not be written
    return "";
  }
  const std::string problem = IsSpecial(path) ? WriteToDevice(path, bytes)
                                              : LocalFileSystem().Write(AbsolutePath(path), bytes);
  return problem.empty() ? "" : Refusal(path, problem);
}

}  // namespace brindlemoor
