// The requirements and chances of the script language: one row a word, read by a few handlers.
#include <algorithm>
#include <array>
#include <utility>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "language/values.h"
#include "pages/messages.h"
#include "script/command_table.h"
#include "script/run.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// The card that a requirement looks at.
enum class Subject { kTarget, kSource, kTargetOwner, kSourceOwner };

/// What a requirement that fails does to the run.
enum class Stop {
  kHard,    ///< a failure with its reason; the walk ends unless AiMarked
  kCancel,  ///< the same, and no other target can do better
  kFinal,   ///< a failure without a reason; the walk ends in any case
  kQuiet,   ///< a failure that an AiMarked word does not even count
};

/// True when the card meets the requirement; the arguments are those of the run.
using Test = bool (*)(Run& run, const Card& card);

struct RequirementRow {
  std::string_view Word;
  std::uint8_t Arguments;
  Subject About;
  Test Holds;
  std::string_view Reason;  ///< "@A" and "@B" stand for the arguments
  Stop Kind;
  std::string_view Usage;
};

// Traits. An action that is answered can lend its own traits, except to REQMYTRAIT.

/// A trait without a name, from a missing argument, is one that no card has.
bool HasNamed(const Card& card, const TraitName& name, const Text& script) {
  return !name.View().empty() && HasTrait(card, name, script);
}
bool Has(Run& run, const Card& card) {
  return HasNamed(card, run.TraitArgument(1), run.Options.IncomingScript);
}
bool HasOwn(Run& run, const Card& card) { return HasNamed(card, run.TraitArgument(1), Text()); }
bool HasNot(Run& run, const Card& card) { return !Has(run, card); }

double TraitOf(Run& run, const Card& card) { return TraitNumber(card, run.TraitArgument(1)); }

/// The trait less the value. Both may roll dice: the trait is read first.
double Surplus(Run& run, const Card& card) {
  const double trait = TraitOf(run, card);
  const double value = run.Number(2);
  TellCompared(run, run.Argument(1), trait, value);
  return trait - value;
}
bool AtMost(Run& run, const Card& card) { return Surplus(run, card) <= 0; }
bool AtLeast(Run& run, const Card& card) { return Surplus(run, card) >= 0; }
bool Exactly(Run& run, const Card& card) { return Surplus(run, card) == 0; }

/// A value that is itself an expression is followed one step. The numeric readings decide: values
/// whose readings differ are never the same value.
bool EqualsValue(Run& run, const Card& card) {
  Value value = run.Evaluated(2);
  if (!value.IsNumber()) {
    const Text expression = value.Print();
    if (EvalNumber(run.Source, run.Target, expression) > 0) {
      value = EvalValue(run.Source, run.Target, expression);
    }
  }
  const double trait = TraitOf(run, card);
  TellCompared(run, run.Argument(1), trait, value.Number());
  return trait == value.Number();
}

/// The text that a trait is compared with. A positive expression is evaluated a second time, and
/// the second value counts.
std::string WantedText(Run& run, bool expand) {
  std::string wanted(run.Argument(2));
  if (EvalNumber(run.Source, run.Target, wanted) > 0) {
    wanted = EvalValue(run.Source, run.Target, wanted).Str();
  }
  if (expand && NumericPrefix(wanted) == 0) ExpandMessage(run.Source, run.Target, wanted, "", "");
  if (wanted.starts_with(' ')) wanted.erase(0, 1);
  return wanted;
}
bool HoldsText(Run& run, const Card& card, bool expand) {
  const std::string wanted = WantedText(run, expand);
  const Text found = GetTrait(card, run.TraitArgument(1)).Print();
  if (run.Trace != nullptr) [[unlikely]] {
    TellCompared(run, run.Argument(1), Joined("\"", found, "\""), Joined("\"", wanted, "\""));
  }
  return FoldEquals(found, wanted);
}
bool IsText(Run& run, const Card& card) { return HoldsText(run, card, true); }
bool IsPlainText(Run& run, const Card& card) { return HoldsText(run, card, false); }

// Names.

bool IsNamed(Run& run, const Card& card) {
  const auto name = run.Argument(1);
  return card.Name == (name == "$MYNAME" ? run.Source.Name.View() : std::string_view(name));
}
bool IsNotNamed(Run& run, const Card& card) { return card.Name != run.Argument(1); }

// The two cards.

bool IsOther(Run& run, const Card&) { return run.Source.GlobalID != run.Target.GlobalID; }
bool IsAlly(Run& run, const Card&) { return run.Source.Owner == run.Target.Owner; }
bool IsEnemy(Run& run, const Card&) { return run.Source.Owner != run.Target.Owner; }
bool IsPlayers(Run&, const Card& card) { return card.Owner == 1; }
bool IsNotPlayers(Run&, const Card& card) { return card.Owner != 1; }

// The action that is answered.

bool ActionHas(Run& run, const Card&) {
  return ParsedScript::Of(run.Options.IncomingScript).HasField(run.Argument(1));
}
bool ActionHasNot(Run& run, const Card& card) { return !ActionHas(run, card); }
/// The value that the amount is held against.
double ValueForAmount(Run& run) {
  const double value = run.Number(1);
  TellCompared(run, "the amount", run.Amount, value);
  return value;
}
bool AmountAtLeast(Run& run, const Card&) { return run.Amount >= ValueForAmount(run); }
bool AmountAtMost(Run& run, const Card&) { return run.Amount <= ValueForAmount(run); }
bool AmountIs(Run& run, const Card&) { return run.Amount == ValueForAmount(run); }

// Two values.

std::pair<double, double> BothValues(Run& run) {
  const double first = run.Number(1);
  const double second = run.Number(2);
  TellCompared(run, "the first value", first, second);
  return {first, second};
}
bool IsMore(Run& run, const Card&) {
  const auto [first, second] = BothValues(run);
  return first > second;
}
bool IsLess(Run& run, const Card&) {
  const auto [first, second] = BothValues(run);
  return first < second;
}
/// Two texts, such as the cards' names, are compared as texts.
bool AreEqual(Run& run, const Card&) {
  const Value first = run.Evaluated(1);
  const Value second = run.Evaluated(2);
  if (run.Trace != nullptr) [[unlikely]] {
    TellCompared(run, "the first value", first.Print(), second.Print());
  }
  if (first.IsNumber() || second.IsNumber()) return first.Number() == second.Number();
  return first.Print() == second.Print();
}

constexpr std::string_view kNeedsTrait = "Requires @A trait.";
constexpr std::string_view kCannotHave = "Cannot have @A trait.";
constexpr std::string_view kOrLess = "Requires @A trait of @B or less.";
constexpr std::string_view kOrMore = "Requires @A trait of @B or more.";
constexpr std::string_view kOfValue = "Requires @A trait of \"@B\".";
constexpr std::string_view kOwnerNeeds = "Requires owner to have @A trait.";

constexpr auto kTarget = Subject::kTarget;
constexpr auto kSource = Subject::kSource;
constexpr auto kTargetOwner = Subject::kTargetOwner;
constexpr auto kSourceOwner = Subject::kSourceOwner;

// clang-format off
constexpr RequirementRow kRequirements[] = {
    {"REQTRAIT", 1, kTarget, Has, kNeedsTrait, Stop::kHard,
     "TRAIT | the target has TRAIT"},
    {"REQNOTRAIT", 1, kTarget, HasNot, kCannotHave, Stop::kHard,
     "TRAIT | the target does not have TRAIT"},
    {"REQNOTTRAIT", 1, kTarget, HasNot, kCannotHave, Stop::kHard,
     "TRAIT | the same as REQNOTRAIT"},
    {"REQTRAITLESS", 2, kTarget, AtMost, kOrLess, Stop::kHard,
     "TRAIT VALUE | the target's TRAIT is VALUE or less; a missing trait counts 0"},
    {"REQTRAITMORE", 2, kTarget, AtLeast, kOrMore, Stop::kHard,
     "TRAIT VALUE | the target's TRAIT is VALUE or more; a missing trait counts 0"},
    {"REQTRAITEQUALS", 2, kTarget, EqualsValue, kOfValue, Stop::kHard,
     "TRAIT VALUE | the target's TRAIT is the number VALUE"},
    {"REQTRAITIS", 2, kTarget, IsText, kOfValue, Stop::kHard,
     "TRAIT TEXT | the target's TRAIT is the text TEXT; case does not count, and placeholders are filled in"},
    {"REQNAME", 1, kTarget, IsNamed, "Target card must be named @A", Stop::kHard,
     "NAME | the target is named NAME; $MYNAME stands for the acting card's name"},
    {"REQNONAME", 1, kTarget, IsNotNamed, kCannotHave, Stop::kHard,
     "NAME | the target is not named NAME"},

    {"REQMYTRAIT", 1, kSource, HasOwn, kNeedsTrait, Stop::kHard,
     "TRAIT | the acting card has TRAIT"},
    {"REQMYNOTRAIT", 1, kSource, HasNot, kCannotHave, Stop::kHard,
     "TRAIT | the acting card does not have TRAIT"},
    {"REQNOMYTRAIT", 1, kSource, HasNot, kCannotHave, Stop::kHard,
     "TRAIT | the same as REQMYNOTRAIT"},
    {"REQMYNOTTRAIT", 1, kSource, HasNot, kCannotHave, Stop::kHard,
     "TRAIT | the same as REQMYNOTRAIT"},
    {"REQMYTRAITLESS", 2, kSource, AtMost,
     "Requires source card have a @A trait of @B or less.", Stop::kCancel,
     "TRAIT VALUE | the acting card's TRAIT is VALUE or less"},
    {"REQMYTRAITMORE", 2, kSource, AtLeast, kOrMore, Stop::kCancel,
     "TRAIT VALUE | the acting card's TRAIT is VALUE or more"},
    {"REQMYTRAITEQUALS", 2, kSource, EqualsValue, kOfValue, Stop::kCancel,
     "TRAIT VALUE | the acting card's TRAIT is the number VALUE"},
    {"REQMYTRAITIS", 2, kSource, IsPlainText, kOfValue, Stop::kCancel,
     "TRAIT WORD | the acting card's TRAIT is the text WORD; case does not count"},
    {"REQMYNAME", 1, kSource, IsNamed, "Source card must be named @A", Stop::kHard,
     "NAME | the acting card is named NAME"},
    {"REQNOMYNAME", 1, kSource, IsNotNamed, kCannotHave, Stop::kCancel,
     "NAME | the acting card is not named NAME"},

    {"REQOWNERTRAIT", 1, kTargetOwner, Has, kOwnerNeeds, Stop::kHard,
     "TRAIT | the target's player card has TRAIT"},
    {"REQMYOWNERTRAIT", 1, kSourceOwner, Has, kOwnerNeeds, Stop::kHard,
     "TRAIT | the acting card's player card has TRAIT"},
    {"REQOWNERTRAITLESS", 2, kTargetOwner, AtMost, kOrLess, Stop::kHard,
     "TRAIT VALUE | TRAIT of the target's player card is VALUE or less"},
    {"REQMYOWNERTRAITLESS", 2, kSourceOwner, AtMost, kOrLess, Stop::kHard,
     "TRAIT VALUE | TRAIT of the acting card's player card is VALUE or less"},
    {"REQOWNERTRAITMORE", 2, kTargetOwner, AtLeast, kOrMore, Stop::kHard,
     "TRAIT VALUE | TRAIT of the target's player card is VALUE or more"},
    {"REQMYOWNERTRAITMORE", 2, kSourceOwner, AtLeast, kOrMore, Stop::kHard,
     "TRAIT VALUE | TRAIT of the acting card's player card is VALUE or more"},
    {"REQOWNERTRAITEQUALS", 2, kTargetOwner, Exactly, kOfValue, Stop::kHard,
     "TRAIT VALUE | TRAIT of the target's player card is the number VALUE"},
    {"REQMYOWNERTRAITEQUALS", 2, kSourceOwner, Exactly, kOfValue, Stop::kHard,
     "TRAIT VALUE | TRAIT of the acting card's player card is the number VALUE"},

    {"REQNOTME", 0, kTarget, IsOther, "", Stop::kHard,
     "| the target is another card than the acting one"},
    {"REQALLY", 0, kTarget, IsAlly, "Requires the target to be an ally.", Stop::kHard,
     "| both cards have the same owner"},
    {"REQENEMY", 0, kTarget, IsEnemy, "Requires the target to be an enemy.", Stop::kHard,
     "| the cards have different owners"},
    {"REQISPLAYER", 0, kTarget, IsPlayers, "", Stop::kHard,
     "| the target belongs to the human player"},
    {"REQNOTPLAYER", 0, kTarget, IsNotPlayers, "", Stop::kHard,
     "| the target does not belong to the human player"},
    {"REQISNOTPLAYER", 0, kTarget, IsNotPlayers, "", Stop::kHard,
     "| the same as REQNOTPLAYER"},

    {"REQTRAITTARGET", 1, kTarget, ActionHas, "", Stop::kFinal,
     "FIELD | the answered action's script has the field FIELD"},
    {"REQTRAITARGET", 1, kTarget, ActionHas, "", Stop::kFinal,
     "FIELD | the same as REQTRAITTARGET"},
    {"REQNOTRAITTARGET", 1, kTarget, ActionHasNot, "", Stop::kFinal,
     "FIELD | the answered action's script does not have the field FIELD"},
    {"REQNOTRAITARGET", 1, kTarget, ActionHasNot, "", Stop::kFinal,
     "FIELD | the same as REQNOTRAITTARGET"},
    {"REQVALMORE", 1, kTarget, AmountAtLeast, "", Stop::kFinal,
     "VALUE | the incoming amount is VALUE or more"},
    {"REQVALLESS", 1, kTarget, AmountAtMost, "", Stop::kFinal,
     "VALUE | the incoming amount is VALUE or less"},
    {"REQVALEQUALS", 1, kTarget, AmountIs, "", Stop::kFinal,
     "VALUE | the incoming amount is VALUE"},

    {"REQISMORE", 2, kTarget, IsMore, "", Stop::kQuiet,
     "VALUE VALUE | VALUE is greater than VALUE"},
    {"REQISLESS", 2, kTarget, IsLess, "", Stop::kQuiet,
     "VALUE VALUE | VALUE is smaller than VALUE"},
    {"REQEQUALS", 2, kTarget, AreEqual, "", Stop::kQuiet,
     "VALUE VALUE | VALUE and VALUE are equal"},
};
// clang-format on

/// nullptr when the card has no owner card.
const Card* CardAbout(const Run& run, Subject subject) {
  switch (subject) {
    case Subject::kTarget:
      return &run.Target;
    case Subject::kSource:
      return &run.Source;
    case Subject::kTargetOwner:
      return OwnerCard(run.Target);
    case Subject::kSourceOwner:
      return OwnerCard(run.Source);
  }
  return nullptr;
}

/// An argument as a reason names it: $MYNAME of the name requirements is the name that it means.
auto NamedArgument(const Run& run, const RequirementRow& row, char letter) {
  auto argument = run.Argument(letter == 'A' ? 1 : 2);
  if (row.Holds == IsNamed && argument == "$MYNAME") argument = run.Source.Name;
  return argument;
}

void GiveReason(const Run& run, const RequirementRow& row) {
  std::string& reason = State().FailReason;
  reason.clear();
  std::string_view rest = row.Reason;
  for (std::size_t mark = rest.find('@'); mark != std::string_view::npos; mark = rest.find('@')) {
    reason += rest.substr(0, mark);
    reason += NamedArgument(run, row, rest[mark + 1]);
    rest.remove_prefix(mark + 2);
  }
  reason += rest;
}

Step Fail(Run& run, const RequirementRow& row) {
  if (row.Kind == Stop::kQuiet && run.AiMarked) return Step::kNext;
  ++run.FailCount;
  if (row.Kind == Stop::kQuiet || row.Kind == Stop::kFinal) return Step::kEnd;
  if (!row.Reason.empty() && !State().Quiet) GiveReason(run, row);
  if (row.Kind == Stop::kCancel) {
    State().CancelState = 1;
    run.Reply.SourceFails = run.Reply.Cancels = true;
  }
  return run.AiMarked ? Step::kNext : Step::kEnd;
}

template <std::size_t Index>
Step CarryRequirement(Run& run) {
  const RequirementRow& row = kRequirements[Index];
  const Card* card = CardAbout(run, row.About);
  if (card == nullptr) TellOf(run, "its side has no player card");
  return card != nullptr && row.Holds(run, *card) ? Step::kNext : Fail(run, row);
}

Step Chance(Run& run, int roll, bool above) {
  const double percent = run.Number(1);
  const bool missed = above ? roll < percent : roll > percent;
  if (!missed) return Step::kNext;
  TellCompared(run, "the roll", roll, percent);
  ++run.SoftFailCount;
  return Step::kEnd;
}
Step CarryChance(Run& run) { return Chance(run, RollDie(100), false); }
Step CarryChanceAbove(Run& run) { return Chance(run, RollDie(100), true); }
Step CarryOneChance(Run& run) {
  int& roll = State().SharedChanceRoll;
  if (roll == 0) roll = RollDie(100);
  return Chance(run, roll, false);
}

constexpr Command kChances[] = {
    {"CHANCE", 1, false, InTest::kSkipOne, CarryChance, "PERCENT | only in PERCENT of 100 cases",
     false, CommandRole::kChances},
    {"CHANCEABOVE", 1, false, InTest::kSkipOne, CarryChanceAbove,
     "PERCENT | only when a roll of 1 to 100 is PERCENT or more", false, CommandRole::kChances},
    {"ONECHANCE", 1, false, InTest::kSkipOne, CarryOneChance,
     "PERCENT | only in PERCENT of 100 cases; one roll decides for all targets of an action", false,
     CommandRole::kChances},
};

template <std::size_t Index>
constexpr Command RequirementCommand() {
  const RequirementRow& row = kRequirements[Index];
  return {row.Word,
          row.Arguments,
          false,
          InTest::kRuns,
          CarryRequirement<Index>,
          row.Usage,
          false,
          CommandRole::kRequires,
          row.Kind == Stop::kHard    ? AiMark::kWishes
          : row.Kind == Stop::kQuiet ? AiMark::kFrees
                                     : AiMark::kNone};
}

constexpr auto kCommands = []<std::size_t... Index>(std::index_sequence<Index...>) {
  std::array<Command, sizeof...(Index) + std::size(kChances)> commands{
      RequirementCommand<Index>()...};
  std::ranges::copy(kChances, commands.begin() + sizeof...(Index));
  return commands;
}
(std::make_index_sequence<std::size(kRequirements)>());

}  // namespace

std::span<const Command> RequirementCommands() { return kCommands; }

}  // namespace brindlemoor
