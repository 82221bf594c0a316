// Commands of reactions (cancelling an action, turning it to another card) and those that send the
// rest of a script to another card.
#include <array>
#include <string>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "script/command_table.h"
#include "script/run.h"
#include "script/run_epilogue.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

// Answering an action.

Step Cancel(Run& run) {
  Session& session = State();
  if (run.NoCounters != 0) return Step::kNext;
  session.CancelState = 2;
  run.Reply.Cancels = true;
  if (session.DebugMode == 1) {
    AddToBanner(Joined("<br>", ColoredName(run.Source), " has cancelled the action \"",
                       run.Options.IncomingScript, "\" with the effect \"", run.Script, "\""));
    ++session.StatCancelled;
  }
  return Step::kNext;
}

/// What becomes of REQALLY and REQENEMY in a list of fields.
enum class Sides { kKept, kSwapped, kDropped };

std::string_view OtherSide(std::string_view word) {
  if (word == "REQALLY") return "REQENEMY";
  return word == "REQENEMY" ? "REQALLY" : std::string_view();
}

/// Adds the fields of a script that are not empty, so that no gap ends the list early.
void AppendFields(std::string& list, std::string_view script, Sides sides) {
  for (FieldWalker fields(script, ':'); !fields.AtEnd();) {
    const std::string_view field = fields.Next();
    const std::string_view mark = field.starts_with("AI") ? field.substr(0, 2) : "";
    std::string_view word = field.substr(mark.size());
    const std::string_view other = OtherSide(word);
    if (field.empty() || (sides == Sides::kDropped && !other.empty())) continue;
    if (sides == Sides::kSwapped && !other.empty()) word = other;
    if (!list.empty()) list += ':';
    list += mark;
    list += word;
  }
}

/// A list without fields would stand for the action's own script.
Text ScriptOf(std::string list) { return list.empty() ? ":" : std::move(list); }

/// The new target must meet the reaction's requirements, turned to the view of the attacker, and
/// then those of the action except for its side.
Step Redirect(Run& run) {
  Session& session = State();
  if (HasTrait(run.Target, "NOREDIRECT", run.Script)) return Step::kEnd;
  run.LeaveResult = kRunNothing;
  const bool sameSide = run.Source.Owner == run.Target.Owner;
  std::string list;
  AppendFields(list, run.Rest(1), sameSide ? Sides::kKept : Sides::kSwapped);
  AppendFields(list, run.Options.IncomingScript, Sides::kDropped);
  std::string script;
  AppendFields(script, list, Sides::kDropped);

  int quality = kNoTarget;
  --session.RunDepth;  // the reaction is over: its search does not count as nested in it
  const int slot = PickTarget(run.Target, 1, kTargetRandom, ScriptOf(list), quality);
  ++session.RunDepth;
  session.RedirectTarget = slot;
  if (slot > 0) {
    session.RedirectScript = ScriptOf(script);
    run.Reply.RedirectsTo = slot;
    run.Reply.RedirectScript = session.RedirectScript;
    if (run.Trace != nullptr) [[unlikely]]
      run.Trace->Applied(1);
  } else if (run.Trace != nullptr) [[unlikely]] {
    run.Trace->Note(Obstacle::kNoTarget, "no other card meets what REDIRECT asks for");
  }
  return Step::kLeave;
}

Step RedirectByGid(Run& run) {
  if (HasTrait(run.Source, "NOREDIRECT", run.Script)) return Step::kNext;
  const int slot = FindSlot(run.Number(1));
  State().RedirectTarget = slot;
  run.Reply.RedirectsTo = slot;
  run.Reply.RedirectScript = Text();
  return Step::kNext;
}

// Sending the rest of the script elsewhere.

/// Runs the rest on another card; a missing rest is nothing to run.
void SendRest(Run& run, Card& target, int costMode) {
  const Text rest = run.Rest(2);
  if (rest.empty()) return;
  RunAction(run.Source, target, run.EffectIndex,
            RunOptions{.CostMode = costMode,
                       .TestRun = run.Options.TestRun,
                       .EchoOverride = run.Options.EchoOverride,
                       .NoCounters = run.NoCounters,
                       .Nested = run.Options.Nested,
                       .ScriptOverride = rest,
                       .Paying = run.Options.Paying,
                       .AnswerTo = &run.Reply});
}

/// An "AI" word goes on at the field behind it, so that the rest is walked on the first target too.
Step AfterSending(const Run& run) { return run.AiMarked ? Step::kOneOn : Step::kEnd; }

Step Retarget(Run& run) {
  const Text rest = run.Rest(2);
  if (rest.empty()) return AfterSending(run);
  int quality = kNoTarget;
  const int slot =
      PickTarget(run.Source, run.EffectIndex, TargetTypeCode(run.Argument(1)), rest, quality);
  Pile& table = State().CardTable;
  if (table.Holds(slot)) SendRest(run, table[slot], run.Options.CostMode);
  return AfterSending(run);
}

Step RetargetByGid(Run& run) {
  Pile& table = State().CardTable;
  const int slot = FindSlot(run.Number(1));
  if (!table.Holds(slot)) return Step::kEnd;
  SendRest(run, table[slot], run.Options.CostMode);
  return AfterSending(run);
}

/// A stored card is not in play, which a run that pays a cost is allowed.
Step RetargetCollection(Run& run) {
  Pile& collection = State().Collection;
  const int index = FindInCollection(run.Number(1));
  if (!collection.Holds(index)) return Step::kEnd;
  SendRest(run, collection[index], 1);
  return AfterSending(run);
}

Step SetCardTarget(Run& run) {
  Card& card = run.Source;
  if (card.Owner != 1) return Step::kNext;
  const std::int32_t chosen = card.Effects[run.EffectIndex].ChosenTarget;
  card.TargetSlot = static_cast<std::int16_t>(chosen);
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].ChosenTarget != chosen)
      card.Effects.Edit(effect).ChosenTarget = chosen;
  }
  return Step::kNext;
}

constexpr auto kRows = std::to_array<Command>({
    {"CANCEL", 0, false, InTest::kSkip, Cancel, "| the answered action does not happen"},
    {"REDIRECT", 0, true, InTest::kEnds, Redirect,
     "REQUIREMENTS | the answered action goes to a random card that meets the rest of the script"},
    {"REDIRECTBYGID", 1, false, InTest::kSkipOne, RedirectByGid,
     "GLOBALID | the answered action goes to the card with the Global ID GLOBALID"},
    {"RETARGET", 1, true, InTest::kEnds, Retarget,
     "TARGET SCRIPT | all that follows runs on TARGET", false, CommandRole::kSends},
    {"RETARGETBYGID", 1, true, InTest::kEnds, RetargetByGid,
     "GLOBALID SCRIPT | all that follows runs on the card with the Global ID GLOBALID", false,
     CommandRole::kSends},
    {"RETARGETCOLLECTION", 1, true, InTest::kEnds, RetargetCollection,
     "GLOBALID SCRIPT | all that follows runs on the stored card with the Global ID GLOBALID",
     false, CommandRole::kSends},
    {"SETCARDTARGET", 0, false, InTest::kSkip, SetCardTarget,
     "| all actions of the player's acting card stay on the target chosen for this one"},
});

}  // namespace

std::span<const Command> ReactionCommands() { return kRows; }

}  // namespace brindlemoor
