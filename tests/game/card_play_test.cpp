// Paying for cards, tests that leave no trace, the enemy's menu actions and the end of bonuses.
#include "game/card_play.h"

#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardPlayTest : public SessionTest {
 protected:
  CardPlayTest() : player_(PutPlayerCard(1, {"MANA:5", "HEARTS:1"})) {
    PutPlayerCard(2);
    State().PageText = "page";
    State().PhaseBanner = "banner";
  }
  static Card PricedCard(const std::vector<std::string>& costs, std::string_view target = "OWNER") {
    Card card = MakeCard("Priced", 1);
    for (const std::string& cost : costs) GiveAction(card, "COST", target, cost);
    return card;
  }
  double Mana() const { return TraitNumber(player_, "MANA"); }

  Card& player_;
};

TEST_F(CardPlayTest, PricesAreTestedWholeAndPaidOnce) {
  const struct {
    const char* What;
    std::vector<std::string> Costs;
    bool Payable;
    double ManaAfter;
  } cases[] = {
      {"no price", {}, true, 5},
      {"one price", {"SUBTRAIT:MANA:3"}, true, 2},
      {"too dear", {"SUBTRAIT:MANA:6"}, false, 5},
      {"exactly all", {"SUBTRAIT:MANA:5"}, true, 0},
      {"the second fails", {"SUBTRAIT:MANA:1", "REQTRAIT:ABSENT"}, false, 5},
      {"both together are too dear", {"SUBTRAIT:MANA:3", "SUBTRAIT:MANA:3"}, false, 5},
      {"both together", {"SUBTRAIT:MANA:3", "SUBTRAIT:MANA:2"}, true, 0},
      {"a soft failure is no failure", {"SUBTRAIT:GOLD:0", "CHANCE:0:SUBTRAIT:MANA:1"}, true, 5},
      {"a requirement alone", {"REQTRAIT:HEARTS"}, true, 5},
  };
  for (const auto& row : cases) {
    SetTrait(player_, "MANA", 5, 0);
    player_.ChangedTraits = Text();
    const Card card = PricedCard(row.Costs);
    const std::string table = Dump(State().CardTable);
    EXPECT_EQ(PayCost(card, Payment::kIsTested), row.Payable) << row.What;
    EXPECT_EQ(Dump(State().CardTable), table) << row.What << ": a test leaves a trace";
    EXPECT_EQ(PayCost(card, Payment::kIsMade), row.Payable) << row.What;
    EXPECT_EQ(Mana(), row.ManaAfter) << row.What;
    EXPECT_TRUE(row.Payable || Dump(State().CardTable) == table) << row.What;
  }
  State().DebugMode = 1;
  EXPECT_TRUE(PayCost(PricedCard({"REQTRAIT:ABSENT"}), Payment::kIsMade))
      << "cards are free in debug mode";
}

TEST_F(CardPlayTest, ATestLeavesNoTraceOnCardsThatFilesPutIntoTheTable) {
  // Such cards are not told their slot.
  player_.Slot = 0;
  Card& stone = PutInPlay(MakeCard("Stone", 3, {"X:1"}));
  stone.Slot = 0;
  const std::string table = Dump(State().CardTable);
  EXPECT_TRUE(PayCost(PricedCard({"SUBTRAIT:MANA:3"}), Payment::kIsTested));
  EXPECT_TRUE(PayCost(PricedCard({"MODTRAIT:X:1"}, "ALL"), Payment::kIsTested));
  EXPECT_EQ(Dump(State().CardTable), table);
}

TEST_F(CardPlayTest, RulesAndCardsChangePrices) {
  const Card card = PricedCard({"SUBTRAIT:MANA:SRCTRAIT/PRICE"});
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "MODTRAIT:PRICE:2");
  EXPECT_TRUE(PayCost(card, Payment::kIsMade));
  EXPECT_EQ(Mana(), 3);

  Card& tax = PutInPlay(MakeCard("Tax", 2));
  GiveAction(tax, "COSTMOD", "SELF", "REQNAME:Priced:MODTRAIT:PRICE:4:SETMYTRAIT:TAXED:1");
  tax.InPlay = 0;
  EXPECT_FALSE(PayCost(card, Payment::kIsTested))
      << "cards change prices of both sides, in play or not";
  EXPECT_FALSE(PayCost(card, Payment::kIsMade));
  EXPECT_EQ(Mana(), 3);
  EXPECT_FALSE(HasTrait(tax, "TAXED")) << "a copy of the card acts";
  FreeCard(tax);
  EXPECT_TRUE(PayCost(card, Payment::kIsTested));
  EXPECT_FALSE(HasTrait(card, "PRICE"));
}

TEST_F(CardPlayTest, OnlyAPaymentSaysWhatItTook) {
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "ECHO:Taxed.");
  EXPECT_FALSE(PayCost(PricedCard({"REQTRAIT:ABSENT"}), Payment::kIsMade));
  EXPECT_EQ(State().PhaseBanner, "banner");
  EXPECT_TRUE(PayCost(PricedCard({"SUBTRAIT:MANA:1:ECHO:One mana."}), Payment::kIsMade));
  EXPECT_NE(State().PhaseBanner.find("Taxed."), std::string::npos);
  EXPECT_NE(State().PhaseBanner.find("One mana."), std::string::npos);
}

TEST_F(CardPlayTest, TheEnemyArmsMenuActionsWithACleanTarget) {
  const struct {
    const char* What;
    int Owner;
    const char* Script;
    std::uint8_t Before, After;
  } cases[] = {
      {"a clean target", 2, "REQISPLAYER:MODTRAIT:HP:1", kMenuAction, kArmedMenuAction},
      {"no target", 2, "REQTRAIT:ABSENT", kMenuAction, kMenuAction},
      {"only a partial target", 2, "AIREQTRAIT:ABSENT:MODTRAIT:HP:1", kMenuAction, kMenuAction},
      {"armed, but the target has gone", 2, "REQTRAIT:ABSENT", kArmedMenuAction, kMenuAction},
      {"the human's", 1, "MODTRAIT:HP:1", kMenuAction, kMenuAction},
      {"the human's, armed", 1, "REQTRAIT:ABSENT", kArmedMenuAction, kArmedMenuAction},
      {"no menu action", 2, "MODTRAIT:HP:1", kOrdinaryAction, kOrdinaryAction},
  };
  for (const auto& row : cases) {
    Card& card = PutInPlay(MakeCard("Menu", row.Owner));
    GiveAction(card, "PHASE1", "RANDOM", row.Script);
    card.Effects.Edit(1).MenuState = row.Before;
    PlanEnemyMenuActions();
    EXPECT_EQ(card.Effects[1].MenuState, row.After) << row.What;
    EXPECT_EQ(card.Effects[1].ChosenTarget, 0) << row.What;
    FreeCard(card);
  }
}

TEST_F(CardPlayTest, BonusesExpire) {
  Card& card = PutInPlay(MakeCard("Hero", 1));
  for (const char* trait : {"ARMOR:1", "BONUSHP:3", "BONUSLUCK", "bonusTEST:1", "ATTACK:BONUS",
                            "SPEED:bonus", "POWER:5", "MYBONUS:1", "LUCK:BONUSES", "BONU:1"}) {
    card.Traits.Append(trait);
    card.TraitCaptions.Append("");
  }
  GiveAction(card, "PHASE1", "SELF", "MODTRAIT:HP:1");
  GiveAction(card, "PHASE2", "SELF", "TRAIT:BONUSACTION:1:MODTRAIT:HP:2");
  GiveAction(card, "PHASE3", "SELF", "TRAIT:OTHER:1:TRAIT:BONUSACTION:1:MODTRAIT:HP:3");
  GiveAction(card, "PHASE4", "SELF", "ADDEFFECT:PHASE2:SELF:TRAIT:BONUSACTION:1:MODTRAIT:HP:4");
  ExpireBonuses();
  std::string left;
  for (const Text& trait : card.Traits) left += trait.empty() ? "" : trait.Str() + " ";
  for (const CardEffect& effect : card.Effects) left += effect.Trigger.Str() + ",";
  EXPECT_EQ(left, "ARMOR:1 SPEED:bonus POWER:5 MYBONUS:1 LUCK:BONUSES BONU:1 PHASE1,,,PHASE4,");
  EXPECT_TRUE(card.Effects[2].Script.empty() && card.Effects[3].Script.empty());
}

}  // namespace
}  // namespace brindlemoor
