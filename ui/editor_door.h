// The door from the windows of a match to the card editor.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// A row of calls that a session is given when it is opened: by the editor, or kNoEditor.
struct EditorDoor {
  /// Shows the card editor in place of the main window, or leads back to it from a test game.
  void (*OpenCardEditor)();
  /// Lets the player choose another image for one owned card.
  void (*EditCardImage)(Card& card);
  /// Ends a test game, or the laying out of its position.
  void (*BackToCardEditor)();
};

/// That of a session without an editor: it does not open.
extern const EditorDoor kNoEditor;

/// That of the session.
const EditorDoor& TheEditorDoor();

}  // namespace brindlemoor
