// The small drawing of a deck.
#include "ui/deck_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kValueBars = 7;  ///< one more is for the cards without a value
constexpr double kLargest = 1e15;      ///< beyond, whole numbers are no longer told apart

/// The values of a deck's cards, and how many cards have none.
struct DeckValues {
  std::vector<double> Values;
  int Without = 0;
  int Cards() const { return static_cast<int>(Values.size()) + Without; }
  double Total() const { return std::accumulate(Values.begin(), Values.end(), 0.0); }
};

/// Adds the values of those of the traits that a card has.
DeckValues ValuesOf(const Pile& deck, const std::vector<std::string_view>& traits) {
  DeckValues found;
  for (const Card& card : deck) {
    if (IsFree(card)) continue;
    bool has = false;
    double value = 0;
    for (const std::string_view trait : traits) {
      if (!HasTrait(card, trait)) continue;
      has = true;
      value = std::clamp(value + TraitNumber(card, trait), -kLargest, kLargest);
    }
    if (has) {
      found.Values.push_back(value);
    } else {
      ++found.Without;
    }
  }
  std::ranges::sort(found.Values);
  return found;
}

bool MakesPrice(const Card& traitAction) {
  const auto& effects = traitAction.Effects;
  return std::any_of(effects.begin(), effects.end(), [](const CardEffect& effect) {
    return effect.Trigger == "COST" && !effect.Script.empty();
  });
}

/// The traits that are a price in this game; no two of them fold to the same.
std::vector<std::string_view> PriceTraits() {
  std::vector<std::string_view> traits;
  for (const Card& action : State().TraitActions) {
    const bool known = std::ranges::any_of(
        traits, [&action](std::string_view trait) { return FoldEquals(trait, action.Name); });
    if (!IsFree(action) && !known && MakesPrice(action)) traits.push_back(action.Name);
  }
  if (traits.empty()) traits = {"MANA", "HEARTS", "MONSTERS"};
  return traits;
}

/// The values, which are sorted, with one bar for each.
std::vector<ChartBar> BarsOfValues(const std::vector<double>& values) {
  std::vector<ChartBar> bars;
  for (std::size_t index = 0; index < values.size(); ++index) {
    if (index == 0 || values[index] != values[index - 1]) {
      bars.push_back({NumberText(values[index]), 0});
    }
    ++bars.back().Count;
  }
  return bars;
}

/// Ranges of equal width; the last one is open above. Fractions count under their whole number.
struct Ranges {
  double First = 0;  ///< where the first range begins
  double Width = 1;
  double Begin(std::size_t range) const { return First + static_cast<double>(range) * Width; }
  std::size_t RangeOf(double value) const {
    return static_cast<std::size_t>(
        std::min(std::floor((value - First) / Width), static_cast<double>(kValueBars - 1)));
  }
  std::string Label(std::size_t range) const {
    const double low = Begin(range);
    if (range == kValueBars - 1) return Joined(low, "+");
    if (Width == 1) return NumberText(low);
    return Joined(low, low < 0 ? " to " : "-", low + Width - 1);
  }
};

/// The narrowest ranges of a round width (1, 2, 5, 10, 20 and so on) with at most a quarter of the
/// values, which are sorted, in the open one.
Ranges RangesFor(const std::vector<double>& values) {
  Ranges ranges;
  for (int step = 0;; ++step) {
    ranges.First = std::floor(values.front() / ranges.Width) * ranges.Width;
    const auto open = std::ranges::lower_bound(values, ranges.Begin(kValueBars - 1));
    if ((values.end() - open) * 4 <= std::ssize(values)) return ranges;
    ranges.Width *= step % 3 == 1 ? 2.5 : 2;
  }
}

std::vector<ChartBar> BarsOfRanges(const std::vector<double>& values) {
  const Ranges ranges = RangesFor(values);
  std::array<int, kValueBars> counts{};
  for (const double value : values) ++counts[ranges.RangeOf(value)];
  std::vector<ChartBar> bars;
  for (std::size_t range = 0; range < kValueBars; ++range) {
    if (counts[range] > 0) bars.push_back({ranges.Label(range), counts[range]});
  }
  return bars;
}

std::vector<ChartBar> BarsOf(const DeckValues& found) {
  std::vector<ChartBar> bars = BarsOfValues(found.Values);
  if (bars.size() > kValueBars) bars = BarsOfRanges(found.Values);
  if (found.Without > 0) bars.push_back({"none", found.Without});
  return bars;
}

std::string CardsText(int count) { return Joined(count, count == 1 ? " card" : " cards"); }

}  // namespace

DeckChart ChartOfDeck(const Pile& deck, std::string_view trait) {
  if (!trait.empty()) {
    const DeckValues found = ValuesOf(deck, {trait});
    return {Joined(trait, ": ", found.Values.size(), " of ", CardsText(found.Cards()), ", ",
                   found.Total(), " in all"),
            BarsOf(found)};
  }
  const DeckValues found = ValuesOf(deck, PriceTraits());
  const std::string cards = CardsText(found.Cards());
  if (found.Values.empty()) return {cards, {}};
  return {Joined("Cost: ", cards, ", ", found.Total(), " in all"), BarsOf(found)};
}

}  // namespace brindlemoor
