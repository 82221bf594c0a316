// Picture files of a folder: which they are, and one of them by chance.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// A folder with one separator behind it; "\" counts as one.
std::string WithSeparator(std::string_view folder);
/// The names of a folder's files, in the order of the file system; the folder ends in a separator.
std::vector<std::string> FilesIn(const std::string& folder);
/// True when a name matches a pattern with "*" for any characters and "?" for one, both folded.
bool MatchesPattern(std::string_view foldedName, std::string_view foldedPattern);
/// True for a name with one of the extensions that pictures have.
bool IsPictureName(std::string_view name);
/// Full names of a folder's pictures, pattern after pattern; the folder ends in a separator.
std::vector<std::string> PicturesIn(const std::string& folder);

/// A random file of a folder whose name matches a pattern ("*.jpg"), with the folder in front;
/// folder ends in a separator. "" when there is none. The names of the last folder are kept.
std::string PickRandomFile(const std::string& folder, std::string_view pattern);

}  // namespace brindlemoor
