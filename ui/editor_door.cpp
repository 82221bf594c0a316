// The door to the card editor, and that of a session without one.
#include "ui/editor_door.h"

#include "core/state.h"

namespace brindlemoor {

const EditorDoor kNoEditor = {
    .OpenCardEditor = [] {},
    .EditCardImage = [](Card& /*card*/) {},
    .BackToCardEditor = [] {},
};

const EditorDoor& TheEditorDoor() { return *State().Editor; }

}  // namespace brindlemoor
