// Sorting and compacting piles of cards.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Sorts a whole pile, stably. "NAME" sorts by name upwards, "EMPTY" brings the filled records to
/// the front, "TRAIT:x" sorts by the value of the trait x downwards, any other word by the numeric
/// value of the trait of that name downwards. Cards without the name or trait go to the end.
void SortCards(Pile& pile, std::string_view spec);

/// Takes the free records out of Collection, unless it holds no card at all.
void CompactCollection();

/// After a card has left a pile: sorts each deck by name and cuts off its free records (one stays
/// in a deck without cards); in Collection the gap moves to the end.
void TidyDecks();

/// Sorts a deck, 1 to 3, by name.
void SortDeck(int deckNumber);
/// Sorts Collection by name and compacts it.
void SortCollection();
/// Sorts Collection by a trait; cards of equal value stay in the order of their names.
void SortCollectionByTrait(std::string_view trait);

}  // namespace brindlemoor
