// RunAction: the frame of a script run, from the refusals and the mask filter to the walk.
#include "script/run_action.h"

#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/table_journal.h"
#include "language/traits.h"
#include "language/values.h"
#include "pages/card_pages.h"
#include "script/command_table.h"
#include "script/effect_masks.h"
#include "script/reactions.h"
#include "script/run.h"
#include "script/run_epilogue.h"
#include "script/run_pictures.h"

namespace brindlemoor {

Value Run::Evaluated(int n) const {
  const auto* simple = Fields.SimpleValueAt(Position + n);
  if (simple == nullptr) return EvalValue(Source, Target, Argument(n));
  return SimpleNumber(*simple, Source, Target);
}

double Run::Number(int n) const {
  const auto* simple = Fields.SimpleValueAt(Position + n);
  if (simple == nullptr) return EvalNumber(Source, Target, Argument(n));
  return SimpleNumber(*simple, Source, Target);
}

Text Run::Rest(int n) const {
  SpendWorkOnText(Fields.TailSize(Position + n));
  return Fields.Tail(Position + n);
}

void Run::Show(std::string_view html) {
  if (RunText.size() + html.size() > limits::kPageBytes) {
    limits::ReportLimit("The text of an action grew too long: a part was left out.");
    return;
  }
  SpendWorkOnText(html.size());
  RunText += html;
}

namespace {

const TraitName kNoCounters("NOCOUNTERS");

/// What every run that is asked for does to the shared state, refused or not.
void ClearSharedState(Session& session, double amount) {
  if (amount != 0) session.LastValue = amount;
  session.FailReason.clear();
  session.RedirectTarget = 0;
  session.RedirectScript = Text();
  session.CancelState = 0;
}

/// What stands in the way of a run that does not begin, for who listens.
void TellRefusal(const Session& session, const Card& source, const Card& target) {
  ActionTrace& trace = *session.Trace;
  if (session.RunDepth >= limits::kNestedRuns) {
    trace.Note(Obstacle::kEnded, "too many runs have started one another");
  } else if (target.Name.empty()) {
    trace.Note(Obstacle::kNoTarget, "its card is gone");
  } else if (session.GameOver != 0) {
    trace.Note(Obstacle::kEnded, "the match is over");
  } else if (source.InPlay != 0 && target.InPlay != 0) {
    trace.Note(Obstacle::kBudget, kStepsAreSpent);
  } else {
    const bool actor = source.InPlay == 0;
    trace.Note(Obstacle::kNotInPlay, actor ? "the acting card" : "the target",
               actor ? nullptr : &target);
  }
}

/// The result of a run that does not begin.
std::optional<int> Refusal(Session& session, const Card& source, const Card& target,
                           const RunOptions& options) {
  if (session.RunDepth >= limits::kNestedRuns) return kRunNothing;
  if (target.Name.empty()) return kRunFailed;
  if (session.GameOver != 0) return kRunNothing;
  if (session.Work.Stops(source.Name)) return kRunNothing;
  const bool mustBeInPlay = options.CostMode == -1 && options.TestRun == 0;
  if (mustBeInPlay && (target.InPlay == 0 || source.InPlay == 0)) return kRunFailed;
  return std::nullopt;
}

/// The mask filter. A script that is not the action's own, or that is empty, has no masks.
bool FilterRefuses(Session& session, const Card& source, const Card& target, int effectIndex,
                   const RunOptions& options) {
  if (!options.ScriptOverride.empty() || options.Redirected || !options.IncomingScript.empty()) {
    return false;
  }
  const CardEffect& effect = source.Effects[effectIndex];
  const bool refused = !effect.Script.empty() && MasksRefuse(effect, source, target, session);
  ++(refused ? session.StatMasked : session.StatNotMasked);
  if (refused && session.Trace != nullptr) [[unlikely]] {
    session.Trace->Note(Obstacle::kFilter, WhatMasksRefuse(effect, source, target), &target);
  }
  return refused;
}

void ReportUnknownWord(Run& run, std::string_view word) {
  // A long script full of unknown words would be told of again and again.
  if (run.Testing() || run.RunText.size() + run.Script.size() > limits::kPageBytes) return;
  run.Show(Joined("Unrecognized command in ", ColoredName(run.Source), ", targeting ",
                  ColoredName(run.Target), ": \"", word, "\" (Full string: \"", run.Script.View(),
                  "\")<br><br>"));
}

Step StepOfTest(InTest test) {
  switch (test) {
    case InTest::kSkipOne:
      return Step::kOneOn;
    case InTest::kEnds:
      return Step::kEnd;
    default:
      return Step::kNext;
  }
}

/// For who listens: why the walk ends here.
void TellStop(const Run& run, Obstacle obstacle, std::string_view words) {
  if (run.Trace != nullptr) [[unlikely]]
    run.Trace->NoteIfNone(obstacle, words);
}

/// Carries out the field at the position.
Step CarryOut(Run& run, const ParsedScript::FieldRow& field) {
  run.AiMarked = field.AiMarked;
  run.Walked = field.Row;
  if (field.Row == nullptr) {
    ReportUnknownWord(run, field.AiMarked ? field.Text.substr(2) : field.Text);
    return Step::kOneOn;
  }
  if (run.Testing() && field.Row->Test != InTest::kRuns) return StepOfTest(field.Row->Test);
  return field.Row->Carry(run);
}

/// What a failed command was, and what it compared or said.
std::string WordsOf(const Run& run, const ParsedScript::FieldRow& field, std::string_view why) {
  std::string words(field.Text);
  for (int argument = 1; argument <= field.Row->Arguments; ++argument) {
    words += Joined(":", run.Argument(argument));
  }
  std::string compared = run.Trace->TakeCompared();
  if (compared.empty()) compared = why;
  return compared.empty() ? words : Joined(words, ", ", compared);
}

/// CarryOut for who listens.
Step CarryOutTraced(Run& run, const ParsedScript::FieldRow& field) {
  const int failed = run.FailCount;
  const int failedSoftly = run.SoftFailCount;
  run.Trace->TakeCompared();
  const Step step = CarryOut(run, field);
  const bool leaves = step == Step::kLeave && run.LeaveResult == kRunFailed;
  if (field.Row == nullptr) {
    // Behind an unknown word its arguments are walked as words.
    if (!run.Testing()) TellStop(run, Obstacle::kNoCommand, Joined("\"", field.Text, "\""));
  } else if (leaves || run.FailCount > failed || run.SoftFailCount > failedSoftly) {
    const CommandRole role = field.Row->Role;
    const bool asks = leaves || role == CommandRole::kRequires;
    const Obstacle obstacle = asks                            ? Obstacle::kRequirement
                              : role == CommandRole::kChances ? Obstacle::kChance
                                                              : Obstacle::kNoEffect;
    const bool says = leaves || role == CommandRole::kRequires;
    run.Trace->Note(obstacle, WordsOf(run, field, says ? State().FailReason : ""), &run.Target);
  }
  return step;
}

/// Walks the script; false when a command has left the run.
bool Walk(Run& run) {
  Session& session = State();
  while (true) {
    const ParsedScript::FieldRow& field = run.Fields.RowAt(run.Position);
    if (field.Text.empty()) return true;
    if (session.Work.Stops(run.Source.Name)) {
      TellStop(run, Obstacle::kBudget, kStepsAreSpent);
      return true;
    }
    if (session.CancelState == 1) {
      if (run.NoCounters != 1) {
        TellStop(run, Obstacle::kCancelled, "by what it set going itself");
        ++run.FailCount;
        return true;
      }
      session.CancelState = 0;
    }
    session.Work.Spend(1);
    switch (run.Trace == nullptr ? CarryOut(run, field) : CarryOutTraced(run, field)) {
      case Step::kNext:
        run.Position += 1 + field.Row->Arguments;
        break;
      case Step::kOneOn:
        ++run.Position;
        break;
      case Step::kEnd:
        return true;
      case Step::kLeave:
        return false;
    }
  }
}

int RunUntraced(Session& session, Card& source, Card& target, int effectIndex,
                const RunOptions& options) {
  session.Work.Spend(1);
  double freshAmount = 0;
  double& amount = options.Amount != nullptr ? *options.Amount : freshAmount;
  ClearSharedState(session, amount);
  if (const auto refusal = Refusal(session, source, target, options)) {
    if (session.Trace != nullptr) [[unlikely]]
      TellRefusal(session, source, target);
    return *refusal;
  }
  session.HpReport = 0;
  if (source.Name.empty() || FilterRefuses(session, source, target, effectIndex, options)) {
    return kRunFailed;
  }

  if (session.Journal != nullptr) [[unlikely]] {
    session.Journal->Note(source);
    session.Journal->Note(target);
  }
  const WorkAccount account;
  ++session.RunDepth;
  const Text script =
      options.ScriptOverride.empty() ? source.Effects[effectIndex].Script : options.ScriptOverride;
  const ParsedScript& fields = ParsedScript::Of(script);
  const bool unanswered =
      options.NoCounters == 1 || fields.DeclaresNoCounters() || HasTrait(source, kNoCounters);
  Answer ownAnswer;
  Answer& answer = options.AnswerTo != nullptr ? *options.AnswerTo : ownAnswer;
  Run run(source, target, effectIndex, options, script, fields, amount, answer,
          unanswered ? 1 : options.NoCounters);
  run.Trace = session.Trace;
  if (!OfferAction(run)) {
    --session.RunDepth;
    return kRunNothing;
  }
  DrawPictures(run);
  const auto outerDeletes = std::exchange(session.DeleteRunningEffect, std::uint8_t{0});
  const bool finished = Walk(run);
  if (finished && run.Trace != nullptr) [[unlikely]]
    run.Trace->Applied(run.AppliedCount);
  const int result = finished ? CloseRun(run) : run.LeaveResult;
  --session.RunDepth;
  if (finished) AfterRun(run);
  session.DeleteRunningEffect = outerDeletes;
  return result;
}

/// A run of its own is an action that is asked for; one of the action that is asked for already
/// belongs to it.
int RunTraced(Session& session, Card& source, Card& target, int effectIndex,
              const RunOptions& options) {
  ActionTrace& trace = *session.Trace;
  std::optional<TracedAction> asking;
  if (!trace.IsFor(source, effectIndex)) {
    asking.emplace(source, effectIndex, options.ScriptOverride, options.TestRun != 0);
  }
  const int mark = trace.BeginRun();
  const int result = RunUntraced(session, source, target, effectIndex, options);
  trace.EndRun(mark, result);
  return result;
}

}  // namespace

bool MasksEndTest(const CardEffect& effect, const Card& source, const Card& target) {
  Session& session = State();
  if (session.RunDepth >= limits::kNestedRuns || session.GameOver != 0 || IsFree(source)) {
    return false;
  }
  if (effect.Script.empty() || !MasksRefuse(effect, source, target, session)) {
    return false;
  }
  ClearSharedState(session, 0);
  session.HpReport = 0;
  ++session.StatMasked;
  if (session.Trace != nullptr) [[unlikely]] {
    session.Trace->Note(Obstacle::kFilter, WhatMasksRefuse(effect, source, target), &target);
  }
  return true;
}

int RunAction(Card& source, Card& target, int effectIndex, const RunOptions& options) {
  Session& session = State();
  return session.Trace == nullptr ? RunUntraced(session, source, target, effectIndex, options)
                                  : RunTraced(session, source, target, effectIndex, options);
}

}  // namespace brindlemoor
