// How hard the opponent thinks: chosen by the player, kept, and what ends count for.
#include "ui/opponent_menu.h"

#include "game/kept_matches.h"
#include "game/match_results.h"
#include "game/planned_turn.h"
#include "game/players.h"
#include "tests/support/shipped_games.h"
#include "ui/first_steps.h"
#include "ui/kept_match_panel.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

constexpr const char* kFile = "Ann_Opponent.settings";
int thoughts = 0;

class OpponentMenuTest : public ShippedGamesTest {
 protected:
  OpponentMenuTest() {
    thoughts = 0;
    State().ThinkOfTurn = [](int) -> std::optional<TurnPlan> {
      ++thoughts;
      return std::nullopt;
    };
  }
  void Choose(std::size_t level) { window_.Opponent.Levels[level]->Click(); }
  /// The marked levels, as a player comes to the list of games.
  std::string MarkedFor(std::string_view player) {
    State().Profile.PlayerName = player;
    ShowFirstSteps();
    std::string marked;
    for (const auto& level : window_.Opponent.Levels) {
      if (level->Checked) marked += level->Caption.Get();
    }
    EXPECT_EQ(marked, MindName(State().Minds[2]));
    return marked;
  }
  void TakeTurn(std::size_t level) {
    Choose(level);
    window_.Command1.Click();
  }

  MainWindow& window_ = TheMainWindow();
};

TEST_F(OpponentMenuTest, TheChoiceIsThePlayers) {
  EXPECT_EQ(MarkedFor("Ann"), "Plain");
  Choose(2);
  EXPECT_EQ(State().Minds[2], 2);
  EXPECT_EQ(ReadFile(kFile), "deep\r\n");
  EXPECT_EQ(MarkedFor("Bob"), "Plain");
  EXPECT_EQ(MarkedFor("Ann"), "Deep");
  WriteFile("PlayerProfiles.txt", "\"#PLAYERPROFILE\",\"Ann\",\":\",\"\",\"\",\"\"\r\n");
  ASSERT_EQ(RenamePlayer("Ann", "Zoe"), "");
  EXPECT_EQ(MarkedFor("Ann"), "Plain");
  EXPECT_EQ(MarkedFor("Zoe"), "Deep");
  ASSERT_EQ(DeletePlayer("Zoe"), "");
  EXPECT_EQ(MarkedFor("Zoe"), "Plain");
  for (const char* strange : {"", "dreaming", "deep thoughtful", "1", "deep\r\nplain"}) {
    WriteFile(kFile, strange);
    EXPECT_EQ(MarkedFor("Ann"), "Plain") << strange;
  }
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {Joined("Can't save ", kFile, ": no space")};
  Choose(1);
  EXPECT_EQ(State().Minds[2], 1) << "it holds until the end";
}

TEST_F(OpponentMenuTest, AMatchCountsForTheLeastThatTheOpponentThought) {
  Choose(2);
  ChooseGame(1, OpponentNamed("Starter Chest"));
  EXPECT_FALSE(EnemyThinks()) << "nobody is to be beaten in a store";
  window_.Command1.Click();
  EXPECT_EQ(thoughts, 0);
  EndGame();
  NewGame();
  const int oona = OpponentNamed("Oona Ebb");
  const auto begin = [&] {
    ExpectWholeDeck();
    PlayOpponent(1, oona);
  };
  begin();
  TakeTurn(2);
  TakeTurn(1);
  EXPECT_EQ(thoughts, 2);
  desktop_->ChoiceAnswers = {"Save and Leave"};
  window_.newgamemen.Click();
  ContinueKeptMatch(1);
  EXPECT_EQ(State().Match.EasiestMind, 1);
  AddEffect(State().RulesCard, "WINGAME", 7, "TURNSTART", 0, "SELF");
  TakeTurn(2);
  ASSERT_EQ(State().GameOver, 1);
  EXPECT_TRUE(
      window_.End.Facts.Caption.Get().starts_with("Against Oona Ebb (Thoughtful).  3 turns."))
      << window_.End.Facts.Caption.Get();
  EXPECT_EQ(ResultsAgainst(1, oona, 1).Won, 1);
  EXPECT_EQ(ResultsAgainst(1, oona, 2).Played() + ResultsAgainst(1, oona).Played(), 0);
  window_.End.GameList.Click();
  const std::string link = Joined("GAME:1:", oona);
  EXPECT_EQ(window_.WB.LinkMarks.Get(),
            (std::vector<LinkMark>{{link, "\u2605\u2605", "Beaten (Thoughtful)"}}));
  State().TryOpponent = nullptr;
  window_.WB.LinkPointed(link);
  const std::string& page = desktop_->Pages["CardDescWB"];
  EXPECT_NE(page.find("<p>Thoughtful. Beaten: you won 1 of 1 match.</p>"), std::string::npos)
      << page;
  begin();
  EXPECT_EQ(State().Match.EasiestMind, 0) << "before the first turn";
}

}  // namespace
}  // namespace brindlemoor
