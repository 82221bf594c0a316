// Forgetting what the player's clicks have lined up.
#include "game/plans.h"

#include "core/state.h"

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
  for (Card& card : State().CardTable) {
    for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
      if (card.Effects[effect].MenuState != kArmedMenuAction) continue;
      card.Effects.Edit(effect).MenuState = kMenuAction;
    }
  }
}

}  // namespace brindlemoor
