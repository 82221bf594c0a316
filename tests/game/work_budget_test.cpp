// Scripts that would take forever: where they end, what the page says, and that the game goes on.
#include "core/work_budget.h"

#include "game/card_play.h"
#include "game/turn.h"
#include "script/card_entry.h"
#include "script/run_action.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class WorkBudgetTest : public SessionTest {
 protected:
  WorkBudgetTest() {
    TheMainWindow();
    PutPlayerCard(1, {"HP:20"});
    PutPlayerCard(2, {"HP:20"});
    State().RulesCard.Initialised = 1;
    GiveAction(State().RulesCard, "TURNSTART", "OWNER", "MODTRAIT:TURNS:1");
    for (int number = 1; number <= 40; ++number) {
      Card& card = PutInPlay(MakeCard(Joined("Mill ", number), 1 + number % 2));
      for (int action = 1; action <= 20; ++action) {
        GiveAction(card, "PHASE3", "ALL", "MODTRAIT:GRIST:1:REPEAT:ALL:1000");
      }
    }
    RebuildHitTable();
    State().Work.Limit = 30000;
  }
  static double Of(int side, std::string_view trait) {
    return TraitNumber(State().CardTable[State().Players[side].PlayerCard], trait);
  }
  static std::string Report() {
    return static_cast<HeadlessPlatform&>(*State().Desktop).Pages["WB"];
  }
};

TEST_F(WorkBudgetTest, ATurnThatSpendsItEndsNamesTheCardAndTheGameGoesOn) {
  for (int turn = 1; turn <= 3; ++turn) {
    TakeTurn(1);
    EXPECT_EQ(Of(1, "TURNS"), turn) << "every turn has a budget of its own";
    EXPECT_NE(Report().find("a script of \"Mill 1\" that took the last step"), std::string::npos);
    EXPECT_GE(State().Work.Most, State().Work.Limit);
    EXPECT_LT(State().Work.Most, State().Work.Limit + 100) << "it ends where it is spent";
    EXPECT_EQ(Joined(State().RunDepth, " ", State().Work.Accounts), "0 0");
  }
}

TEST_F(WorkBudgetTest, TheSameFilesAndSeedEndAtTheSameStep) {
  const Pile table = State().CardTable;
  const RandomSource random = State().Random;
  TakeTurn(1);
  const std::string first = Dump(State().CardTable);
  State().CardTable = table;
  State().Random = random;
  TakeTurn(1);
  EXPECT_EQ(Dump(State().CardTable), first);
}

TEST_F(WorkBudgetTest, TheDesktopServesItsWindowsInTheMiddleOfIt) {
  State().Work.Limit = 100000;
  auto& desktop = static_cast<HeadlessPlatform&>(*State().Desktop);
  int served = 0;
  desktop.OnWork = [&served] { ++served; };
  TakeTurn(1);
  EXPECT_GE(State().Work.Most, State().Work.Limit);
  EXPECT_GE(served, 8);
  EXPECT_LE(served, 10);
  EXPECT_FALSE(State().Work.IsSpent()) << "outside of an account";
}

TEST_F(WorkBudgetTest, NothingIsPaidPlayedOrLostOnceItIsSpent) {
  Card card = MakeCard("Imp", 1);
  GiveAction(card, "COST", "OWNER", "MODTRAIT:MANA:-1");
  State().Players[1].Hand[1] = card;
  QueuePending(MakeCard("Late", 1));
  Card sleeper = MakeCard("Sleeper", 1);
  sleeper.ActivateOn = "PHASE5";
  GiveAction(sleeper, "ENTERPLAY", "SELF", "MODTRAIT:AWAKE:1");
  AddToTable(sleeper);
  {
    const WorkAccount account;
    SpendWork(State().Work.Limit);
    EXPECT_FALSE(PayCost(card, Payment::kIsTested))
        << "a card whose price is not asked is not free";
    FlushPending();
    FireHit("PHASE5");
    EXPECT_EQ(FireTrigger(State().RulesCard, "TURNSTART"), 0);
  }
  EXPECT_EQ(Of(1, "TURNS"), 0);
  EXPECT_EQ(NamesWith("AWAKE"), "");
  EXPECT_EQ(State().PendingCount, 1) << "it enters in the next turn";
  FireHit("PHASE5");
  FlushPending();
  EXPECT_EQ(NamesWith("AWAKE"), "Sleeper");
  EXPECT_EQ(State().PendingCount, 0);
}

TEST_F(WorkBudgetTest, CardsThatFindNoStepsLeftKeepTheirOrder) {
  for (const char* name : {"One", "Two", "Three"}) QueuePending(MakeCard(name, 1));
  Card& first = State().PendingCards[1];
  GiveAction(first, "ENTERPLAY", "SELF", "DUPLICATEME:1:0:ECHOMINOR:" + std::string(1 << 16, 'x'));
  State().Work.Limit = 150;
  {
    const WorkAccount account;
    FlushPending();
  }
  std::string waiting;
  for (int index = 1; index <= State().PendingCount; ++index) {
    waiting += State().PendingCards[index].Name.Str() + " ";
  }
  EXPECT_EQ(waiting, "Two Three One ");
}

/// What a script can make long without commands: every row alone spends the budget.
TEST_F(WorkBudgetTest, OtherWorkCountsToo) {
  const std::string count = "TRAITCOUNT/GRIST/ANY";
  std::string counts = count;
  for (int field = 0; field < 80; ++field) counts += "/" + count;
  State().Work.Limit = 2000;
  for (int n = 1; n <= 2000; ++n) PutInPlay(MakeCard("Grain", 0, {"GRIST"}));
  std::string bonuses;
  const struct {
    const char* What;
    std::string Script;
  } rows[] = {
      {"cards that are counted", "MODTRAIT:A:" + counts},
      {"dice", "MODTRAIT:A:R900000Die6"},
      {"text", "ECHOMINOR:" + std::string(1 << 20, 'x')},
      {"modifications", "ADDMOD:" + std::string(1 << 20, 'x')},
  };
  for (const auto& [what, script] : rows) {
    Card& card = State().CardTable[1];
    const int action = GiveAction(card, "PHASE9", "SELF", script);
    const WorkAccount account;
    RunAction(card, card, action);
    EXPECT_TRUE(WorkIsSpent()) << what;
  }
}

}  // namespace
}  // namespace brindlemoor
