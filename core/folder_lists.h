// FolderLists: what folders hold, listed once while an account of work lasts.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlemoor {

/// The files and subfolders of one folder, by name.
class ListedFolder {
 public:
  explicit ListedFolder(std::vector<std::string> files);

  const std::vector<std::string>& Files() const { return files_; }
  /// The files whose names fold like this one, in name order.
  std::vector<std::string_view> FilesLike(std::string_view name) const;

 private:
  std::vector<std::string> files_;
  std::vector<std::pair<std::uint64_t, std::uint32_t>> byFold_;  ///< hash of the folded name, index
};

/// The lists that a session keeps. A folder of strangers can hold so many files that listing it for
/// each picture that is missing would never end.
class FolderLists {
 public:
  const ListedFolder& FilesOf(const std::string& folder);
  const std::vector<std::string>& SubfoldersOf(const std::string& folder);
  void Forget();

 private:
  std::map<std::string, ListedFolder> files_;
  std::map<std::string, std::vector<std::string>> subfolders_;
};

/// The lists of the session: kept while there is an account, made anew without one. Each listing
/// counts on the account; once it is spent, folders that are not listed yet seem empty.
FolderLists& Folders();

}  // namespace brindlemoor
