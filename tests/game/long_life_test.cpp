// Many turns and many matches in one run: nothing grows. BRINDLEMOOR_LONG_LIFE=100 makes it 10,000
// turns and 1,000 matches.
#include "game/turn.h"
#include "simulation/automatic_player.h"
#include "tests/support/action_cards.h"
#include "tests/support/process_size.h"
#include "tests/support/shipped_games.h"

namespace brindlemoor {
namespace {

class LongLifeTest : public ShippedGamesTest {
 protected:
  LongLifeTest() { desktop_->AcceptMessages = true; }

  /// What tests keep of a desktop, and the program does not.
  void ForgetWhatWasShown() const {
    desktop_->Messages.clear();
    desktop_->Navigations.clear();
    desktop_->UnexpectedDialogs.clear();
  }
  void PlayTurn() const {
    PlanAutomaticPlays();
    TakeTurn(0);
    ForgetWhatWasShown();
  }
};

TEST_F(LongLifeTest, AMatchOfManyTurns) {
  OpenStarterChest();
  ExpectWholeDeck();
  ChooseGame(1, OpponentNamed("Oona Ebb"));
  // Nobody wins: both keepers are mended at the start of every turn. Without cards to draw a keeper
  // loses more with each turn.
  for (const char* trait : {"HP", "HPMAX"}) {
    GiveAction(State().RulesCard, "TURNSTART", "ALL",
               Joined("REQTRAIT:PLAYER:SETTRAIT:", trait, ":1000000"));
  }
  ExpectFlat("turns", LongLife(100), [this] {
    ASSERT_EQ(State().GameOver, 0);
    PlayTurn();
  });
}

TEST_F(LongLifeTest, ManyMatches) {
  OpenStarterChest();
  int turns = 0;
  ExpectFlat("matches", LongLife(10), [&] {
    ExpectWholeDeck();
    ChooseGame(1, OpponentNamed("Oona Ebb"));
    for (int turn = 0; turn < 100 && State().GameOver == 0; ++turn, ++turns) PlayTurn();
    EndGame();
    NewGame();
  });
  EXPECT_GT(turns, LongLife(10));
}

}  // namespace
}  // namespace brindlemoor
