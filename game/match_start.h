// From a click on an opponent's portrait to the first turn.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Starts the match, starter deck or card store of an opponent. Numbers outside the list are
/// ignored.
void ChooseGame(int gameIndex, int opponentIndex);

/// Refreshes the decks, brings starting cards into the table and fires GAMESTART.
void BeginGame();

/// A player's draw pile becomes a shuffled copy of a deck, 1 to 3.
void LoadDeckIntoPlayer(PlayerState& player, int deckNumber);

}  // namespace brindlemoor
