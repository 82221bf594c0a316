// Writing traits in the plain engine: every field is a text of its own, and names are compared by
// folding both.
#include "script/trait_changes.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "script/firing.h"
#include "script/run_action.h"
#include "script/trait_actions.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

std::string Name(std::string_view item) { return GetDS(item, 1, ":"); }

/// The item of that name, else a free one, else a new one; 0 when the card can hold no more.
int ItemToWrite(Card& card, const std::string& name) {
  const std::string wanted = FoldUpper(name);
  int free = 0;
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (card.Traits[item].empty()) {
      if (free == 0) free = item;
    } else if (FoldUpper(Name(card.Traits[item])) == wanted) {
      return item;
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

void NoteChange(Card& card, const std::string& name) {
  if (card.ChangedTraits.size() + name.size() >= limits::kChangedTraitBytes) {
    limits::ReportLimit("Too many changed traits of a card wait: one is not told of.");
    return;
  }
  SpendWorkOnText(card.ChangedTraits.size());
  card.ChangedTraits = card.ChangedTraits.Str() + name + ":";
}

/// What causes a change.
struct Cause {
  Card& Other;
  int TestRun;
  const Text& Script;
  bool Paying;
};

/// False when a reaction cancelled the change.
bool OfferChange(Card& card, const std::string& name, double& amount, const Cause& cause) {
  SpendWorkOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  const std::string trigger = FoldUpper("BEFORETRAITCHANGE:" + name);
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (FoldUpper(card.Effects[effect].Trigger) != trigger) continue;
    Answer answer;
    {
      const OwnFiring reaction;
      BeginFiring();
      RunAction(card, cause.Other, effect,
                RunOptions{.CostMode = cause.Paying ? 1 : -1,
                           .TestRun = cause.TestRun,
                           .Amount = &amount,
                           .IncomingScript = cause.Script,
                           .Paying = cause.Paying,
                           .AnswerTo = &answer});
    }
    if (answer.Cancels) {
      State().CancelState = 1;
      return false;
    }
  }
  return true;
}

/// True when the trait that a reaction named has taken the whole loss.
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

}  // namespace

void SetTrait(Card& card, const TraitName& name, const Value& value, int keepActions) {
  if (name.View() == "HP") State().HpReport = 1;
  SpendWorkOnSearch(static_cast<std::size_t>(card.Traits.UpperBound()));
  const std::string full(name.View());
  const int item = ItemToWrite(card, full);
  if (item == 0) return;
  const std::string printed = value.Str();
  const std::string written = printed.empty() ? full : full + ":" + printed;
  const Text& present = card.Traits[item];
  if (present == written || present == full + ":" + printed) return;
  card.Traits.Edit(item) = Text(written);
  NoteChange(card, full);

  const std::string bare = Name(full);
  const TraitBit bit = TraitBitFor(bare);
  if (bit.Word != -1) card.TraitBits[bit.Word] |= bit.BitValue;
  const std::string base = bare.substr(std::min<std::size_t>(bare.size(), 5));
  if (FoldUpper(bare.substr(0, 5)) == "BONUS" && bare.size() <= limits::kTraitNameBytes &&
      !base.empty() && !HasTrait(card, base)) {
    SetTrait(card, base, "BONUS", keepActions);
  }
  card.TraitActionsApplied = 0;
  if (keepActions == 0 && State().TraitActionsPaused == 0) ApplyTraitActions(card, bare);
}

void ModTrait(Card& card, const TraitName& name, double& amount, Card& other, int testRun,
              const Text& script, bool paying) {
  Session& state = State();
  const std::string own(name.View());
  state.RedirectTraitName = Text();
  const Cause cause{other, testRun, script, paying};
  if (!OfferChange(card, own, amount, cause)) return;
  state.LastValue = std::fabs(amount);
  if (RedirectLoss(card, amount, cause)) return;
  SetTrait(card, own, amount + TraitNumber(card, own), 0);
}

void RemoveTrait(Card& card, std::string_view name) {
  const std::string own(name);
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (Name(card.Traits[item]) != own || card.Traits[item].empty()) continue;
    card.Traits.Edit(item) = Text();
    if (card.TraitCaptions.Holds(item)) card.TraitCaptions.Edit(item) = Text();
  }
  const std::string bare = Name(own);
  const TraitBit bit = TraitBitFor(bare);
  if (bit.Word != -1) card.TraitBits[bit.Word] &= ~bit.BitValue;
  for (const TraitItem& item : card.Traits) {
    if (FoldUpper(Name(item)) == "BONUS" + FoldUpper(bare)) DoubtTraitBit(bare);
  }
  RemoveTraitEffects(card, bare);
  card.TraitActionsApplied = 0;
}

}  // namespace brindlemoor
