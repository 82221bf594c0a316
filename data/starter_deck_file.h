// Starter deck files: a deck saved so that other players can get its cards.
#pragma once

#include <string_view>

namespace brindlemoor {

/// Saves deck CurrentDeck as a starter deck: a file that the game list shows under a name and that
/// gives the player every card of the deck when it is opened. False when that failed, which a
/// message box has told.
bool WriteStarterDeckFile(std::string_view fileName, std::string_view deckName);

}  // namespace brindlemoor
