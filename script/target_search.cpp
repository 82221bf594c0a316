// The search for a target: the action is tried on copies of every card that its masks let through.
#include "script/target_search.h"

#include <vector>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "script/action_trace.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

int OneOf(const std::vector<int>& slots) {
  return slots[static_cast<std::size_t>(RollDie(static_cast<double>(slots.size()))) - 1];
}

}  // namespace

int SearchTarget(const Card& source, int effectIndex, int targetType, const Text& script,
                 int& quality) {
  Session& session = State();
  const Pile& table = session.CardTable;
  const CardEffect effect = source.Effects[effectIndex];
  Answer answer;
  const RunOptions options{
      .TestRun = 1, .Nested = 1, .ScriptOverride = script, .AnswerTo = &answer};
  // Made once: a copy into a record that holds nearly the same costs little.
  Card actor;
  Card target;
  std::vector<int> clean;
  std::vector<int> partial;
  TracedSearch search(source, effectIndex);
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (StopsForWork(source)) {
      if (session.Trace != nullptr) [[unlikely]] {
        session.Trace->Note(Obstacle::kBudget, kStepsAreSpent);
      }
      return 0;
    }
    const Card& candidate = table[slot];
    if (IsFree(candidate) || candidate.InPlay == 0) continue;
    SpendWork(1);
    if (IsOnWrongSide(targetType, source, candidate)) {
      if (session.Trace != nullptr) [[unlikely]] {
        session.Trace->Note(Obstacle::kFilter, "it is on the wrong side", &candidate);
      }
      continue;
    }
    if (script.empty() && MasksEndTest(effect, source, candidate)) continue;
    actor = source;
    target = candidate;
    const int result = RunAction(actor, target, effectIndex, options);
    session.CancelState = 0;  // a reaction of the candidate may have left it
    if (answer.SourceFails) return 0;
    if (result == kRunClean) clean.push_back(slot);
    if (result == kRunMixed) partial.push_back(slot);
  }
  if (clean.empty() && partial.empty()) return 0;
  search.FoundOne();
  quality = clean.empty() ? kPartialTarget : kCleanTarget;
  return OneOf(clean.empty() ? partial : clean);
}

}  // namespace brindlemoor
