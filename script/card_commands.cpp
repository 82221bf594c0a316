// Commands on whole cards: drawing, destroying, copying, lasting changes, sides, actions, the end.
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/card_files.h"
#include "core/cards.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/messages.h"
#include "script/boosters.h"
#include "script/card_setup.h"
#include "script/command_table.h"
#include "script/run.h"
#include "script/run_services.h"
#include "script/stored_cards.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "text/quoting.h"

namespace brindlemoor {
namespace {

/// The side that an owner stands for, nullptr for a neutral card without one.
PlayerState* SideOf(const Card& card) {
  return State().Players.Holds(card.Owner) ? &State().Players[card.Owner] : nullptr;
}

// Drawing, hand and destruction.

Step DrawCardsCommand(Run& run) {
  if (PlayerState* side = SideOf(run.Target)) DrawCards(*side, run.Number(1));
  return Step::kNext;
}

Step Destroy(Run& run) {
  run.DestroyTarget = true;
  return Step::kNext;
}

Step DestroyMe(Run& run) {
  run.DestroySource = true;
  return Step::kNext;
}

Step ReturnTarget(Run& run) {
  if (PlayerState* side = SideOf(run.Target)) ReturnToHand(*side, run.Target);
  return Step::kNext;
}

Step ReturnMe(Run& run) {
  if (PlayerState* side = SideOf(run.Source)) ReturnToHand(*side, run.Source);
  return Step::kNext;
}

// Copying and creating cards.

/// Queues copies, each of which becomes a card of its own when it enters the table.
Step QueueCopies(Run& run, Card copy) {
  copy.GlobalID = 0;
  copy.ChangedTraits = Text();
  ResetMenuState(copy);
  const double count = run.Number(1);
  const bool paid = run.Number(2) == 1;
  for (int made = 0; made + 1 <= count; ++made) {
    if (made == limits::kNewCards) {
      limits::ReportLimit("A command made too many cards: the rest was left out.");
      break;
    }
    if (paid) {
      if (!Services().PayCost(copy, Payment::kIsTested)) break;
      Services().PayCost(copy, Payment::kIsMade);
    }
    QueuePending(copy);
  }
  return Step::kNext;
}

Step Duplicate(Run& run) {
  Card copy = run.Target;
  SetOwner(copy, run.Source.Owner);
  return QueueCopies(run, std::move(copy));
}

Step DuplicateMe(Run& run) { return QueueCopies(run, run.Source); }

Step CreateCard(Run& run) {
  const auto file = run.Argument(3);
  const std::string path = TakeReferencedFile(file);
  if (path.empty()) {
    run.Show(Joined("<br>File not found:", file, "<br>"));
    return Step::kNext;
  }
  CreateCards(run.Argument(2), path, run.Source.Owner, run.Number(1));
  ++run.AppliedCount;
  return Step::kNext;
}

// Lasting changes.

Step Permanent(Run& run) {
  const Text rest = run.Rest(1);
  const OwnedCard owned = FindOwnedCard(run.Target.GlobalID);
  const bool changesTwin = owned.Record != nullptr && !rest.empty();
  if (changesTwin) {
    RunAction(run.Source, *owned.Record, run.EffectIndex,
              RunOptions{.CostMode = 1,
                         .EchoOverride = " ",
                         .NoCounters = 1,
                         .Nested = 1,
                         .ScriptOverride = rest});
  }
  if (run.Argument(1) == "ADDMOD") return Step::kNext;
  SetTrait(run.Target, "NOMRP", "", 0);
  // Its definition must not take the change back when the player is saved.
  if (changesTwin) SetTrait(*owned.Record, "NOMRP", "", 1);
  return Step::kNext;
}

Step AddMod(Run& run) {
  Text& scripts = run.Target.EntryScripts;
  const std::size_t rest = run.Fields.TailSize(run.Position + 1);
  if (scripts.size() + rest > static_cast<std::size_t>(limits::kTextBytes)) {
    limits::ReportLimit("A card has too many modifications: one was left out.");
  } else {
    SpendWorkOnText(scripts.size());
    scripts = Joined(scripts, run.Rest(1), "$|$");
  }
  return Step::kNext;
}

/// What a card is only while it lies in a table: its place and side there, aims and armed actions.
void LeaveTableState(Card& card, int owner) {
  card.Slot = 0;
  card.InPlay = 0;
  card.TargetSlot = 0;
  card.StoredTarget = 0;
  SetOwner(card, owner);
  ResetMenuState(card);
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].ChosenTarget == 0) continue;
    card.Effects.Edit(effect).ChosenTarget = 0;
    card.Effects.Edit(effect).PickedPile = 0;
  }
}

Step SaveCard(Run& run) {
  const OwnedCard owned = FindOwnedCard(run.Target.GlobalID);
  if (owned.Record == nullptr) return Step::kNext;
  Card saved = run.Target;
  LeaveTableState(saved, owned.Record->Owner);
  *owned.Record = std::move(saved);
  return Step::kNext;
}

// The card's look.

Text ExpandedArgument(Run& run) {
  std::string text(run.Argument(1));
  ExpandMessage(run.Source, run.Target, text, run.SourcePicture, run.TargetPicture);
  return text;
}

/// Placeholders bring the colours of names along, but a name has none. An empty one changes
/// nothing: a card without a name is none.
Step Rename(Run& run, Card& card) {
  Text name = WithoutTags(ExpandedArgument(run));
  if (!name.empty()) card.Name = std::move(name);
  return Step::kNext;
}

Step ChangeName(Run& run) { return Rename(run, run.Target); }
Step ChangeMyName(Run& run) { return Rename(run, run.Source); }

Step ChangeImg(Run& run) {
  run.Source.Picture = ExpandedArgument(run);
  return Step::kNext;
}

Step ChangeThumb(Run& run) {
  run.Source.Thumb = ExpandedArgument(run);
  return Step::kNext;
}

// Changing sides.

Step MindControl(Run& run) {
  if (run.Target.Owner == run.Source.Owner) return Step::kNext;
  ResetMenuState(run.Target);
  SetOwner(run.Target, run.Source.Owner);
  ++run.AppliedCount;
  return Step::kNext;
}

Step MindControlMe(Run& run) {
  if (run.Target.Owner == run.Source.Owner) return Step::kNext;
  ResetMenuState(run.Target);
  SetOwner(run.Source, run.Target.Owner);
  ++run.AppliedCount;
  return Step::kNext;
}

void ChangeSides(Card& card) {
  ResetMenuState(card);
  SetOwner(card, card.Owner == 1 ? 2 : 1);
}

Step Defect(Run& run) {
  ChangeSides(run.Target);
  return Step::kNext;
}

Step DefectMe(Run& run) {
  ChangeSides(run.Source);
  ++run.AppliedCount;
  return Step::kNext;
}

/// The owner that the argument names; numbers that are no owner stand for 0.
std::uint8_t OwnerArgument(const Run& run) {
  const double number = NumericPrefix(run.Argument(1));
  return number >= 0 && number < 4 ? static_cast<std::uint8_t>(number) : std::uint8_t{0};
}

Step JoinSide(Run& run, Card& card) {
  const std::uint8_t owner = OwnerArgument(run);
  // The target's, for MEJOIN as well: matches with existing cards play out so.
  if (owner != card.Owner) ResetMenuState(run.Target);
  SetOwner(card, owner);
  ++run.AppliedCount;
  return Step::kNext;
}

Step Join(Run& run) { return JoinSide(run, run.Target); }
Step MeJoin(Run& run) { return JoinSide(run, run.Source); }

// Actions, the end of the game, repeats.

/// A stored card gets its action at once. One in the table gets it after the run, since the action
/// that is running may be its own.
Step AddEffectCommand(Run& run) {
  ++run.AppliedCount;
  Card& card = run.Target;
  const bool stored = run.Options.KeepsActions || (!run.Testing() && !IsTableRecord(card) &&
                                                   FindOwnedCard(card.GlobalID).Record == &card);
  if (stored) {
    AddActionOfText(card, run.Rest(1));
  } else if (!run.Testing()) {
    State().PendingEffectText = run.Rest(1);
    State().PendingEffectCard = card.GlobalID;
  }
  return Step::kEnd;
}

Step DeleteEffect(Run& run) {
  static_cast<void>(run);
  State().DeleteRunningEffect = 1;
  return Step::kNext;
}

Step WinGame(Run& run) {
  run.Winner = run.Source.Owner;
  return Step::kNext;
}

Step LoseGame(Run& run) {
  run.Winner = run.Source.Owner == 1 ? 2 : 1;
  return Step::kNext;
}

constexpr double kMostRepeats = 1e9;  // the end of the run has its own, lower bound

Step Repeat(Run& run) {
  run.RepeatTargetType = TargetTypeCode(run.Argument(1));
  run.RepeatCount = static_cast<int>(std::clamp(run.Number(2), 0.0, kMostRepeats));
  return Step::kNext;
}

constexpr auto kRows = std::to_array<Command>({
    {"DRAWCARDS", 1, false, InTest::kSkipOne, DrawCardsCommand,
     "COUNT | the target's owner draws COUNT cards; as far as the hand has room"},
    {"DESTROY", 0, false, InTest::kSkip, Destroy, "| the target dies at the end of the script"},
    {"DESTROYME", 0, false, InTest::kSkip, DestroyMe,
     "| the acting card dies at the end of the script"},
    {"RETURNTOHAND", 0, false, InTest::kSkip, ReturnTarget,
     "| the target goes back to its owner's hand, with its traits as they are now"},
    {"RETURNMETOHAND", 0, false, InTest::kSkip, ReturnMe,
     "| the acting card goes back to its owner's hand, with its traits as they are now"},

    {"DUPLICATE", 2, false, InTest::kSkipOne, Duplicate,
     "COUNT PAID | makes COUNT copies of the target for the acting card's side; PAID 1 asks their "
     "price"},
    {"DUPLICATEME", 2, false, InTest::kSkipOne, DuplicateMe,
     "COUNT PAID | makes COUNT copies of the acting card; PAID 1 asks their price"},
    {"CREATECARD", 3, false, InTest::kSkipOne, CreateCard,
     "COUNT NAME FILE | makes COUNT cards NAME out of the card file FILE for the acting card's "
     "side"},

    {"BOOSTER", 1, false, InTest::kSkip, BoosterCommand,
     "COUNT | the player gets COUNT random cards of the store; the rarer, the less often"},
    {"BOOSTERWITHREQS", 1, true, InTest::kSkip, BoosterWithReqsCommand,
     "COUNT REQUIREMENTS | the player gets COUNT random cards of the store that pass the rest of "
     "the script; the rarer, the less often"},
    {"BOOSTERCARD", 2, false, InTest::kSkip, BoosterCardCommand,
     "NAME COUNT | the player gets the card NAME of the store, COUNT of it"},

    {"PERMANENT", 0, true, InTest::kSkip, Permanent,
     "SCRIPT | all that follows also runs on the player's own copy of the target"},
    {"ADDMOD", 0, true, InTest::kEnds, AddMod,
     "SCRIPT | all that follows runs now, and whenever the target enters a table"},
    {"SAVECARD", 0, false, InTest::kSkip, SaveCard,
     "| the player's own copy of the target becomes as the target is now"},

    {"CHANGENAME", 1, false, InTest::kSkip, ChangeName, "NEWNAME | renames the target to NEWNAME",
     true},
    {"CHANGEMYNAME", 1, false, InTest::kSkip, ChangeMyName,
     "NEWNAME | renames the acting card to NEWNAME", true},
    {"CHANGEIMG", 1, false, InTest::kSkip, ChangeImg,
     "PICTURE | makes PICTURE the acting card's picture", true},
    {"CHANGETHUMB", 1, false, InTest::kSkip, ChangeThumb,
     "PICTURE | makes PICTURE the acting card's thumbnail", true},

    {"MINDCONTROL", 0, false, InTest::kRuns, MindControl,
     "| the target joins the acting card's side"},
    {"MINDCONTROLME", 0, false, InTest::kRuns, MindControlMe,
     "| the acting card joins the target's side"},
    {"DEFECT", 0, false, InTest::kRuns, Defect, "| the target changes sides"},
    {"DEFECTME", 0, false, InTest::kRuns, DefectMe, "| the acting card changes sides"},
    {"JOIN", 1, false, InTest::kRuns, Join,
     "OWNER | the target joins side OWNER; 1 human, 2 computer, 0 or 3 neutral"},
    {"MEJOIN", 1, false, InTest::kRuns, MeJoin,
     "OWNER | the acting card joins side OWNER; 1 human, 2 computer, 0 or 3 neutral"},

    {"ADDEFFECT", 0, true, InTest::kRuns, AddEffectCommand,
     "TRIGGER TARGET SCRIPT | gives the target a new action, at TRIGGER on TARGET, which is all "
     "that follows; ends the script"},
    {"DELETEEFFECT", 0, false, InTest::kSkip, DeleteEffect,
     "| this action goes from the acting card after the script"},

    {"WINGAME", 0, false, InTest::kSkip, WinGame, "| the acting card's side wins"},
    {"LOSEGAME", 0, false, InTest::kSkip, LoseGame, "| the acting card's side loses"},

    {"REPEAT", 2, false, InTest::kRuns, Repeat,
     "TARGET COUNT | the whole script runs COUNT times more, on TARGET; chosen anew each time",
     false, CommandRole::kDeclares},
});

}  // namespace

std::span<const Command> CardCommands() { return kRows; }

}  // namespace brindlemoor
