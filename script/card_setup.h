// Making card and player records, their side and their actions.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Prepares a record in place: one free action and trait, a new GlobalID, colour "#FFFFFF".
void InitCard(Card& card, int owner, int inPlay);

/// A player state with one free element in Deck and SparePile, kHandPositions in Hand, and its
/// number.
void InitPlayer(PlayerState& player, int number);

/// Adds an action in the first free record, or a new one, and builds its masks. With keepTrigger 0
/// a trigger "MENU:trigger:caption" is taken apart; with 1 it is stored whole.
void AddEffect(Card& card, const Text& script, int targetType, const Text& trigger, int keepTrigger,
               const Text& targetText);

/// Gives a card to a side: its owner and what follows from it, OwnerBit and the OwnerMask of its
/// actions. Owner 0 has the bit 4, 1 and 2 their number; others keep the bit that is there.
void SetOwner(Card& card, int owner);

}  // namespace brindlemoor
