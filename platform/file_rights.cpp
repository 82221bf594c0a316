// Rights of files by the standard library.
#include "platform/file_rights.h"

#include <filesystem>
#include <system_error>

namespace brindlemoor {

namespace fs = std::filesystem;

bool IsWriteProtected(const std::string& path) {
  std::error_code failure;
  const fs::perms rights = fs::status(path, failure).permissions();
  return !failure && (rights & fs::perms::owner_write) == fs::perms::none;
}

}  // namespace brindlemoor
