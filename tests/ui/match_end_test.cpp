// The end of a match: what the panel tells, and the ways on from there.
#include "ui/match_end.h"

#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/program_start.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

/// A game in which PRIZE ends the match of the side that plays it, and an opponent without cards.
class MatchEndTest : public SessionTest {
 protected:
  MatchEndTest() {
    WriteFile("Goblins.txt", "#GAMERULES, Goblins, , , Goblins,\n#RULESCARD\n");
    WriteFile("Goblins/king_Enemy.txt",
              "#GAME, Goblins\n#CARD, #PLAYERCARD, King, , , , , #00FF00, \"\"\n"
              "#CARDINDECK, King, , , #00FF00, ,\n#TRAIT, PLAYER\n");
    WriteFile("Goblins/shop.txt",
              "#STARTERDECK\n#GAME, Goblins\n#CARD, #PLAYERCARD, Shop, , , , , #00FF00, \"\"\n"
              "#RULESCARD\n");
    WriteFile("Ann_Goblins.plr",
              "#PLAYERDECK\n#TOKENS, 42\n#CARD, INPLAYERDECK:1, Elf, , , , , , \n"
              "#CARD, COLLECTION, Elf, , , , , , \n");
    State().Profile = {"Ann", "Ann_Goblins.plr", "Goblins.txt"};
    StartProgram();
  }
  /// The opponent's portrait is clicked; the deck that the chooser shows is taken.
  void Begin(int opponent) {
    desktop_->ModalForms.push_back(
        [](Form& form) { static_cast<DeckManager&>(form).Command2.Click(); });
    ChooseGame(1, opponent);
    desktop_->ModalForms.clear();
  }
  void PlayScript(const std::string& script) {
    AddEffect(State().RulesCard, script, 7, "TURNSTART", 0, "SELF");
    window_.Command1.Click();
  }
  /// Three lines, the last only where there are new cards.
  std::string Told() const {
    const MatchEndPanel& end = window_.End;
    if (!end.Panel.Visible) return "nothing";
    return Joined(end.Verdict.Caption.Get(), "|", end.Facts.Caption.Get(),
                  end.NewCards.Visible ? "|" + end.NewCards.Caption.Get() : "");
  }

  MainWindow& window_ = TheMainWindow();
  static constexpr int kKing = 2;
  static constexpr int kShop = 3;
};

TEST_F(MatchEndTest, AClickOnTheWayToTheListDoesNotBeginItAgain) {
  Begin(kKing);
  PlayScript("LOSEGAME");
  int pumps = 0;
  desktop_->OnPump = [&] {
    if (++pumps < 5) window_.End.PlayAgain.Click();
  };
  window_.End.GameList.Click();
  desktop_->OnPump = nullptr;
  EXPECT_GT(pumps, 1);
  EXPECT_TRUE(State().Games[1].Namesakes.empty()) << "each game is found once";
  EXPECT_EQ(PlayerFileName(1), "Ann_Goblins.plr");
  EXPECT_EQ(State().TurnRunning, 0);
}

TEST_F(MatchEndTest, ThePanelTellsWhoWonWhatItBroughtAndWhatIsNew) {
  Begin(kKing);
  EXPECT_EQ(Told(), "nothing");
  window_.Command1.Click();
  State().Collection.Append(MakeCard("Elf", 1));
  State().Collection.Append(MakeCard("Imp", 1));
  State().Collection.Append(MakeCard("Imp", 1));
  State().Players[1].Tokens += 3;
  PlayScript("MODTOKENS:40:WINGAME");
  EXPECT_EQ(Told(),
            "You won!|Against King.  2 turns.  43 tokens earned.  You have 85 tokens.|"
            "New cards: Elf, Imp (2).");
  const std::string report = desktop_->Pages["WB"];
  window_.End.SeeReport.Click();
  EXPECT_EQ(Told(), "nothing");
  EXPECT_EQ(desktop_->Pages["WB"], report);
  window_.Command1.Click();
  EXPECT_EQ(State().CurrentGame, 0) << "the button still leads to the list";

  Begin(kKing);
  PlayScript("LOSEGAME");
  EXPECT_EQ(Told(), "You lost.|Against King.  1 turn.  You have 85 tokens.");
  window_.End.GameList.Click();
  EXPECT_EQ(Told(), "nothing");
  EXPECT_TRUE(State().Links.Games);

  Begin(kShop);
  EXPECT_EQ(window_.Story.Lines.Text.Get(),
            "File, Quit / New Game leads back to the list of games.");
  PlayScript("WINGAME");
  EXPECT_EQ(Told(), "This visit is over.|1 turn.  You have 85 tokens.");
}

TEST_F(MatchEndTest, PlayAgainMeetsTheSameOpponentByWayOfTheDecks) {
  Begin(kKing);
  PlayScript("WINGAME");
  // Another opponent has come to stand before this one meanwhile.
  WriteFile("Goblins/a_Enemy.txt",
            "#GAME, Goblins\n#CARD, #PLAYERCARD, Ape, , , , , #00FF00, \"\"\n");
  int chosen = 0;
  desktop_->ModalForms.push_back([&chosen](Form& form) {
    ++chosen;
    static_cast<DeckManager&>(form).Command2.Click();
  });
  window_.End.PlayAgain.Click();
  EXPECT_EQ(chosen, 1);
  EXPECT_EQ(Told(), "nothing");
  EXPECT_EQ(State().GameOver, 0);
  EXPECT_EQ(State().Match.Opponent, "King");
  EXPECT_NE(desktop_->Pages["WB"].find("King"), std::string::npos);

  PlayScript("WINGAME");
  files_->Contents.erase("/game/Goblins/king_Enemy.txt");
  desktop_->ExpectedMessages = {"King is not in the list of games any more."};
  window_.End.PlayAgain.Click();
  EXPECT_TRUE(State().Links.Games) << "the list is what is left";
}

}  // namespace
}  // namespace brindlemoor
