// Helpers for tests of actions: giving cards actions and reading back whom they hit.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_setup.h"

namespace brindlemoor {

/// The table of a test: for (const auto& [script, result] : Rows<const char*, int>{...}).
template <class... Fields>
using Rows = std::vector<std::tuple<Fields...>>;

/// Adds an action and returns its number.
inline int GiveAction(Card& card, std::string_view trigger, std::string_view target,
                      std::string_view script) {
  AddEffect(card, script, TargetTypeCode(target), trigger, 0, target);
  for (int effect = card.Effects.UpperBound(); effect >= 1; --effect) {
    if (card.Effects[effect].Script == script) return effect;
  }
  return 0;
}

/// Names of the table cards that have a trait, in table order, joined by blanks.
inline std::string NamesWith(std::string_view trait) {
  std::string names;
  for (const Card& card : State().CardTable) {
    if (IsFree(card) || !HasTrait(card, trait)) continue;
    names += (names.empty() ? "" : " ") + card.Name.Str();
  }
  return names;
}

/// Everything of a card that a test of "no trace" compares, as one text.
inline std::string Dump(const Card& card) {
  std::string text = Joined(
      card.Name, "|", card.Picture, "|", card.Thumb, "|", card.Description, "|", card.NameColor,
      "|", card.ActivateOn, "|", card.EntryScripts, "|", card.ChangedTraits, "|", int{card.InPlay},
      "|", card.TargetSlot, "|", card.StoredTarget, "|", int{card.Owner}, "|", card.GlobalID, "|",
      int{card.TraitActionsApplied}, "|", card.OwnerBit, "|", card.Slot, "\n");
  for (int word = 1; word <= TraitWords::kWords; ++word) {
    text += Joined(card.TraitBits[word], " ");
  }
  for (const Text& trait : card.Traits) text += Joined("[", trait, "]");
  for (const Text& caption : card.TraitCaptions) text += Joined("(", caption, ")");
  for (const CardEffect& effect : card.Effects) {
    text += Joined("\n", effect.Trigger, "|", effect.TargetType, "|", effect.TargetText, "|",
                   effect.Script, "|", int{effect.MenuState}, "|", effect.MenuCaption, "|",
                   effect.ChosenTarget, "|", effect.OwnerMask, "|", int{effect.PickedPile});
  }
  return text + "\n";
}

inline std::string Dump(const Pile& pile) {
  std::string text = Joined("cards ", pile.UpperBound(), "\n");
  for (const Card& card : pile) text += Dump(card);
  return text;
}

}  // namespace brindlemoor
