// What the automatic player plans for side 1.
#include "game/automatic_player.h"

#include <gtest/gtest.h>

#include "script/target_types.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using AutomaticPlayerTest = SessionTest;

TEST_F(AutomaticPlayerTest, QueuesWhatCanBePaidInHandOrder) {
  PutPlayerCard(1, {"MANA:1"});
  State().PlayQueue[1] = 9;
  State().PlayTarget[1] = -1;
  const std::pair<int, const char*> hand[] = {
      {2, "REQMYOWNERTRAITMORE:MANA:1"}, {5, "REQMYOWNERTRAITMORE:MANA:2"}, {10, ""}};
  for (const auto& [position, cost] : hand) {
    Card& card = State().Players[1].Hand[position];
    card = MakeCard("Imp", 1);
    if (*cost != 0) AddEffect(card, cost, kTargetSelf, "COST", 0, "SELF");
  }
  PlanAutomaticPlays();
  FixedTable<std::uint8_t, 10> expected;
  expected[1] = 2;
  expected[2] = 10;
  EXPECT_EQ(State().PlayQueue, expected);
  EXPECT_EQ(State().PlayTarget, (FixedTable<std::int16_t, 10>{}));
}

TEST_F(AutomaticPlayerTest, ArmsMenuActionsWithACleanTarget) {
  PutPlayerCard(1);
  Card& victim = PutInPlay(MakeCard("Victim", 2, {"WEAK"}));
  struct {
    int owner, type;
    const char* script;
    int state, target;
  } const cases[] = {
      {1, kTargetCard, "REQTRAIT:WEAK:DESTROY", kArmedMenuAction, victim.Slot},
      {1, kTargetRandomEnemy, "REQTRAIT:WEAK:DESTROY", kArmedMenuAction, 0},
      {1, kTargetCard, "REQTRAIT:STRONG:DESTROY", kMenuAction, 0},
      {1, kTargetCollection, "MODTRAIT:HP:1", kMenuAction, 0},
      {2, kTargetCard, "REQTRAIT:WEAK:DESTROY", kMenuAction, 0},
  };
  for (const auto& row : cases) {
    Card card = MakeCard("Mage", row.owner);
    AddEffect(card, row.script, row.type, "MENU:PHASE1:Zap", 0, TargetTypeName(row.type));
    const Card& mage = PutInPlay(card);
    PlanAutomaticPlays();
    EXPECT_EQ(mage.Effects[1].MenuState, row.state) << row.owner << " " << row.script;
    EXPECT_EQ(mage.Effects[1].ChosenTarget, row.target) << row.owner << " " << row.script;
  }
}

}  // namespace
}  // namespace brindlemoor
