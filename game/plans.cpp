// What the player's clicks have lined up, and forgetting it.
#include "game/plans.h"

#include "core/state.h"
#include "script/triggers.h"
#include "text/one_line.h"

namespace brindlemoor {

bool IsAtTable() { return State().CurrentGame != 0 || State().TestFromEditor == 1; }

bool HasTurnToPlan() { return IsAtTable() && State().GameOver == 0; }

void ForgetQueuedPlays() {
  Session& session = State();
  session.PlayQueue = {};
  session.PlayTarget = {};
  session.AwaitingPlayTarget = 0;
}

void AwaitPlayTarget(int queueEntry) {
  Session& session = State();
  Pile& hand = session.Players[1].Hand;
  const int position = session.PlayQueue[queueEntry];
  if (hand.Holds(position)) hand[position].TargetSlot = hand[position].StoredTarget = 0;
  session.PlayTarget[queueEntry] = 0;
  session.AwaitingPlayTarget = static_cast<std::uint8_t>(queueEntry);
  ForgetSelection();
}

void AwaitMenuTarget(int slot, int effect) {
  Session& session = State();
  CardEffect& action = session.CardTable[slot].Effects.Edit(effect);
  action.MenuState = kMenuAction;
  action.ChosenTarget = 0;
  session.AwaitingMenuTarget = 1;
  session.SelectedSlot = static_cast<std::int16_t>(slot);
  session.MenuEffect = static_cast<std::uint8_t>(effect);
}

std::string WaitingMenuAction() {
  const Session& session = State();
  if (session.AwaitingMenuTarget == 0 || !session.CardTable.Holds(session.SelectedSlot)) return "";
  const Card& card = session.CardTable[session.SelectedSlot];
  if (!card.Effects.Holds(session.MenuEffect)) return "";
  return Joined(OneLine(card.Name), ": ", OneLine(card.Effects[session.MenuEffect].MenuCaption));
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
