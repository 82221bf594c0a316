// The deck manager as a match start needs it.
#pragma once

namespace brindlemoor {

/// Lets the player choose and change decks; returns when a deck was chosen.
void ShowDeckManager();

}  // namespace brindlemoor
