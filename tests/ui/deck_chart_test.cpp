// The drawing of a deck: what its bars count.
#include "ui/deck_chart.h"

#include "script/card_setup.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class DeckChartTest : public SessionTest {
 protected:
  static void Put(const std::vector<std::string>& traits, int copies = 1) {
    const Card card = MakeCard("Card", 1, traits);
    for (int copy = 0; copy < copies; ++copy) State().Decks[1].Cards.Append(card);
  }
  /// One card for each value of a trait.
  static void PutValues(std::string_view trait, const std::vector<double>& values) {
    State().Decks[1].Cards.Reset(1);
    for (const double value : values) Put({Joined(trait, ":", value)});
  }
  static void AddTraitAction(std::string_view name, std::string_view trigger) {
    Card action = MakeCard(name, 1);
    AddEffect(action, "SUBTRAIT:MANA:1", 0, std::string(trigger), 0, "OWNER");
    State().TraitActions.Append(action);
  }
  static std::string Drawn(std::string_view trait) {
    const DeckChart chart = ChartOfDeck(State().Decks[1].Cards, trait);
    std::string text = chart.Caption;
    for (const ChartBar& bar : chart.Bars) text += Joined(" | ", bar.Label, ": ", bar.Count);
    return text;
  }
};

TEST_F(DeckChartTest, CountsTheCardsByTheValueOfATrait) {
  EXPECT_EQ(Drawn("HP"), "HP: 0 of 0 cards, 0 in all");
  Put({"HP:10"}, 2);
  Put({"HP:2.5"});
  State().Decks[1].Cards.Append(Card{});
  Put({"hp"});
  EXPECT_EQ(Drawn("HP"), "HP: 4 of 4 cards, 23.5 in all | 1: 1 | 2.5: 1 | 10: 2");
  Put({"PLAYER", "MANA:4"});
  EXPECT_EQ(Drawn("HP"), "HP: 4 of 5 cards, 23.5 in all | 1: 1 | 2.5: 1 | 10: 2 | none: 1");
  EXPECT_EQ(Drawn("FISH"), "FISH: 0 of 5 cards, 0 in all | none: 5");
}

TEST_F(DeckChartTest, ManyValuesShareBars) {
  const std::pair<std::vector<double>, const char*> cases[] = {
      {{0, 1, 2, 3, 4, 5, 9}, " | 0: 1 | 1: 1 | 2: 1 | 3: 1 | 4: 1 | 5: 1 | 9: 1"},
      {{1, 2, 3, 4, 5, 6, 7, 100}, " | 1: 1 | 2: 1 | 3: 1 | 4: 1 | 5: 1 | 6: 1 | 7+: 2"},
      {{5, 7, 9, 10, 14, 20, 21, 29, 33, 34},
       " | 5-9: 3 | 10-14: 2 | 20-24: 2 | 25-29: 1 | 30-34: 2"},
      {{-7, -5, -4, -1, 0, 1, 2, 3},
       " | -8 to -7: 1 | -6 to -5: 1 | -4 to -3: 1 | "
       "-2 to -1: 1 | 0-1: 2 | 2-3: 2"},
      {{-2e300, -1e300, 0, 1, 2, 3, 4, 5, 1e300, 1.7e308}, ""},
  };
  for (const auto& [values, bars] : cases) {
    PutValues("HP", values);
    Put({});
    const DeckChart chart = ChartOfDeck(State().Decks[1].Cards, "HP");
    EXPECT_LE(chart.Bars.size(), 8U);
    EXPECT_EQ(chart.Bars.back(), (ChartBar{"none", 1}));
    int cards = 0;
    for (const ChartBar& bar : chart.Bars) cards += bar.Count;
    EXPECT_EQ(cards, static_cast<int>(values.size()) + 1) << Drawn("HP");
    EXPECT_NE(Drawn("HP").find(bars), std::string::npos) << Drawn("HP");
  }
}

TEST_F(DeckChartTest, TheGameSaysWhatACardCosts) {
  Put({"PLAYER", "OIL"});
  Put({"OIL:2", "CRUMBS:1", "CREATURE:9"}, 2);
  Put({"crumbs:3", "MANA:4"});
  Put({"CREATURE:9"}, 2);
  EXPECT_EQ(Drawn(""), "Cost: 6 cards, 4 in all | 4: 1 | none: 5") << "no prices: the usual three";
  AddTraitAction("OIL", "COST");
  AddTraitAction("CRUMBS", "COST");
  AddTraitAction("oil", "COST");
  AddTraitAction("CREATURE", "ENTERPLAY");
  EXPECT_EQ(Drawn(""), "Cost: 6 cards, 10 in all | 1: 1 | 3: 3 | none: 2");
  State().Decks[1].Cards.Reset(1);
  EXPECT_EQ(Drawn(""), "0 cards");
  Put({"MANA:4"});
  EXPECT_EQ(Drawn(""), "1 card") << "what is no price in this game is not drawn";
}

}  // namespace
}  // namespace brindlemoor
