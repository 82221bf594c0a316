// Reading traits in the plain engine: every field is a text of its own, and names are compared by
// folding both.
#include "language/traits.h"

#include <string>

#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/values.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

std::string Name(std::string_view item) { return GetDS(item, 1, ":"); }

/// The value of a bonus item, 0 beyond the bounds of limits.h.
double BonusValue(const Card& card, const std::string& expression) {
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

}  // namespace

Value GetTrait(const Card& card, const TraitName& name) {
  if (card.Name.empty()) return "NONE";
  if (name.View() == "#ANY#") return 1;
  const std::string wanted = FoldUpper(name.View());
  if (wanted.empty()) return "NONE";
  const std::string bonusName = "BONUS" + wanted;
  Value value;
  double bonus = 0;
  for (const TraitItem& item : card.Traits) {
    const std::string present = FoldUpper(Name(item));
    if (present == wanted) {
      const std::string written = GetDS(item.View(), 2, ":");
      value = written.empty() ? Value(1) : Value(Text(written));
    }
    if (present == bonusName) bonus = BonusValue(card, GetDS(item.View(), 2, ":"));
  }
  return bonus > 0 ? Value(bonus + value.Number()) : value;
}

double TraitNumber(const Card& card, const TraitName& name) {
  return GetTrait(card, name).Number();
}

std::uint64_t MarksOfTraits(const SharedArray<TraitItem>&) { return 1; }

int TraitSlot(const Card& card, const TraitName& name) {
  const std::string wanted = FoldUpper(name.View());
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (FoldUpper(Name(card.Traits[item])) == wanted) return item;
  }
  return 0;
}

}  // namespace brindlemoor
