// Forgetting what the player's clicks have lined up.
#include "game/plans.h"

#include "core/state.h"
#include "script/triggers.h"

namespace brindlemoor {

void ForgetQueuedPlays() {
  Session& session = State();
  session.PlayQueue = {};
  session.PlayTarget = {};
  session.AwaitingPlayTarget = 0;
}

void ForgetSelection() {
  Session& session = State();
  session.SelectedSlot = 0;
  session.AwaitingMenuTarget = 0;
}

void ForgetPlans() {
  ForgetQueuedPlays();
  ForgetSelection();
  for (Card& card : State().CardTable) ResetMenuState(card);
}

}  // namespace brindlemoor
