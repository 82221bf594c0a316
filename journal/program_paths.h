// Whether a path lies in the program's folder, and how a journal names it.
#pragma once

#include <string>

namespace brindlemoor {

/// How a journal names a path (absolute): the part behind the program's folder for what lies in it,
/// "" for the folder itself, else the path without detours.
std::string JournalName(const std::string& folder, const std::string& path);

/// True for a name of something outside of the program's folder.
inline bool IsOutside(const std::string& name) { return name.starts_with('/'); }

}  // namespace brindlemoor
