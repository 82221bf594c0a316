// Paying for cards, tests that leave no trace, the enemy's menu actions and the end of bonuses.
#include "game/card_play.h"

#include "script/run_action.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardPlayTest : public SessionTest {
 protected:
  CardPlayTest() : player_(PutPlayerCard(1, {"MANA:5", "HEARTS:1"})), enemy_(PutPlayerCard(2)) {
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
  Card& enemy_;
};

TEST_F(CardPlayTest, PricesAreTestedWholeAndPaidOnce) {
  struct Case {
    const char* What;
    std::vector<std::string> Costs;
    int Answer;
    double ManaAfter;
  };
  const Case cases[] = {
      {"no price", {}, -1, 5},
      {"one price", {"SUBTRAIT:MANA:3"}, -1, 2},
      {"too dear", {"SUBTRAIT:MANA:6"}, 0, 5},
      {"exactly all", {"SUBTRAIT:MANA:5"}, -1, 0},
      {"the second fails", {"SUBTRAIT:MANA:1", "REQTRAIT:ABSENT"}, 0, 5},
      {"both together are too dear", {"SUBTRAIT:MANA:3", "SUBTRAIT:MANA:3"}, 0, 5},
      {"both together", {"SUBTRAIT:MANA:3", "SUBTRAIT:MANA:2"}, -1, 0},
      {"a soft failure is no failure", {"SUBTRAIT:GOLD:0", "CHANCE:0:SUBTRAIT:MANA:1"}, -1, 5},
      {"a requirement alone", {"REQTRAIT:HEARTS"}, -1, 5},
  };
  for (const Case& row : cases) {
    SetTrait(player_, "MANA", 5, 0);
    player_.ChangedTraits = Text();
    const Card card = PricedCard(row.Costs);
    const std::string table = Dump(State().CardTable);
    EXPECT_EQ(PayCost(card, 1), row.Answer) << row.What;
    EXPECT_EQ(Dump(State().CardTable), table) << row.What << ": a test leaves a trace";
    EXPECT_EQ(PayCost(card, 0), row.Answer) << row.What;
    EXPECT_EQ(Mana(), row.ManaAfter) << row.What;
    if (row.Answer == 0) {
      EXPECT_EQ(Dump(State().CardTable), table) << row.What;
    }
  }
}

TEST_F(CardPlayTest, ATestLeavesNoTraceWhateverThePriceDoes) {
  State().TraitActions[1] = MakeCard("CURSED", 1);
  GiveAction(State().TraitActions[1], "PHASE1", "SELF", "MODTRAIT:HP:-1");
  Card& victim = PutInPlay(MakeCard("Victim", 2, {"HP:3"}));
  GiveAction(victim, "BEFORETRAITCHANGE:HP", "SELF", "SETMYTRAIT:WARNED:1");
  State().CardTable.Resize(5);
  const char* costs[] = {
      "SETTRAIT:CURSED:1",
      "MODTRAIT:HP:-3:REMOVETRAIT:HP",
      "MINDCONTROL:DEFECT:JOIN:3",
      "ADDEFFECT:PHASE1:SELF:DESTROY",
      "ECHO:paid:ECHOMINOR:paid",
      "DESTROY:RETURNTOHAND:CHANGENAME:x",
      "SETTRAIT:X:1:REQTRAIT:ABSENT",
  };
  for (const char* target : {"ALL", "RANDOMENEMY", "TARGETCARD", "OWNER"}) {
    for (const char* cost : costs) {
      const Card card = PricedCard({cost}, target);
      const std::string table = Dump(State().CardTable);
      const std::string before = Dump(card);
      PayCost(card, 1);
      EXPECT_EQ(Dump(State().CardTable), table) << target << " " << cost;
      EXPECT_EQ(Dump(card), before) << target << " " << cost;
      EXPECT_EQ(State().PageText, "page") << cost;
      EXPECT_EQ(State().PhaseBanner, "banner") << cost;
    }
  }
}

TEST_F(CardPlayTest, CardsAreFreeInDebugMode) {
  State().DebugMode = 1;
  State().CostCard.InPlay = 0;
  const Card card = PricedCard({"SUBTRAIT:MANA:1", "REQTRAIT:ABSENT"});
  EXPECT_EQ(PayCost(card, 1), -1);
  EXPECT_EQ(PayCost(card, 0), -1);
  EXPECT_EQ(Mana(), 5);
  EXPECT_EQ(State().CostCard.InPlay, 1);
}

TEST_F(CardPlayTest, PayingSaysWhatItTook) {
  const Card card = PricedCard({"SUBTRAIT:MANA:1:ECHO:One mana."});
  PayCost(card, 1);
  EXPECT_EQ(State().PhaseBanner, "banner");
  PayCost(card, 0);
  EXPECT_NE(State().PhaseBanner.find("One mana."), std::string::npos);
}

TEST_F(CardPlayTest, RulesAndCardsChangePrices) {
  const Card card = PricedCard({"SUBTRAIT:MANA:SRCTRAIT/PRICE"});
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "MODTRAIT:PRICE:2");
  EXPECT_EQ(PayCost(card, 0), -1);
  EXPECT_EQ(Mana(), 3);

  Card waiting = MakeCard("Tax", 2);
  GiveAction(waiting, "COSTMOD", "SELF", "REQNAME:Priced:MODTRAIT:PRICE:4:SETMYTRAIT:TAXED:1");
  Card& tax = PutInPlay(waiting);
  tax.InPlay = 0;
  EXPECT_EQ(PayCost(card, 1), 0) << "cards change prices of both sides, in play or not";
  EXPECT_EQ(PayCost(card, 0), 0);
  EXPECT_EQ(Mana(), 3);
  EXPECT_FALSE(HasTrait(tax, "TAXED", "")) << "a copy of the card acts";
  FreeCard(tax);
  EXPECT_EQ(PayCost(card, 1), -1);
  EXPECT_FALSE(HasTrait(card, "PRICE", ""));
}

TEST_F(CardPlayTest, AFailedTestTakesBackWhatCostModifiersSaid) {
  GiveAction(State().RulesCard, "COSTMOD", "SELF", "ECHO:Taxed.");
  EXPECT_EQ(PayCost(PricedCard({"REQTRAIT:ABSENT"}), 0), 0);
  EXPECT_EQ(State().PhaseBanner, "banner");
  EXPECT_EQ(PayCost(PricedCard({}), 0), -1);
  EXPECT_NE(State().PhaseBanner.find("Taxed."), std::string::npos);
}

TEST_F(CardPlayTest, APaymentInsideARunKeepsTheRunsCards) {
  Card& breeder = PutInPlay(MakeCard("Breeder", 1));
  GiveAction(breeder, "COST", "OWNER", "SUBTRAIT:MANA:2");
  const int effect =
      GiveAction(breeder, "PHASE1", "SELF", "MODTRAIT:HP:1:DUPLICATE:9:1:MODTRAIT:HP:1");
  const Card* address = &State().CardTable[breeder.Slot];
  EXPECT_EQ(RunAction(breeder, breeder, effect), kRunClean);
  EXPECT_EQ(&State().CardTable[breeder.Slot], address);
  EXPECT_EQ(TraitNumber(breeder, "HP"), 2);
  EXPECT_EQ(State().PendingCount, 2);
  EXPECT_EQ(TraitNumber(State().PendingCards[1], "HP"), 1);
  EXPECT_EQ(Mana(), 1);
}

TEST_F(CardPlayTest, TheEnemyArmsMenuActionsWithACleanTarget) {
  struct Case {
    const char* What;
    int Owner;
    const char* Script;
    std::uint8_t Before, After;
  };
  const Case cases[] = {
      {"a clean target", 2, "REQISPLAYER:MODTRAIT:HP:1", kMenuAction, kArmedMenuAction},
      {"no target", 2, "REQTRAIT:ABSENT", kMenuAction, kMenuAction},
      {"only a partial target", 2, "AIREQTRAIT:ABSENT:MODTRAIT:HP:1", kMenuAction, kMenuAction},
      {"armed, but the target has gone", 2, "REQTRAIT:ABSENT", kArmedMenuAction, kMenuAction},
      {"the human's", 1, "MODTRAIT:HP:1", kMenuAction, kMenuAction},
      {"the human's, armed", 1, "REQTRAIT:ABSENT", kArmedMenuAction, kArmedMenuAction},
      {"no menu action", 2, "MODTRAIT:HP:1", kOrdinaryAction, kOrdinaryAction},
  };
  for (const Case& row : cases) {
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
  struct Case {
    const char* Trait;
    bool Stays;
  };
  const Case cases[] = {
      {"BONUSHP:3", false},    {"BONUSHP", false},       {"bonusTEST:1", false},
      {"ATTACK:BONUS", false}, {"ATTACK:bonus", true},   {"ATTACK:5", true},
      {"MYBONUS:1", true},     {"ATTACK:BONUSES", true}, {"BONU:1", true},
  };
  for (const Case& row : cases) {
    Card& card = PutInPlay(MakeCard("Hero", 1, {"ARMOR:1", row.Trait, "SHIELD:2"}));
    ExpireBonuses();
    std::string left;
    for (const Text& trait : card.Traits) {
      if (!trait.empty()) left += Joined(trait, " ");
    }
    EXPECT_EQ(left, Joined("ARMOR:1 ", row.Stays ? Joined(row.Trait, " ") : "", "SHIELD:2 "))
        << row.Trait;
    FreeCard(card);
  }
}

TEST_F(CardPlayTest, BonusActionsExpire) {
  Card& card = PutInPlay(MakeCard("Hero", 1));
  GiveAction(card, "PHASE1", "SELF", "MODTRAIT:HP:1");
  GiveAction(card, "PHASE1", "SELF", "TRAIT:BONUSACTION:1:MODTRAIT:HP:2");
  GiveAction(card, "PHASE1", "SELF", "TRAIT:OTHER:1:TRAIT:BONUSACTION:1:MODTRAIT:HP:3");
  GiveAction(card, "PHASE1", "SELF", "ADDEFFECT:PHASE2:SELF:TRAIT:BONUSACTION:1:MODTRAIT:HP:4");
  ExpireBonuses();
  ASSERT_EQ(card.Effects.UpperBound(), 4);
  EXPECT_EQ(card.Effects[1].Trigger, "PHASE1");
  for (const int expired : {2, 3}) {
    EXPECT_TRUE(card.Effects[expired].Script.empty());
    EXPECT_TRUE(card.Effects[expired].Trigger.empty());
  }
  EXPECT_EQ(card.Effects[4].Trigger, "PHASE1") << "it will make a bonus, it is none";
}

}  // namespace
}  // namespace brindlemoor
