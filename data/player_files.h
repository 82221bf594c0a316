// Player files and the end of a game.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Name of the player file of the current profile for a game: "Ann_Goblins.plr".
std::string PlayerFileName(int gameIndex);

/// Saves the player's cards, decks and tokens and the profile list. Nothing in debug mode, and
/// nothing when the player owns no card.
void WritePlayerFile(std::string_view fileName);

/// Ends the game in progress: saves the player, hides the hand, "End Game" on the main button.
void EndGame();

}  // namespace brindlemoor
