// From a click on an opponent's portrait to the first turn.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Starts the match, starter deck or card store of an opponent. Numbers outside the list are
/// ignored.
void ChooseGame(int gameIndex, int opponentIndex);

/// Refreshes the decks, brings starting cards into the table and fires GAMESTART.
void BeginGame();

/// The second part of it: brings starting cards into the table and fires GAMESTART.
void BringInStartingCards();

/// A player's draw pile becomes a shuffled copy of a deck, 1 to 3.
void LoadDeckIntoPlayer(PlayerState& player, int deckNumber);

/// Reads the rules of a game and one of its opponents for side 2. False when one of the files has
/// vanished; then none was read.
bool ReadMatchFiles(int gameIndex, int opponentIndex);

}  // namespace brindlemoor
