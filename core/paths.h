// Finding files by name in the program's folder, its parent and its direct subfolders.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Cuts a path to its last component; "\" and "/" separate. The walk stops at an empty component:
/// "a\\b" with two separators gives "a".
std::string& FileNameOnly(std::string& path);
std::string FileNameOf(std::string_view path);

/// Full path of a file reference, or "". Folders in the reference are dropped; the program's
/// folder is searched, then its parent, then its direct subfolders in name order. Where no folder
/// has the exact name, one that differs in case only is taken. With asUrl 1 the answer is a
/// "file://" URL as pages hold it.
std::string ResolvePath(std::string_view file, int asUrl);

/// False for a name that no file can have.
bool CanBeFileName(std::string_view name);

/// The path of a file of one folder; where the exact name is missing, of one that differs in case
/// only. "" for none.
std::string FileInFolder(const std::string& folder, std::string_view name);

/// The folder above one; that of "/" is itself.
std::string ParentFolder(std::string_view folder);

/// Makes the program's folder the current one.
void EnterProgramFolder();

/// A name as it is opened: relative ones lie in the current folder.
std::string InCurrentFolder(std::string_view file);

/// The path of a file of the program's folder.
std::string InProgramFolder(std::string_view file);

}  // namespace brindlemoor
