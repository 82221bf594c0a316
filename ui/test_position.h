// The test position: a table that the card editor's user set up.
#pragma once

namespace brindlemoor {

/// Lays the three decks out as a game in progress (deck 1 hand and draw pile of the player, deck 2
/// and deck 3 the cards in play of both sides), takes a turn without card plays and shows the main
/// window in place of the deck manager. Asks for the rules file when the card set names none; when
/// that is cancelled nothing changes.
void StartTestPosition();

}  // namespace brindlemoor
