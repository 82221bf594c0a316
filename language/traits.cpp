// Reading traits, bonuses included.
#include "language/traits.h"

#include "core/limits.h"
#include "core/state.h"
#include "language/values.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kNone = "NONE";

/// What the items of a card say about one trait.
struct TraitReading {
  const TraitItem* Item = nullptr;  ///< the last of that name
  double Bonus = 0;                 ///< value of the last bonus item
  double Base() const { return Item != nullptr ? Item->Number() : 0; }
  /// The field behind the name; "" for a trait without a value, and for none.
  std::string_view Value() const { return Item != nullptr ? Item->Value() : ""; }
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

/// The item of the result is one of the card's.
TraitReading ReadTrait(const Card& card, const TraitName& name) {
  TraitReading reading;
  const std::uint64_t marks = TraitMarks(card);
  if ((marks & TraitMark(name.Key())) == 0) return reading;
  if ((marks & kBonusMark) == 0) {
    for (const TraitItem* item = card.Traits.end(); item-- != card.Traits.begin();) {
      if (!item->HasName(name)) continue;
      reading.Item = item;
      break;
    }
    return reading;
  }
  for (const TraitItem& item : card.Traits) {
    if (item.HasName(name)) reading.Item = &item;
    if (item.IsBonusFor(name)) reading.Bonus = BonusValue(card, item.Value());
  }
  return reading;
}

}  // namespace

Value GetTrait(const Card& card, const TraitName& name) {
  if (card.Name.empty()) return kNone;
  if (name.View() == "#ANY#") return 1;
  if (name.View().empty()) return kNone;
  const TraitReading reading = ReadTrait(card, name);
  if (reading.Bonus > 0) return reading.Bonus + reading.Base();
  if (reading.Item != nullptr && reading.Value().empty()) return 1;
  return reading.Value();
}

double TraitNumber(const Card& card, const TraitName& name) {
  if (card.Name.empty()) return 0;
  if (name.View() == "#ANY#") return 1;
  if (name.View().empty()) return 0;
  const TraitReading reading = ReadTrait(card, name);
  return reading.Base() + (reading.Bonus > 0 ? reading.Bonus : 0);
}

std::uint64_t MarksOfTraits(const SharedArray<TraitItem>& items) {
  std::uint64_t marks = 0;
  for (const TraitItem& item : items) marks |= item.Marks();
  return marks;
}

int TraitSlot(const Card& card, const TraitName& name) {
  if ((TraitMarks(card) & TraitMark(name.Key())) == 0) return 0;
  int slot = 0;
  for (const TraitItem& item : card.Traits) {
    ++slot;
    if (item.HasName(name)) return slot;
  }
  return 0;
}

}  // namespace brindlemoor
