// The calls by which folders of the machine are made, renamed and removed.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace brindlemoor {

/// Makes a folder, with those above it that are missing. "" or what went wrong; one that is there
/// is made already.
std::string MakeFolder(const std::string& path);

/// Gives a file or folder another name, in one step. A file of that name is replaced by a file. ""
/// or what went wrong; a folder of that name that is not empty stays as it is.
std::string RenameEntry(const std::string& from, const std::string& to);

/// Removes a folder with all that is in it; links in it go alone. "" or what went wrong; a folder
/// that is not there is removed already.
std::string RemoveFolder(const std::string& path);

/// Removes a folder in which nothing is left. "" or what went wrong.
std::string RemoveEmptyFolder(const std::string& path);

/// How long ago a file was written; nothing where it can't be told.
std::optional<std::chrono::seconds> AgeOfFile(const std::string& path);

}  // namespace brindlemoor
