// The automatic player for side 1: it judges its hand as the computer opponent judges its own.
#include "simulation/automatic_player.h"

#include "core/cards.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "game/card_play.h"
#include "game/hints.h"
#include "game/planned_turn.h"
#include "game/plans.h"
#include "language/target_types.h"

namespace brindlemoor {

namespace {

void QueueWorthyCards() {
  Session& session = State();
  ForgetQueuedPlays();
  int queued = 0;
  for (const HandValue& play : HandValues()) {
    if (queued == session.PlayQueue.UpperBound()) return;
    if (!play.IsWorthPlaying()) continue;
    session.PlayQueue[++queued] = static_cast<std::uint8_t>(play.Position);
  }
}

void ArmMenuActions(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    const int type = card.Effects[effect].TargetType;
    // An action on a stored card needs a pick in the deck manager.
    if (card.Effects[effect].MenuState != kMenuAction || type == kTargetCollection) continue;
    const auto target = ChooseMenuAction(card, effect);
    if (!target) continue;
    CardEffect& action = card.Effects.Edit(effect);
    action.MenuState = kArmedMenuAction;
    if (type == kTargetCard) action.ChosenTarget = *target;
  }
}

}  // namespace

void PlanAutomaticPlays() {
  const WorkAccount account;
  QueueWorthyCards();
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (!IsFree(table[slot]) && table[slot].Owner == 1) ArmMenuActions(table[slot]);
  }
}

void PlanPlayerTurn() {
  const Session& session = State();
  if (session.ThinkOfTurn != nullptr && session.Minds[1] != kPlainMind) {
    if (const auto plan = session.ThinkOfTurn(1)) return LineUp(*plan);
  }
  PlanAutomaticPlays();
}

}  // namespace brindlemoor
