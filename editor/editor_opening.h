// The way between the main window, the deck manager and the card editor.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Shows the card editor in place of the main window. The game that goes on and what the player
/// owns are kept aside until the editor is left.
void OpenCardEditor();

/// Lets the player choose another image for one owned card, in the editor's reduced form.
void EditCardImage(Card& card);

/// The editor has been closed: the main window comes back, with the game as it was.
void LeaveCardEditor();

/// Lets the author lay out a test position from the cards of the editor, in the deck manager.
void BeginTestCards();

/// Ends a test game, or the laying out of its position: the editor comes back with its cards as
/// they were, those that are not saved included.
void BackToCardEditor();

/// Lets the author build an opponent's deck from the cards of the editor, in the deck manager.
void BuildOpponent();

}  // namespace brindlemoor
