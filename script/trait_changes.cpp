// Writing traits: reactions before a change, the redirection of losses, actions that come with a
// trait.
#include "script/trait_changes.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "script/action_trace.h"
#include "script/firing.h"
#include "script/run_action.h"
#include "script/trait_actions.h"
#include "script/triggers.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kBonus = "BONUS";

/// False when the first characters of two texts differ, which is how most texts differ.
bool MayFoldAlike(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty() || !IsAscii(a.front()) || !IsAscii(b.front())) return true;
  return AsciiUpper(a.front()) == AsciiUpper(b.front());
}

/// FoldPrefixLength for a prefix that few texts begin with.
int RareFoldPrefix(std::string_view text, std::string_view prefix) {
  return MayFoldAlike(text, prefix) ? FoldPrefixLength(text, prefix) : -1;
}

/// The item that a trait of this name is written to: its own, else a free or new one; 0 when the
/// card can hold no more.
int ItemToWrite(Card& card, const TraitName& name) {
  int free = 0;
  int number = 0;
  for (const TraitItem& item : card.Traits) {
    ++number;
    if (item.empty()) {
      if (free == 0) free = number;
    } else if (item.HasName(name)) {
      return number;
    }
  }
  if (free != 0) return free;
  const int added = card.Traits.UpperBound() + 1;
  if (added > limits::kCardItems) {
    limits::ReportLimit("A card has too many traits: one was left out.");
    return 0;
  }
  card.Traits.Resize(added);
  card.TraitCaptions.Resize(added);
  return added;
}

/// A bonus needs a trait to add to.
void AddBonusBase(Card& card, std::string_view name, int keepActions) {
  const int bonus = RareFoldPrefix(name, kBonus);
  if (bonus < 0 || name.size() > limits::kTraitNameBytes) return;
  const std::string_view base = name.substr(static_cast<std::size_t>(bonus));
  if (!base.empty() && !HasTrait(card, base)) SetTrait(card, base, kBonus, keepActions);
}

/// The number of the first action from there on that reacts to changes of the trait, 0 for none.
int ReactionFrom(int first, const Card& card, std::string_view name) {
  int number = first - 1;
  for (const CardEffect* effect = card.Effects.begin() + number; effect != card.Effects.end();
       ++effect) {
    ++number;
    if (effect->Trigger.size() <= kBeforeTraitChange.size()) continue;  // folding never adds bytes
    const std::string_view trigger = effect->Trigger;
    const int prefix = RareFoldPrefix(trigger, kBeforeTraitChange);
    if (prefix < 0) continue;
    if (FoldEquals(trigger.substr(static_cast<std::size_t>(prefix)), name)) return number;
  }
  return 0;
}

/// What causes a change.
struct Cause {
  Card& Other;
  int TestRun;
  const Text& Script;
  bool Paying;
};

/// For who listens: the change that a run counted as made was cancelled.
void TellCancel(const Card& card, int reaction, const Answer& answer) {
  if (State().Trace == nullptr) [[likely]]
    return;
  State().Trace->Voided(Obstacle::kCancelled, CanceledBy(card, reaction, answer.SourceFails));
}

/// The same of a change that is none, from the beginning or by reactions.
void TellNoChange(const Card& card, std::string_view trait, double asked) {
  if (State().Trace == nullptr) [[likely]]
    return;
  const std::string change = Joined(trait, " of ", card.Name, " changes by 0");
  if (asked == 0) {
    State().Trace->Voided(Obstacle::kNoEffect, change);
  } else {
    State().Trace->Voided(Obstacle::kCancelled,
                          Joined(change, " in place of ", asked, ", by its BEFORETRAITCHANGE"));
  }
}

/// Lets the BEFORETRAITCHANGE reactions see a change. False when one of them cancelled it.
bool OfferChange(Card& card, const TraitName& name, double& amount, const Cause& cause) {
  State().Work.SpendOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  if ((TriggerMarks(card) & BeforeChangeMark(name.Key())) == 0) return true;
  int index = ReactionFrom(1, card, name.View());
  if (index == 0) return true;
  RunOptions options;
  options.CostMode = cause.Paying ? 1 : -1;
  options.Paying = cause.Paying;
  options.TestRun = cause.TestRun;
  options.Amount = &amount;
  options.IncomingScript = cause.Script;
  for (; index != 0;
       index = index < card.Effects.UpperBound() ? ReactionFrom(index + 1, card, name.View()) : 0) {
    Answer answer;
    {
      const OwnFiring reaction;
      BeginFiring();
      options.AnswerTo = &answer;
      RunAction(card, cause.Other, index, options);
    }
    if (answer.Cancels) {
      State().CancelState = 1;  // the run that makes the change stops at its next command
      TellCancel(card, index, answer);
      return false;
    }
  }
  return true;
}

/// Lets the trait that a reaction named take a loss. True when nothing of it is left.
bool RedirectLoss(Card& card, double& amount, const Cause& cause) {
  Session& state = State();
  const Text redirect = state.RedirectTraitName;
  if (amount >= 0 || redirect.empty()) return false;
  const double have = TraitNumber(card, redirect);
  if (have == 0) return false;
  if (have + amount <= 0) {
    SetTrait(card, redirect, 0, 0);
    amount = have + amount;
    return false;
  }
  if (state.TraitRedirectDepth >= limits::kTraitRedirects) {
    limits::ReportLimit("Traits hand a change on to one another without an end.");
    return false;
  }
  ++state.TraitRedirectDepth;
  ModTrait(card, redirect, amount, cause.Other, cause.TestRun, cause.Script, cause.Paying);
  --state.TraitRedirectDepth;
  return true;
}

/// Writes the value of a trait to an item; false when it is there already.
bool WriteItem(Card& card, int item, const TraitName& name, const Value& value) {
  const TraitItem& present = card.Traits[item];
  const bool keepsName = present.Name() == name.View() && !present.Name().empty();
  if (keepsName && value.IsNumber() && present.Number() != value.Number() &&
      TraitItem::IsWhole(value.Number())) {
    TraitItem changed = present.WithWhole(value.Number());
    card.Traits.EditAlike(item) = std::move(changed);
    return true;
  }
  const std::string printed = value.Str();
  if (present.IsWritten(name.View(), printed)) return false;
  card.Traits.Edit(item) = TraitItem(name, printed);
  return true;
}

}  // namespace

void SetTrait(Card& card, const TraitName& name, const Value& value, int keepActions) {
  Session& state = State();
  if (name.View() == "HP") state.HpReport = 1;
  state.Work.SpendOnSearch(static_cast<std::size_t>(card.Traits.UpperBound()));
  const int item = ItemToWrite(card, name);
  if (item == 0) return;
  const std::string full(name.View());  // the caller's name may lie in a text that is replaced here
  const TraitName own(full, name.Key());
  if (!WriteItem(card, item, own, value)) return;
  const std::size_t nameSize = card.Traits[item].Name().size();
  if (card.ChangedTraits.size() + full.size() < limits::kChangedTraitBytes) {
    state.Work.SpendOnText(card.ChangedTraits.size());
    card.ChangedTraits.Append(full, ":");
  } else {
    limits::ReportLimit("Too many changed traits of a card wait: one is not told of.");
  }

  // Files write a trait with its value as the name; from here on the name alone counts.
  const TraitName bare = nameSize == full.size() ? own : TraitName(own.View().substr(0, nameSize));
  const TraitBit bit = TraitBitOf(bare);
  if (bit.Word != -1) card.TraitBits[bit.Word] |= bit.BitValue;
  AddBonusBase(card, bare.View(), keepActions);
  card.TraitActionsApplied = 0;
  if (keepActions == 0 && state.TraitActionsPaused == 0) ApplyTraitActions(card, bare);
}

void ModTrait(Card& card, const TraitName& name, double& amount, Card& other, int testRun,
              const Text& script, bool paying) {
  Session& state = State();
  // Reactions may replace the text that the caller's name lies in.
  const std::string kept(name.View());
  const TraitName own(kept, name.Key());
  state.RedirectTraitName = Text();
  const Cause cause{other, testRun, script, paying};
  const double asked = amount;
  if (!OfferChange(card, own, amount, cause)) return;
  if (amount == 0) TellNoChange(card, kept, asked);
  state.LastValue = std::fabs(amount);
  if (RedirectLoss(card, amount, cause)) return;
  SetTrait(card, own, amount + TraitNumber(card, own), 0);
}

void RemoveTrait(Card& card, std::string_view name) {
  const std::string own(name);
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (card.Traits[item].empty() || card.Traits[item].Name() != own) continue;
    card.Traits.Edit(item) = Text();
    if (card.TraitCaptions.Holds(item)) card.TraitCaptions.Edit(item) = Text();
  }
  const std::string_view bare = FieldAt(own, 1, ':');
  const TraitName removed(bare);
  const TraitBit bit = TraitBitOf(removed);
  if (bit.Word != -1) card.TraitBits[bit.Word] &= ~bit.BitValue;
  // A bonus that stays behind is read as the trait's value all the same.
  const auto raises = [&removed](const TraitItem& item) { return item.IsBonusFor(removed); };
  if (std::any_of(card.Traits.begin(), card.Traits.end(), raises)) DoubtTraitBit(removed);
  RemoveTraitEffects(card, bare);
  card.TraitActionsApplied = 0;
}

}  // namespace brindlemoor
