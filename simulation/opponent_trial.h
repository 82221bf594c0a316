// Trying an opponent of the list of games: the computer plays some matches with the player's deck.
#pragma once

#include "ui/opponent_trial.h"

namespace brindlemoor {

/// Plays an opponent of the list of games that is shown with the deck that the player would play,
/// or where there is none with the cards of the game's first starter deck. The work is bounded;
/// session and files are afterwards what they were. A function of the files and of what the player
/// owns.
TrialMatches TryOpponent(int gameIndex, int opponentIndex);

}  // namespace brindlemoor
