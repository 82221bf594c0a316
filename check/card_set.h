// CardSet: the card files of a game under check, what they define, and the files beside them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/checked_file.h"

namespace brindlemoor {

/// Names of cards and their unique IDs that a file defines.
struct DefinedCards {
  std::unordered_set<std::string> Names;
  std::unordered_set<std::string> UniqueIds;
};

/// Files are looked up by their last component, without regard to case, in the program's folder,
/// its parent and its direct subfolders.
class CardSet {
 public:
  /// Lists the files beside the program's folder once.
  CardSet();

  /// Reads a file (absolute path) that findings call shownPath. False when it can't be read.
  bool Add(const std::string& path, const std::string& shownPath);
  const std::vector<CheckedFile>& Files() const { return files_; }

  /// True when there is a file of this name.
  bool HasFile(std::string_view reference) const;
  /// The cards that a file defines; nullptr when it is not there. Such a file need not be under
  /// check.
  const DefinedCards* CardsOf(std::string_view reference);

 private:
  void ListFolder(const std::string& folder);

  std::vector<CheckedFile> files_;
  std::unordered_map<std::string, std::string> paths_;  ///< by folded name
  std::map<std::string, std::optional<DefinedCards>> defined_;
};

}  // namespace brindlemoor
