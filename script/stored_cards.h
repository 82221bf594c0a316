// The player's own cards and piles as scripts change them: drawing, hands, boosters, stored twins.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// A stored record found by GlobalID: Pile -1 is Collection, 1 to 3 a deck, 0 not found.
struct OwnedCard {
  int Pile = 0;
  int Index = 0;
  Card* Record = nullptr;
};
OwnedCard FindOwnedCard(int globalId);

/// Draws up to count cards into the free places of the hand; a full hand draws none.
void DrawCards(PlayerState& player, double count);
/// Puts a copy into the hand (lost when it is full) and frees the card's slot. No ONDEATH.
void ReturnToHand(PlayerState& player, Card& card);

/// Into the first free element of the collection, else a new one at the end.
void AddToCollection(Card card);
/// The same for one of the decks, 1 to 3.
void AddToDeck(const Card& card, int deckNo);

/// Queues count copies of a card of a card file (by UniqueID or name) for an owner.
void CreateCards(std::string_view name, std::string_view path, int owner, double count);

}  // namespace brindlemoor
