// The cost calculator: pricing a card by the rules of its game.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Runs every action of the cost card on a card, one after the other. What they do to the card is
/// the result; an action that fails a requirement ends only itself.
void CalculateCost(Card& card);

}  // namespace brindlemoor
