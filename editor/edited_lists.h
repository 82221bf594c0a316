// EditedLists: the cards, templates and trait names that the editor's lists offer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// State().Collection, Templates and CommonTraits while one card after the other is edited.
class EditedLists {
 public:
  using Names = std::vector<std::string>;

  bool NamesAreOld = false;  ///< what shows the cards shows a name that one no longer has
  bool Changed = false;      ///< since the file was saved, the edited card left aside

  /// Where the edited card lies in Collection; 0 for a card of no list.
  int Place() const { return place_; }
  bool HoldsEdited() const;
  /// The card of a place is edited from now on, or with 0 one of no list. Returns the place before.
  int Edit(int place);
  /// Puts the edited card into its place.
  void Store(Card card);
  /// Collection was sorted or read anew: finds the edited card in it again, by what was stored.
  void FindEdited();
  /// The file as a save would write it now, with the edited card as it is made; a named one of no
  /// list comes last. write writes what lies in the session then, which stays as it is.
  std::string FileText(const std::function<Card()>& makeEdited,
                       const std::function<std::string()>& write) const;

  /// The place of the card that was added; 0, after a message, when the list is full.
  static int AddCard(Card card);
  /// In the place of the template of the same name, or in a free one.
  static void KeepTemplate(const Template& kept);
  /// Those of all cards, as long as there is room.
  static void AddCommonTraits();

  static Names CardNames();
  static Names TemplateNames();  ///< behind an item for no template
  static Names TraitNames();

 private:
  int place_ = 0;
  std::int32_t storedGlobalId_ = 0;  // of the card as it lies in its place
};

/// A name and a number behind it. Many are tried for one that no card of the list has.
Text NewUniqueID(std::string_view name);

}  // namespace brindlemoor
