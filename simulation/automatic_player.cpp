// The automatic player for side 1: it judges its hand as the computer opponent judges its own.
#include "simulation/automatic_player.h"

#include "core/mind_levels.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/hints.h"
#include "game/planned_turn.h"
#include "language/target_types.h"

namespace brindlemoor {

TurnPlan PlainPlan(int side) {
  const WorkAccount account;
  TurnPlan plan;
  for (const HandValue& play : HandValues(side)) {
    if (play.IsWorthPlaying()) plan.Plays.push_back({play.Position});
  }
  for (PlannedAction action : OpenActions(side)) {
    Card& card = State().CardTable[action.Slot];
    const auto target = ChooseMenuAction(card, action.Effect);
    if (!target) continue;
    if (card.Effects[action.Effect].TargetType == kTargetCard) action.Target = *target;
    plan.Actions.push_back(action);
  }
  return plan;
}

void PlanAutomaticPlays() { LineUp(PlainPlan(1)); }

void PlanPlayerTurn() {
  const Session& session = State();
  if (session.ThinkOfTurn != nullptr && session.Minds[1] != kPlainMind) {
    if (const auto plan = session.ThinkOfTurn(1)) return LineUp(*plan);
  }
  PlanAutomaticPlays();
}

}  // namespace brindlemoor
