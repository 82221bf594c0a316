// Opening the card editor.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Shows the card editor in place of the main window.
void OpenCardEditor();

/// Lets the player choose another image for one owned card.
void EditCardImage(Card& card);

}  // namespace brindlemoor
