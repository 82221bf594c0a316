// What a side at the table does not see: the other side's hand and pile, the own pile's order and
// what the other side has lined up. Which cards they are together is no secret: a player has seen
// the deck.
#pragma once

namespace brindlemoor {

/// Brings what a side, 1 or 2, does not see into an order that tells nothing of how it lies:
/// sessions that differ in hidden things alone become the same session, but for the random source.
void ForgetHiddenCards(int side);

/// Deals what was forgotten anew, by the session's random source.
void DealHiddenCards(int side);

}  // namespace brindlemoor
