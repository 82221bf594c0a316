// Where a scenario's cards lie: the piles by their words, and looking a card up.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

struct Scene;

struct PlaceRow {
  std::string_view Word;
  bool HasSide;  ///< each side has one
  Pile& (*Of)(Scene& scene, int side);
  std::string_view Meaning;
};
std::span<const PlaceRow> PlaceRows();
/// nullptr for an unknown word.
const PlaceRow* FindPlace(std::string_view word);

/// A card and where it lies. The place is nullptr for the rules card and for scratch copies.
struct PlacedCard {
  Card* Record = nullptr;
  const PlaceRow* Place = nullptr;
  int Side = 0;
  int Index = 0;
};

/// The living card that a reference names: the name that a scenario gave it, "rules", "cost",
/// "slot:NUMBER", "gid:NUMBER", "copy:NAME" (the scratch copy of the last test run), or the name
/// that stands on it. Record is nullptr when there is none.
PlacedCard FindScenarioCard(Scene& scene, std::string_view reference);

/// Puts a card into a pile: the first free place, else one at the end; into a draw pile always at
/// the end. nullptr when there is no room.
Card* PutIntoPlace(Scene& scene, const PlaceRow& place, int side, Card card);

/// Names of a pile's cards in order, joined by blanks.
std::string NamesOf(const Pile& pile);

}  // namespace brindlemoor
