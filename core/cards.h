// Making card and player records, the way of a card into the table, and looking cards up.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Prepares a record in place: one free action and trait, a new GlobalID, colour "#FFFFFF".
void InitCard(Card& card, int owner, int inPlay);

/// A player state with one free element in Deck and SparePile, ten in Hand, and its number.
void InitPlayer(PlayerState& player, int number);

/// Copies a card into the first free slot, or a new one, runs its entry scripts and lets it enter
/// play, unless it waits for its ActivateOn trigger. Returns the slot, 0 for a card without a name
/// or a full table.
int AddToTable(const Card& card);

/// Slot of the first table card whose GlobalID is the number that the text begins with, else 0.
int FindSlot(std::string_view globalId);
int FindSlot(double globalId);

/// Index in Collection of the first card with that GlobalID, else 0.
int FindInCollection(double globalId);

/// A copy of the first card of StartDeck with that name, an empty record if there is none. Looks at
/// the positions that Deck has.
Card FindInStartDeck(const PlayerState& player, std::string_view name);

/// Adds an action in the first free record, or a new one, and builds its masks. With keepTrigger 0
/// a trigger "MENU:trigger:caption" is taken apart; with 1 it is stored whole.
void AddEffect(Card& card, const Text& script, int targetType, const Text& trigger, int keepTrigger,
               const Text& targetText);

/// A card's actions were there before whatever runs now: its next trigger runs them.
void CountActionsAsOld(Card& card);

/// Lets a copy of the card wait for the next FlushPending.
void QueuePending(const Card& card);

/// Brings the waiting cards into the table. Cards queued meanwhile wait for the next flush.
void FlushPending();

/// True when a pile holds a card with a name.
bool HoldsCards(const Pile& pile);

/// Exchanges every record of a pile with a random one of the whole pile.
void ShuffleCards(Pile& pile);

/// Brings a free element of a draw pile to position 1, which is never drawn; where there is none,
/// one is made.
void PutFreeElementFirst(Pile& pile);

/// What the store pays for a card: Rarity / 10, rounded down, plus 1.
int SellValue(const Card& card);

/// The player card of the card's owner; nullptr for owner 0 or a side without one.
Card* OwnerCard(const Card& card);

/// Frees a record: its Name becomes empty.
inline void FreeCard(Card& card) { card.Name = Text(); }
inline bool IsFree(const Card& card) { return card.Name.empty(); }

/// Gives a card to a side: its owner and what follows from it, OwnerBit and the OwnerMask of its
/// actions. Owner 0 has the bit 4, 1 and 2 their number; others keep the bit that is there.
void SetOwner(Card& card, int owner);

}  // namespace brindlemoor
