// Opening the card editor: this version has none, and says so.
#include "ui/card_editor.h"

#include "platform/platform.h"

namespace brindlemoor {

void OpenCardEditor() { Desktop().MessageBox("The card editor comes with a later version."); }

void EditCardImage(Card& /*card*/) { OpenCardEditor(); }

}  // namespace brindlemoor
