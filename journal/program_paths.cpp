// Names of files in a journal.
#include "journal/program_paths.h"

#include <filesystem>

namespace brindlemoor {

std::string JournalName(const std::string& folder, const std::string& path) {
  const bool hasDetours = path.find("/.") != path.npos || path.find("//") != path.npos;
  std::string whole =
      hasDetours ? std::filesystem::path(path).lexically_normal().generic_string() : path;
  while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
  if (whole == folder) return "";
  const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
  if (whole.starts_with(prefix)) return whole.substr(prefix.size());
  return whole.starts_with('/') ? whole : '/' + whole;
}

}  // namespace brindlemoor
