// PickTarget for the plain engine: every card is copied and tried, whatever the masks say.
#include <vector>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/run_action.h"
#include "script/target_types.h"
#include "script/triggers.h"
#include "script/values.h"

namespace brindlemoor {
namespace {

bool WrongSide(int targetType, const Card& source, const Card& candidate) {
  const bool same = source.Owner == candidate.Owner;
  return (targetType == kTargetRandomAlly && !same) || (targetType == kTargetRandomEnemy && same);
}

int PickByTest(const Card& source, int effectIndex, int targetType, const Text& script,
               int& quality) {
  Session& session = State();
  const RunOptions options{.TestRun = 1, .Nested = 1, .ScriptOverride = script};
  std::vector<int> clean;
  std::vector<int> partial;
  for (int slot = 1; slot <= session.CardTable.UpperBound(); ++slot) {
    Card target = session.CardTable[slot];
    Card actor = source;
    if (IsFree(target) || target.InPlay == 0 || WrongSide(targetType, actor, target)) continue;
    const int result = RunAction(actor, target, effectIndex, options);
    if (session.CancelState != 0) {
      session.CancelState = 0;
      return 0;
    }
    if (result == kRunClean) clean.push_back(slot);
    if (result == kRunMixed) partial.push_back(slot);
  }
  const std::vector<int>& best = clean.empty() ? partial : clean;
  if (best.empty()) return 0;
  quality = clean.empty() ? kPartialTarget : kCleanTarget;
  return best[static_cast<std::size_t>(RollDie(static_cast<double>(best.size()))) - 1];
}

}  // namespace

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
      return PickByTest(source, effectIndex, targetType, script, quality);
  }
}

}  // namespace brindlemoor
