// PickTarget: the card that a target type names, or one that a search finds.
#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "language/values.h"
#include "script/target_search.h"
#include "script/triggers.h"

namespace brindlemoor {

bool IsOnWrongSide(int targetType, const Card& source, const Card& candidate) {
  const bool same = source.Owner == candidate.Owner;
  return (targetType == kTargetRandomAlly && !same) || (targetType == kTargetRandomEnemy && same);
}

int PlayerCardOf(int owner) {
  return State().Players.Holds(owner) ? State().Players[owner].PlayerCard : 0;
}

int PickTarget(Card& source, int effectIndex, int targetType, const Text& script, int& quality) {
  quality = kNoTarget;
  switch (targetType) {
    case kTargetGidCard: {
      const Text targetText = source.Effects[effectIndex].TargetText;
      return FindSlot(EvalNumber(source, source, FieldAt(targetText, 2, ':')));
    }
    case kTargetSelf:
      return source.Slot;
    case kTargetOwner:
      return PlayerCardOf(source.Owner);
    case kTargetEnemyPlayer:
      return PlayerCardOf(source.Owner == 2 ? 1 : 2);
    default:
      return SearchTarget(source, effectIndex, targetType, script, quality);
  }
}

}  // namespace brindlemoor
