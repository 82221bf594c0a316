// Opponent files: a deck saved so that the game list finds it.
#pragma once

#include <string_view>

namespace brindlemoor {

/// Saves deck CurrentDeck as an opponent: the portrait of its player card under the given name, if
/// one is given, and every card for the draw pile. False when that failed, which a message box has
/// told.
bool WriteOpponentFile(std::string_view fileName, std::string_view name);

}  // namespace brindlemoor
