// The game that comes with the program: its files, and a match that is lost by doing nothing.
#include "game/turn.h"
#include "tests/support/shipped_games.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

TEST_F(ShippedGamesTest, FilesReadWithoutAProblem) {
  OpenStarterChest();
  for (int opponent = 2; opponent <= State().Games[1].Opponents.UpperBound(); ++opponent) {
    const std::string name = State().Games[1].Opponents[opponent].Name.Str();
    desktop_->ModalForms.clear();
    ExpectWholeDeck();
    ChooseGame(1, opponent);
    for (const Problem& problem : State().Problems) {
      ADD_FAILURE() << name << ": " << problem.File << ":" << problem.Line << ": "
                    << problem.Message;
    }
    EXPECT_EQ(desktop_->Pages["WB"].find("Unrecognized command"), std::string::npos) << name;
    EndGame();
    NewGame();
  }
}

TEST_F(ShippedGamesTest, ANewPlayerNeedsTheStarterChestFirst) {
  desktop_->ExpectedMessages = {
      "You do not have a deck for this game!\nPlease choose a starter deck or a card store."};
  ChooseGame(1, OpponentNamed("Oona Ebb"));
  EXPECT_NE(desktop_->Pages["WB"].find("Select an opponent"), std::string::npos);

  OpenStarterChest();
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_NE(ReadFile("Ann_Wickwater.plr").find("#CARD, COLLECTION, \"Attic Light\""),
            std::string::npos);
}

TEST_F(ShippedGamesTest, AMatchIsLostByDoingNothing) {
  OpenStarterChest();
  ExpectWholeDeck();
  ChooseGame(1, OpponentNamed("Oona Ebb"));
  constexpr int kTurns = 60;
  int turn = 0;
  while (State().GameOver == 0 && turn < kTurns) {
    TakeTurn(0);
    ++turn;
  }
  ASSERT_EQ(State().GameOver, 1) << "still undecided after " << kTurns << " turns";
  const std::string& page = desktop_->Pages["WB"];
  EXPECT_NE(page.find("Somebody rows you home."), std::string::npos) << page;
  EXPECT_LE(TraitNumber(State().CardTable[State().Players[1].PlayerCard], "HP"), 0);
  EXPECT_EQ(State().Players[1].Tokens, 510);
  EXPECT_NE(ReadFile("Ann_Wickwater.plr").find("#TOKENS, 510"), std::string::npos);

  MainWindow& window = TheMainWindow();
  EXPECT_EQ(window.Command1.Caption.Get(), "End Game");
  window.Command1.Click();
  EXPECT_EQ(window.Command1.Caption.Get(), "Take Turn");
  EXPECT_EQ(State().GameOver, 0);
  EXPECT_NE(desktop_->Pages["WB"].find("Select an opponent"), std::string::npos);
}

}  // namespace
}  // namespace brindlemoor
