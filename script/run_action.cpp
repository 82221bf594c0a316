// RunAction: the frame of a script run, from the refusals and the mask filter to the walk.
#include "script/run_action.h"

#include <optional>
#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
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

Value Run::Evaluated(int n) const { return EvalValue(Source, Target, Argument(n)); }

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

/// Walks the script; false when a command has left the run.
bool Walk(Run& run) {
  Session& session = State();
  while (true) {
    const ParsedScript::FieldRow& field = run.Fields.RowAt(run.Position);
    if (field.Text.empty()) return true;
    if (session.Work.Stops(run.Source.Name)) return true;
    if (session.CancelState == 1) {
      if (run.NoCounters != 1) {
        ++run.FailCount;
        return true;
      }
      session.CancelState = 0;
    }
    session.Work.Spend(1);
    switch (CarryOut(run, field)) {
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
  return true;
}

int RunAction(Card& source, Card& target, int effectIndex, const RunOptions& options) {
  Session& session = State();
  session.Work.Spend(1);
  double freshAmount = 0;
  double& amount = options.Amount != nullptr ? *options.Amount : freshAmount;
  ClearSharedState(session, amount);
  if (const auto refusal = Refusal(session, source, target, options)) return *refusal;
  session.HpReport = 0;
  if (source.Name.empty() || FilterRefuses(session, source, target, effectIndex, options)) {
    return kRunFailed;
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
  if (!OfferAction(run)) {
    --session.RunDepth;
    return kRunNothing;
  }
  DrawPictures(run);
  const auto outerDeletes = std::exchange(session.DeleteRunningEffect, std::uint8_t{0});
  const bool finished = Walk(run);
  const int result = finished ? CloseRun(run) : run.LeaveResult;
  --session.RunDepth;
  if (finished) AfterRun(run);
  session.DeleteRunningEffect = outerDeletes;
  return result;
}

}  // namespace brindlemoor
