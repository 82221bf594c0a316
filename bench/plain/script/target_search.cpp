// The search for a target in the plain engine: every card is copied and tried, whatever the masks
// say.
#include "script/target_search.h"

#include <vector>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {

int SearchTarget(const Card& source, int effectIndex, int targetType, const Text& script,
                 int& quality) {
  Session& session = State();
  std::vector<int> clean;
  std::vector<int> partial;
  for (int slot = 1; slot <= session.CardTable.UpperBound(); ++slot) {
    if (StopsForWork(source)) return 0;
    if (IsFree(session.CardTable[slot]) || session.CardTable[slot].InPlay == 0) continue;
    SpendWork(1);
    Card actor = source;
    Card target = session.CardTable[slot];
    if (IsOnWrongSide(targetType, actor, target)) continue;
    Answer answer;
    const int result = RunAction(
        actor, target, effectIndex,
        RunOptions{.TestRun = 1, .Nested = 1, .ScriptOverride = script, .AnswerTo = &answer});
    session.CancelState = 0;
    if (answer.SourceFails) return 0;
    if (result == kRunClean) clean.push_back(slot);
    if (result == kRunMixed) partial.push_back(slot);
  }
  const std::vector<int>& best = clean.empty() ? partial : clean;
  if (best.empty()) return 0;
  quality = clean.empty() ? kPartialTarget : kCleanTarget;
  return best[static_cast<std::size_t>(RollDie(static_cast<double>(best.size()))) - 1];
}

}  // namespace brindlemoor
