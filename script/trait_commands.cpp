// Commands that change traits, the incoming value of a reaction and the player's tokens.
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "language/values.h"
#include "script/command_table.h"
#include "script/run.h"
#include "script/trait_changes.h"

namespace brindlemoor {
namespace {

constexpr int kPayingCost = 1;

bool PaysCost(const Run& run) { return run.Options.CostMode == kPayingCost; }

void SayInsufficient(std::string_view trait) {
  State().FailReason = Joined("Insufficient ", trait, ".");
}

/// The cost can't be paid at all: the run ends where it stands.
Step LeaveInsufficient(Run& run, std::string_view trait) {
  SayInsufficient(trait);
  run.LeaveResult = kRunFailed;
  return Step::kLeave;
}

void Change(Run& run, Card& card, const TraitName& trait, double amount) {
  ModTrait(card, trait, amount, run.Source, run.Options.TestRun, run.Script, run.Options.Paying);
}

/// The sentence about hit points is to speak of the source.
void TurnHpReportToSource(std::string_view trait) {
  if (trait == "HP" && State().HpReport == 1) State().HpReport = 2;
}

// Relative changes.

/// The change is made already when it turns out to cost more than there is. It is always the
/// source's trait that is looked at, also when the target's was changed.
Step AfterChange(Run& run, const TraitName& trait) {
  ++run.AppliedCount;
  if (!PaysCost(run) || TraitNumber(run.Source, trait) >= 0) return Step::kNext;
  SayInsufficient(trait.View());
  ++run.SoftFailCount;
  return run.AiMarked ? Step::kNext : Step::kEnd;
}

Step ModTargetTrait(Run& run) {
  const auto trait = run.TraitArgument(1);
  Change(run, run.Target, trait, run.Number(2));
  return AfterChange(run, trait);
}

Step ModSourceTrait(Run& run) {
  const auto trait = run.TraitArgument(1);
  Change(run, run.Source, trait, run.Number(2));
  TurnHpReportToSource(run.Argument(1));
  return AfterChange(run, trait);
}

/// Changes one owner's card by a value that is read against the other owner's card, and looks at
/// that other card for what is left: costs of existing cards are written for that.
Step ModOwner(Run& run, Card* changed, Card* readAgainst) {
  if (changed == nullptr) return Step::kNext;
  const auto trait = run.TraitArgument(1);
  const Card& against = readAgainst != nullptr ? *readAgainst : run.Target;
  Change(run, *changed, trait, EvalNumber(run.Source, against, run.Argument(2)));
  ++run.AppliedCount;
  if (PaysCost(run) && readAgainst != nullptr && TraitNumber(*readAgainst, trait) < 0) {
    return LeaveInsufficient(run, run.Argument(1));
  }
  return Step::kNext;
}

Step ModTargetOwnerTrait(Run& run) {
  return ModOwner(run, OwnerCard(run.Target), OwnerCard(run.Source));
}

Step ModSourceOwnerTrait(Run& run) {
  return ModOwner(run, OwnerCard(run.Source), OwnerCard(run.Target));
}

Step Subtract(Run& run, Card& card, bool gainsToo) {
  const auto trait = run.TraitArgument(1);
  double value = run.Number(2);
  if (PaysCost(run) && value > TraitNumber(card, trait)) {
    TellCompared(run, run.Argument(1), TraitNumber(card, trait), value);
    return LeaveInsufficient(run, run.Argument(1));
  }
  if (value < 0 && !gainsToo) value = 0;
  if (value != 0 && !HasTrait(card, trait)) {
    ++run.SoftFailCount;
    return Step::kNext;
  }
  Change(run, card, trait, 0 - value);
  ++run.AppliedCount;
  return Step::kNext;
}

Step SubTargetTrait(Run& run) { return Subtract(run, run.Target, false); }
Step SubSourceTrait(Run& run) { return Subtract(run, run.Source, true); }

Step AddToTrait(Run& run) {
  const auto trait = run.TraitArgument(1);
  if (HasTrait(run.Target, trait)) {
    Change(run, run.Target, trait, run.Number(2));
  } else {
    ++run.SoftFailCount;
  }
  return Step::kNext;
}

// Absolute changes.

Step SetTargetTrait(Run& run) {
  bool computed = false;
  const Value value = EvalValue(run.Source, run.Target, run.Argument(2), computed);
  SetTrait(run.Target, run.TraitArgument(1), computed ? value : Value(Text(run.Argument(2))), 0);
  ++run.AppliedCount;
  return Step::kNext;
}

Step SetOn(Run& run, Card* card) {
  if (card == nullptr) return Step::kNext;
  const Value value = run.Evaluated(2);
  SetTrait(*card, run.TraitArgument(1), value.Number() > 0 ? value : Value(Text(run.Argument(2))),
           0);
  ++run.AppliedCount;
  return Step::kNext;
}

Step SetSourceTrait(Run& run) {
  const Step step = SetOn(run, &run.Source);
  TurnHpReportToSource(run.Argument(1));
  return step;
}

/// A test has no copy of a player card, so it only counts what it would have done.
Step SetOnOwner(Run& run, Card* owner) {
  if (!run.Testing()) return SetOn(run, owner);
  if (owner != nullptr) ++run.AppliedCount;
  return Step::kNext;
}

Step SetTargetOwnerTrait(Run& run) { return SetOnOwner(run, OwnerCard(run.Target)); }
Step SetSourceOwnerTrait(Run& run) { return SetOnOwner(run, OwnerCard(run.Source)); }

// Removal.

Step RemoveFrom(Run& run, Card& card) {
  const auto trait = run.Argument(1);
  if (HasTrait(card, trait)) {
    RemoveTrait(card, trait);
    ++run.AppliedCount;
  } else {
    ++run.SoftFailCount;
  }
  return Step::kNext;
}

Step RemoveTargetTrait(Run& run) { return RemoveFrom(run, run.Target); }
Step RemoveSourceTrait(Run& run) { return RemoveFrom(run, run.Source); }

// The incoming value.

Step SetIncoming(Run& run) {
  const double value = run.Number(1);
  run.Amount = value;
  State().LastValue = value;
  return Step::kNext;
}

/// Makes the change bigger or smaller in its own direction; it never turns round.
Step ModIncoming(Run& run) {
  const double value = run.Number(1);
  if (run.Amount < 0) {
    run.Amount = std::fmin(run.Amount - value, 0);
  } else if (run.Amount > 0) {
    run.Amount = std::fmax(run.Amount + value, 0);
  }
  State().LastValue = value;
  return Step::kNext;
}

Step RedirectTrait(Run& run) {
  State().RedirectTraitName = run.Argument(1);
  return Step::kNext;
}

// Tokens: always the human's, whoever acts.

std::int32_t WholeTokens(double balance) {
  using Bounds = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::fmin(std::fmax(std::round(balance), Bounds::min()), Bounds::max()));
}

Step ChangeTokens(Run& run, double sign) {
  std::int32_t& tokens = State().Players[1].Tokens;
  const double value = run.Number(1);
  const double balance = tokens + sign * value;
  run.ShowRun = true;
  if (balance < 0) {
    run.Show("Not enough tokens!<br>");
    if (!run.AiMarked) return Step::kEnd;
  }
  tokens = WholeTokens(balance);
  State().LastValue = value;
  run.Show(Joined("You now have ", tokens, " tokens."));
  return Step::kNext;
}

Step AddTokens(Run& run) { return ChangeTokens(run, 1); }
Step SubTokens(Run& run) { return ChangeTokens(run, -1); }

Step DeclareTrait(Run&) { return Step::kNext; }

constexpr auto kRows = std::to_array<Command>({
    {"MODTRAIT", 2, false, InTest::kRuns, ModTargetTrait,
     "TRAIT VALUE | adds VALUE to the target's TRAIT; the target gets the trait if need be"},
    {"MODMYTRAIT", 2, false, InTest::kRuns, ModSourceTrait,
     "TRAIT VALUE | adds VALUE to the acting card's TRAIT"},
    {"MODOWNERTRAIT", 2, false, InTest::kSkipOne, ModTargetOwnerTrait,
     "TRAIT VALUE | adds VALUE to TRAIT of the target's player card"},
    {"MODMYOWNERTRAIT", 2, false, InTest::kSkipOne, ModSourceOwnerTrait,
     "TRAIT VALUE | adds VALUE to TRAIT of the acting card's player card"},
    {"SUBTRAIT", 2, false, InTest::kRuns, SubTargetTrait,
     "TRAIT VALUE | takes VALUE from the target's TRAIT; if it has the trait, and a value below 0 "
     "takes nothing"},
    {"SUBMYTRAIT", 2, false, InTest::kRuns, SubSourceTrait,
     "TRAIT VALUE | takes VALUE from the acting card's TRAIT; if it has the trait, and a value "
     "below 0 adds"},
    {"ADDTRAIT", 2, false, InTest::kRuns, AddToTrait,
     "TRAIT VALUE | adds VALUE to the target's TRAIT if it has that already"},
    {"SETTRAIT", 2, false, InTest::kRuns, SetTargetTrait,
     "TRAIT CONTENT | gives the target TRAIT with CONTENT; it is stored as written unless it is "
     "computed"},
    {"SETMYTRAIT", 2, false, InTest::kRuns, SetSourceTrait,
     "TRAIT SETTING | gives the acting card TRAIT with SETTING; a value that comes to 0 is stored "
     "as written"},
    {"SETOWNERTRAIT", 2, false, InTest::kRuns, SetTargetOwnerTrait,
     "TRAIT SETTING | gives the target's player card TRAIT with SETTING; as SETMYTRAIT"},
    {"SETMYOWNERTRAIT", 2, false, InTest::kRuns, SetSourceOwnerTrait,
     "TRAIT SETTING | gives the acting card's player card TRAIT with SETTING; as SETMYTRAIT"},
    {"REMOVETRAIT", 1, false, InTest::kRuns, RemoveTargetTrait,
     "TRAIT | takes TRAIT from the target; fails softly without it"},
    {"REMOVEMYTRAIT", 1, false, InTest::kRuns, RemoveSourceTrait,
     "TRAIT | takes TRAIT from the acting card; fails softly without it"},
    {"MODVAL", 1, false, InTest::kRuns, ModIncoming,
     "VALUE | makes the incoming change bigger by VALUE; one below 0 makes it smaller, down to "
     "nothing"},
    {"SETVAL", 1, false, InTest::kRuns, SetIncoming, "VALUE | makes the incoming change VALUE"},
    {"REDIRECTTRAIT", 1, false, InTest::kRuns, RedirectTrait,
     "TRAIT | lets TRAIT take an incoming loss as far as it lasts"},
    {"REDIRECTRAIT", 1, false, InTest::kRuns, RedirectTrait, "TRAIT | the same as REDIRECTTRAIT"},
    {"MODTOKENS", 1, false, InTest::kSkipOne, AddTokens,
     "VALUE | adds VALUE to the player's tokens; ends the run if the balance would fall below 0"},
    {"SUBTOKENS", 1, false, InTest::kSkipOne, SubTokens,
     "VALUE | takes VALUE from the player's tokens; ends the run if there are not enough"},
    {"TRAIT", 2, false, InTest::kRuns, DeclareTrait,
     "TRAIT WORD | gives the action the trait TRAIT of its own; does nothing when it is reached",
     false, CommandRole::kDeclares},
});

}  // namespace

std::span<const Command> TraitCommands() { return kRows; }

}  // namespace brindlemoor
