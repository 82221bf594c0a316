// The trait store.
#include "core/traits.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/fold.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/run_action.h"
#include "script/trait_actions.h"
#include "script/values.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kBonus = "BONUS";
constexpr std::string_view kBeforeChange = "BEFORETRAITCHANGE:";
constexpr std::string_view kNone = "NONE";

std::string_view NameOfItem(std::string_view item) noexcept {
  return item.substr(0, item.find(':'));
}

/// False when the first characters of two texts differ, which is how most names differ.
bool MayFoldAlike(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty() || !IsAscii(a.front()) || !IsAscii(b.front())) return true;
  return AsciiUpper(a.front()) == AsciiUpper(b.front());
}

[[gnu::noinline]] bool ItemFoldsLike(std::string_view item, std::string_view name) {
  for (std::size_t index = 0; index < name.size(); ++index) {
    if (index == item.size() || name[index] == ':') return false;
    if (!IsAscii(item[index]) || !IsAscii(name[index])) return FoldEquals(NameOfItem(item), name);
    if (AsciiUpper(item[index]) != AsciiUpper(name[index])) return false;
  }
  return item.size() == name.size() || item[name.size()] == ':';
}

/// True when the name of an item folds like this one.
bool ItemHasName(std::string_view item, std::string_view name) {
  return MayFoldAlike(item, name) && ItemFoldsLike(item, name);
}

/// FoldPrefixLength for a prefix that few texts begin with.
int RareFoldPrefix(std::string_view text, std::string_view prefix) {
  return MayFoldAlike(text, prefix) ? FoldPrefixLength(text, prefix) : -1;
}

/// True when an item is a bonus for the trait of this name.
bool IsBonusFor(std::string_view item, std::string_view name) {
  const int bonus = RareFoldPrefix(item, kBonus);
  return bonus > 0 && ItemHasName(item.substr(static_cast<std::size_t>(bonus)), name);
}

/// What the items of a card say about one trait.
struct TraitReading {
  std::string_view Value;     ///< second field of the last item of that name
  bool WithoutValue = false;  ///< that item has no value: it reads 1
  double Bonus = 0;           ///< value of the last bonus item
  double Base() const { return WithoutValue ? 1 : NumericPrefix(Value); }
};

/// The numeric value of a bonus item's expression. An expression may read the very trait that it
/// raises, so depth and number of these evaluations are bounded; beyond, the bonus is 0.
double BonusValue(const Card& card, std::string_view expression) {
  Session& state = State();
  if (state.BonusDepth == 0) state.BonusCount = 0;
  if (state.BonusDepth >= limits::kNestedBonuses || state.BonusCount >= limits::kBonuses) {
    limits::ReportLimit("Bonus traits read one another without an end; the rest counts as 0.");
    return 0;
  }
  if (WorkIsSpent()) return 0;
  ++state.BonusCount;
  ++state.BonusDepth;
  const double value = EvalNumber(card, card, expression);
  --state.BonusDepth;
  return value;
}

/// The views of the result point into the card's items.
TraitReading ReadTrait(const Card& card, std::string_view name) {
  TraitReading reading;
  for (const Text& item : card.Traits) {
    if (ItemHasName(item, name)) {
      reading.Value = FieldAt(item, 2, ':');
      reading.WithoutValue = reading.Value.empty();
    }
    if (IsBonusFor(item, name)) {
      reading.Bonus = BonusValue(card, FieldAt(item, 2, ':'));
    }
  }
  return reading;
}

/// True when text is exactly the folded name.
bool IsFolded(std::string_view text, std::string_view name) {
  const std::size_t shorter = std::min(text.size(), name.size());
  for (std::size_t index = 0; index < shorter; ++index) {
    if (!IsAscii(name[index])) return FoldUpper(name) == text;
    if (text[index] != AsciiUpper(name[index])) return false;
  }
  return text.size() == name.size();
}

/// The value of the first TRAIT command whose name the test accepts.
template <class Test>
std::string_view ScriptTrait(std::string_view script, Test isName) {
  FieldWalker fields(script, ':');
  for (auto word = fields.Next(); !word.empty() && word != "ADDEFFECT"; word = fields.Next()) {
    // The value of a TRAIT that did not match is walked as an ordinary field.
    if (word == "TRAIT" && isName(fields.Next())) return fields.Next();
  }
  return kNone;
}

/// The item that a trait of this name is written to: its own, else a free or new one; 0 when the
/// card can hold no more.
int ItemToWrite(Card& card, std::string_view name) {
  int free = 0;
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    const Text& text = card.Traits[item];
    if (text.empty()) {
      if (free == 0) free = item;
    } else if (ItemHasName(text, name)) {
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

/// A bonus needs a trait to add to.
void AddBonusBase(Card& card, std::string_view name, int keepActions) {
  const int bonus = RareFoldPrefix(name, kBonus);
  if (bonus < 0 || name.size() > limits::kTraitNameBytes) return;
  const std::string_view base = name.substr(static_cast<std::size_t>(bonus));
  if (!base.empty() && !HasTrait(card, base, "")) SetTrait(card, base, kBonus, keepActions);
}

/// Lets the BEFORETRAITCHANGE reactions see a change. False when one of them cancelled it.
bool OfferChange(Card& card, std::string_view name, double& amount, Card& other, int testRun,
                 const Text& script) {
  SpendWorkOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  RunOptions options;
  options.TestRun = testRun;
  options.Amount = &amount;
  options.IncomingScript = script;
  for (int index = 1; index <= card.Effects.UpperBound(); ++index) {
    const std::string_view trigger = card.Effects[index].Trigger;
    const int prefix = RareFoldPrefix(trigger, kBeforeChange);
    if (prefix < 0 || !FoldEquals(trigger.substr(static_cast<std::size_t>(prefix)), name)) continue;
    RunAction(card, other, index, options);
    if (State().CancelState != 0) return false;
  }
  return true;
}

/// Lets the trait that a reaction named take a loss. True when nothing of it is left.
bool RedirectLoss(Card& card, double& amount, Card& other, int testRun, const Text& script) {
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
  ModTrait(card, redirect, amount, other, testRun, script);
  --state.TraitRedirectDepth;
  return true;
}

}  // namespace

Value GetTrait(const Card& card, std::string_view name) {
  if (card.Name.empty()) return kNone;
  if (name == "#ANY#") return 1;
  if (name.empty()) return kNone;
  const TraitReading reading = ReadTrait(card, name);
  if (reading.Bonus > 0) return reading.Bonus + reading.Base();
  if (reading.WithoutValue) return 1;
  return reading.Value;
}

double TraitNumber(const Card& card, std::string_view name) {
  if (card.Name.empty()) return 0;
  if (name == "#ANY#") return 1;
  if (name.empty()) return 0;
  const TraitReading reading = ReadTrait(card, name);
  return reading.Base() + (reading.Bonus > 0 ? reading.Bonus : 0);
}

bool HasTrait(const Card& card, std::string_view name, std::string_view script) {
  if (!script.empty() && ScriptTrait(script, [name](std::string_view field) {
                           return IsFolded(field, name);
                         }) != kNone) {
    return true;
  }
  return TraitSlot(card, name) != 0;
}

int TraitSlot(const Card& card, std::string_view name) {
  int slot = 0;
  for (const Text& item : card.Traits) {
    ++slot;
    if (ItemHasName(item, name)) return slot;
  }
  return 0;
}

void SetTrait(Card& card, std::string_view name, const Value& value, int keepActions) {
  if (name == "HP") State().HpReport = 1;
  SpendWorkOnSearch(static_cast<std::size_t>(card.Traits.UpperBound()));
  const int item = ItemToWrite(card, name);
  if (item == 0) return;
  const std::string full(name);  // the caller's name may lie in a text that is replaced here
  const std::string printed = value.Str();
  const std::string withValue = Joined(full, ":", printed);
  const Text& present = card.Traits[item];
  if (present == withValue || (printed.empty() && present == full)) return;
  card.Traits.Edit(item) = printed.empty() ? full : withValue;
  if (card.ChangedTraits.size() + full.size() < limits::kChangedTraitBytes) {
    SpendWorkOnText(card.ChangedTraits.size());
    card.ChangedTraits = Joined(card.ChangedTraits, full, ":");
  } else {
    limits::ReportLimit("Too many changed traits of a card wait: one is not told of.");
  }

  // Files write a trait with its value as the name; from here on the name alone counts.
  const std::string_view bare = NameOfItem(full);
  const TraitBit bit = TraitBitFor(bare);
  if (bit.Word != -1) card.TraitBits[bit.Word] |= bit.BitValue;
  AddBonusBase(card, bare, keepActions);
  card.TraitActionsApplied = 0;
  if (keepActions == 0 && State().TraitActionsPaused == 0) ApplyTraitActions(card, bare);
}

void ModTrait(Card& card, std::string_view name, double& amount, Card& other, int testRun,
              const Text& script) {
  Session& state = State();
  const std::string own(name);  // reactions may replace the text that the caller's name lies in
  state.RedirectTraitName = Text();
  if (!OfferChange(card, own, amount, other, testRun, script)) return;
  state.LastValue = std::fabs(amount);
  if (RedirectLoss(card, amount, other, testRun, script)) return;
  SetTrait(card, own, amount + TraitNumber(card, own), 0);
}

void RemoveTrait(Card& card, std::string_view name) {
  const std::string own(name);
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (NameOfItem(card.Traits[item]) != own || card.Traits[item].empty()) continue;
    card.Traits.Edit(item) = Text();
    if (card.TraitCaptions.Holds(item)) card.TraitCaptions.Edit(item) = Text();
  }
  const std::string_view bare = NameOfItem(own);
  const TraitBit bit = TraitBitFor(bare);
  if (bit.Word != -1) card.TraitBits[bit.Word] &= ~bit.BitValue;
  RemoveTraitEffects(card, bare);
  card.TraitActionsApplied = 0;
}

std::string_view ScriptTraitValue(std::string_view script, std::string_view name) {
  return ScriptTrait(script, [name](std::string_view field) { return field == name; });
}

bool ScriptHasField(std::string_view script, std::string_view text) {
  FieldWalker fields(script, ':');
  for (auto field = fields.Next(); !field.empty(); field = fields.Next()) {
    if (field == text) return true;
  }
  return false;
}

}  // namespace brindlemoor
