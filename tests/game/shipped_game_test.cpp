// The game that comes with the program: its files, its starter decks and stores, and a match that
// is lost by doing nothing.
#include "game/deck_rules.h"
#include "game/turn.h"
#include "language/traits.h"
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

/// Every card of the collection is put into the first deck, as the deck manager does it.
void BuildDeckOfEverything() {
  Session& session = State();
  session.Decks[1].Cards = session.Collection;
  session.Collection.Reset(1);
}

TEST_F(ShippedGamesTest, EachStarterDeckIsADeckThatTheRulesAllow) {
  for (const char* chest : {"Starter Chest", "Mossy Trunk"}) {
    desktop_->Files().Remove(Joined(State().ProgramFolder, "/Ann_Wickwater.plr"));
    ChooseGame(1, OpponentNamed(chest));
    BuildDeckOfEverything();
    EXPECT_EQ(DeckTraitSum("#ANY#", 1, ""), 31) << chest;
    EXPECT_EQ(DeckTraitSum("PLAYER", 1, ""), 1) << chest;
    std::string message;
    EXPECT_EQ(CheckDeckRules({}, 1, State().DeckRules, message), 2) << chest << ": " << message;
    for (const Card& card : State().Decks[1].Cards) {
      const double copies = IsFree(card) ? 0 : DeckTraitSum("#ANY#", 1, card.UniqueID);
      EXPECT_LE(copies, 4) << card.Name.Str();
    }
    EndGame();
    NewGame();
  }
}

TEST_F(ShippedGamesTest, EverythingThatTheStoresSellIsGivenForItsPrice) {
  for (const char* store : {"Wick Shop", "Night Barge"}) {
    ChooseGame(1, OpponentNamed(store));
    const std::string& page = desktop_->Pages["WB"];
    EXPECT_EQ(page.find("NONE"), std::string::npos) << page;
    EXPECT_EQ(page.find("Player 2"), std::string::npos) << page;
    const int counter = State().Players[1].PlayerCard;
    const int sales = State().CardTable[counter].Effects.UpperBound();
    int sold = 0;
    for (int sale = 1; sale <= sales; ++sale) {
      const std::string caption = State().CardTable[counter].Effects[sale].MenuCaption.Str();
      if (caption.empty()) continue;
      State().Players[1].Tokens = 1000;
      State().Collection.Reset(1);
      State().CardTable[counter].Effects.Edit(sale).MenuState = kArmedMenuAction;
      TakeTurn(0);
      int given = 0;
      for (const Card& card : State().Collection) given += IsFree(card) ? 0 : 1;
      EXPECT_GE(given, 1) << caption;
      const std::string price = Joined("(", 1000 - State().Players[1].Tokens, " tokens)");
      EXPECT_NE(caption.find(price), std::string::npos) << caption;
      ++sold;
    }
    EXPECT_EQ(sold, 7) << store;
    EndGame();
    NewGame();
  }
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
