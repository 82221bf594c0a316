// CardSet: the card files of a game under check, what they define, and the files beside them.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/checked_file.h"

namespace brindlemoor {

/// Who looks for a card of a file, and so where in it the card may stand.
enum class CardUse : std::uint8_t {
  kReference,  ///< a #REF… line: in the draw pile
  kModel,      ///< CREATECARD: there, or where a location can be replaced; by unique ID as well
  kSource,     ///< a card that is brought up to date: anywhere, by unique ID as well
  kCount
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
  /// True when a file, or one that it includes, has the card. The file need not be under check.
  bool HasCard(std::string_view reference, std::string_view card, CardUse use);
  /// The card of the file that was most likely meant, "" for none.
  std::string NearestCard(std::string_view reference, std::string_view card, CardUse use);

 private:
  using Names = std::set<std::string, std::less<>>;
  struct IncludedFile {
    std::string Reference;
    bool ToDrawPile;  ///< the cards' locations are replaced by the draw pile
  };
  struct FileCards {
    std::array<Names, static_cast<std::size_t>(CardUse::kCount)> ByUse;
    std::vector<IncludedFile> Includes;
  };
  /// Visits the cards of a file and of those that it includes until the visitor is content.
  using Visitor = std::function<bool(const Names& names)>;
  bool Visit(std::string_view reference, CardUse use, const Visitor& visitor, Names& visited);

  void ListFolder(const std::string& folder);
  const FileCards& CardsOf(const std::string& name);
  static FileCards CardsIn(const CheckedFile& file);

  std::vector<CheckedFile> files_;
  std::unordered_map<std::string, std::string> paths_;  ///< by folded name
  std::map<std::string, FileCards> cards_;              ///< by folded name
};

}  // namespace brindlemoor
