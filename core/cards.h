// Looking cards up, and what is done with records and piles without running a script.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Slot of the first table card whose GlobalID is the number that the text begins with, else 0.
int FindSlot(std::string_view globalId);
int FindSlot(double globalId);

/// Index in Collection of the first card with that GlobalID, else 0.
int FindInCollection(double globalId);

/// A copy of the first card of StartDeck with that name, an empty record if there is none. Looks at
/// the positions that Deck has.
Card FindInStartDeck(const PlayerState& player, std::string_view name);

/// A card's actions were there before whatever runs now: its next trigger runs them.
void CountActionsAsOld(Card& card);

/// Lets a copy of the card wait for the next FlushPending.
void QueuePending(const Card& card);

/// True when a pile holds a card with a name.
bool HoldsCards(const Pile& pile);

/// Index of the first named card with a GlobalID, 0 if there is none.
int FindById(const Pile& pile, double globalId);

/// Exchanges every record of a pile with a random one of the whole pile.
void ShuffleCards(Pile& pile);

/// Brings a free element of a draw pile to position 1, which is never drawn; where there is none,
/// one is made.
void PutFreeElementFirst(Pile& pile);

/// The name of a deck that the player has not named: "Deck #1".
std::string DefaultDeckName(int deck);

/// What the store pays for a card: Rarity / 10, rounded down, plus 1.
int SellValue(const Card& card);

/// The player card of the card's owner; nullptr for owner 0 or a side without one.
Card* OwnerCard(const Card& card);

/// Frees a record: its Name becomes empty.
inline void FreeCard(Card& card) { card.Name = Text(); }
inline bool IsFree(const Card& card) { return card.Name.empty(); }

}  // namespace brindlemoor
