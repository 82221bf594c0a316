// Player files and the end of a game.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Tokens of a player who has no stored file yet.
inline constexpr int kFirstTokens = 500;

/// Reads a player file for side 1. What is wrong in it would be gone with the next save: then a
/// copy of the file is kept beside it, and a message says so. False for a file that is there and
/// can't be read to its end, which a message says: nothing has changed, and nothing must be saved
/// over it.
bool ReadPlayerFile(std::string_view fileName);

/// Takes all cards, decks and their names from the player in memory. No file loses them.
void OwnNothing();

/// Ends the game in progress: saves the player, hides the hand, "End Game" on the main button.
void EndGame();

}  // namespace brindlemoor
