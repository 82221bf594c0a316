// Reactions: the scans for MYACTION and TARGETED actions, and the run of an action that was turned
// to another card.
#include "script/reactions.h"

#include <string_view>

#include "core/limits.h"
#include "core/state.h"
#include "language/target_types.h"
#include "script/action_trace.h"
#include "script/firing.h"
#include "script/run.h"
#include "script/run_epilogue.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kMyAction = "MYACTION";
constexpr std::string_view kTargeted = "TARGETED";

/// Runs a reaction on the target that it names.
void RunReaction(const Run& action, Card& actor, std::string_view trigger, int effect,
                 const RunOptions& options) {
  const int targetType = actor.Effects[effect].TargetType;
  if (targetType == kTargetAll) {
    FireTrigger(actor, trigger, -1, effect, 0, &options);
    return;
  }
  const TracedAction asking(actor, effect);
  BeginFiring();
  if (targetType == kTargetTriggeringCard) {
    RunAction(actor, action.Source, effect, options);
  } else {
    int quality = kNoTarget;
    const int slot = PickTarget(actor, effect, targetType, Text(), quality);
    Pile& table = State().CardTable;
    if (table.Holds(slot)) RunAction(actor, table[slot], effect, options);
    if (asking) [[unlikely]]
      asking->NoteIfNone(Obstacle::kNoTarget, "no card is there to act on");
  }
  if (actor.Effects[effect].MenuState == kArmedMenuAction) {
    actor.Effects.Edit(effect).MenuState = kMenuAction;
  }
}

/// Runs one reaction of the actor to the action. What it answers counts, and nothing that the runs
/// which it set going have left: the shared state begins clear for each reaction.
void React(const Run& action, Card& actor, std::string_view trigger, int effect) {
  Answer answer;
  {
    const OwnFiring reaction;
    RunReaction(
        action, actor, trigger, effect,
        RunOptions{
            .NoCounters = action.NoCounters, .IncomingScript = action.Script, .AnswerTo = &answer});
  }
  Session& session = State();
  session.CancelState = 0;
  session.RedirectTarget = 0;
  session.RedirectScript = Text();
  KeepAnswer(answer);
  if (answer.Cancels && action.Trace != nullptr) [[unlikely]] {
    action.Trace->Note(Obstacle::kCancelled, CanceledBy(actor, effect, answer.SourceFails));
  }
}

bool TurnedAway(const Run& action) {
  const int slot = State().RedirectTarget;
  return slot > 0 && slot != action.Target.Slot;
}

/// Lets the card's reactions run in order. Those that they add answer from the next action on.
void Scan(Session& session, const Run& action, Card& actor, std::string_view trigger,
          bool untilTurnedAway) {
  const int last = actor.Effects.UpperBound();
  session.Work.SpendOnSearch(static_cast<std::size_t>(last));
  if ((TriggerMarks(actor) & TriggerMark(trigger)) == 0) return;
  for (int effect = 1; effect <= last; ++effect) {
    if (!Answers(actor.Effects[effect], trigger)) continue;
    React(action, actor, trigger, effect);
    if (untilTurnedAway && TurnedAway(action)) return;
  }
}

/// Runs the action on the card that it was turned to. False when it has been turned too often: it
/// then stays where it is.
bool RunOnNewTarget(Run& action) {
  Session& session = State();
  const int slot = session.RedirectTarget;
  if (!session.CardTable.Holds(slot)) return false;
  if (session.RedirectDepth >= limits::kRedirects) {
    limits::ReportLimit(
        "Cards turn an action to one another without an end; it stays where it is.");
    return false;
  }
  Card& source = action.Source;
  if (source.Effects.Holds(action.EffectIndex)) {
    source.Effects.Edit(action.EffectIndex).ChosenTarget = slot;
  }
  ++session.RedirectDepth;
  --session.RunDepth;
  RunAction(source, session.CardTable[slot], action.EffectIndex,
            RunOptions{.CostMode = action.Options.CostMode,
                       .Nested = action.Options.Nested,
                       .ScriptOverride = session.RedirectScript,
                       .Amount = &action.Amount,
                       .Redirected = true,
                       .Paying = action.Options.Paying});
  ++session.RunDepth;
  --session.RedirectDepth;
  return true;
}

}  // namespace

bool OfferAction(Run& run) {
  Session& session = State();
  if (session.RunDepth != 1 || run.Testing() || run.NoCounters != 0) return true;
  if (!run.Options.Redirected && run.Source.Effects[run.EffectIndex].Trigger != kMyAction) {
    Scan(session, run, run.Source, kMyAction, false);
    if (session.CancelState == 1) return false;
  }
  if (run.Source.GlobalID != run.Target.GlobalID && run.Options.IncomingScript.empty()) {
    Scan(session, run, run.Target, kTargeted, true);
    if (session.CancelState == 1) return false;
  }
  return !TurnedAway(run) || !RunOnNewTarget(run);
}

}  // namespace brindlemoor
