// Plans of a side, carried out by the rules that hold for everybody's cards.
#include "game/planned_turn.h"

#include <utility>

#include "core/cards.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/plans.h"
#include "language/target_types.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

void Arm(const PlannedAction& planned, int side) {
  Pile& table = State().CardTable;
  if (!table.Holds(planned.Slot)) return;
  Card& card = table[planned.Slot];
  if (IsFree(card) || card.Owner != side || !card.Effects.Holds(planned.Effect)) return;
  if (card.Effects[planned.Effect].MenuState != kMenuAction) return;
  CardEffect& action = card.Effects.Edit(planned.Effect);
  action.MenuState = kArmedMenuAction;
  action.ChosenTarget = planned.Target;
}

void ArmActions(const TurnPlan& plan, int side) {
  for (Card& card : State().CardTable) {
    if (!IsFree(card) && card.Owner == side) ResetMenuState(card);
  }
  for (const PlannedAction& planned : plan.Actions) Arm(planned, side);
}

}  // namespace

std::vector<PlannedAction> OpenActions(int side) {
  std::vector<PlannedAction> actions;
  const Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    const Card& card = table[slot];
    if (IsFree(card) || card.Owner != side) continue;
    for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
      // An action on a stored card needs a pick in the deck manager.
      const bool isOpen = card.Effects[effect].MenuState == kMenuAction &&
                          card.Effects[effect].TargetType != kTargetCollection;
      if (isOpen) actions.push_back({slot, effect});
    }
  }
  return actions;
}

void LineUp(const TurnPlan& plan) {
  Session& session = State();
  ForgetQueuedPlays();
  int entry = 0;
  for (const PlannedPlay& play : plan.Plays) {
    const Pile& hand = session.Players[1].Hand;
    if (entry == session.PlayQueue.UpperBound()) break;
    if (!hand.Holds(play.Position) || IsFree(hand[play.Position])) continue;
    session.PlayQueue[++entry] = static_cast<std::uint8_t>(play.Position);
    session.PlayTarget[entry] = static_cast<std::int16_t>(play.Target);
  }
  ArmActions(plan, 1);
}

EnemyPlays PlayEnemyPlan(const TurnPlan& plan) {
  ArmActions(plan, 2);
  PlayCells cells;
  Pile& hand = State().Players[2].Hand;
  for (const PlannedPlay& play : plan.Plays) {
    if (!hand.Holds(play.Position) || IsFree(hand[play.Position])) continue;
    Card& card = hand[play.Position];
    if (!PayCost(card, Payment::kIsMade)) continue;
    if (play.Target > 0) card.TargetSlot = static_cast<std::int16_t>(play.Target);
    PlayCard(2, card, cells);
  }
  return {cells.Html(), ""};
}

bool EnemyThinks() {
  const Session& session = State();
  return session.ThinkOfTurn != nullptr && session.Minds[2] != kPlainMind && !session.Match.IsVisit;
}

std::optional<TurnPlan> TakeEnemyPlan() {
  Session& session = State();
  if (session.EnemyPlan) return std::exchange(session.EnemyPlan, std::nullopt);
  return EnemyThinks() ? session.ThinkOfTurn(2) : std::nullopt;
}

}  // namespace brindlemoor
