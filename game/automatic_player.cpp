// The simplest automatic player for side 1: it queues what it can pay.
#include "game/automatic_player.h"

#include "core/cards.h"
#include "core/state.h"
#include "game/card_play.h"
#include "script/target_types.h"
#include "script/triggers.h"

namespace brindlemoor {

namespace {

void QueuePayableCards() {
  Session& session = State();
  const Pile& hand = session.Players[1].Hand;
  session.PlayQueue = {};
  session.PlayTarget = {};
  int queued = 0;
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (queued == session.PlayQueue.UpperBound()) return;
    if (IsFree(hand[position]) || PayCost(hand[position], 1) != -1) continue;
    session.PlayQueue[++queued] = static_cast<std::uint8_t>(position);
  }
}

void ArmMenuActions(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    const int type = card.Effects[effect].TargetType;
    // An action on a stored card needs a pick in the deck manager.
    if (card.Effects[effect].MenuState != kMenuAction || type == kTargetCollection) continue;
    int quality = kNoTarget;
    const int target = PickTarget(card, effect, type, "", quality);
    if (quality != kCleanTarget) continue;
    CardEffect& action = card.Effects.Edit(effect);
    action.MenuState = kArmedMenuAction;
    if (type == kTargetCard) action.ChosenTarget = target;
  }
}

}  // namespace

void PlanAutomaticPlays() {
  QueuePayableCards();
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (!IsFree(table[slot]) && table[slot].Owner == 1) ArmMenuActions(table[slot]);
  }
}

}  // namespace brindlemoor
