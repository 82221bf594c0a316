// The card editor as the windows of a match see it.
#include "editor/program_session.h"

#include <utility>

#include "core/state.h"
#include "editor/editor_opening.h"
#include "mind/turn_thinking.h"
#include "simulation/opponent_trial.h"
#include "ui/editor_door.h"
#include "ui/window_session.h"

namespace brindlemoor {

namespace {

constexpr EditorDoor kDoor = {OpenCardEditor, EditCardImage, BackToCardEditor};

}  // namespace

void OpenProgramSession(std::shared_ptr<Platform> desktop, std::string folder) {
  OpenWindowSession(std::move(desktop), std::move(folder));
  State().Editor = &kDoor;
  State().TryOpponent = TryOpponent;
  State().ThinkOfTurn = ThinkOfTurn;
}

}  // namespace brindlemoor
