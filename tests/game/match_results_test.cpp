// How matches ended: counted once for each opponent, and nothing else in the file is lost.
#include "game/match_results.h"

#include <gtest/gtest.h>

#include "game/players.h"
#include "tests/support/shipped_games.h"

namespace brindlemoor {
namespace {

constexpr const char* kFile = "Ann_Wickwater.results";

class MatchResultsTest : public ShippedGamesTest {
 protected:
  MatchResultsTest() { State().CurrentGame = 1; }

  /// As the record of a match that has ended stands; "" for what went wrong, none expected.
  static std::string End(int opponent, int winners, bool tookBack = false, bool isVisit = false,
                         std::uint8_t mind = kPlainMind) {
    const GameRec& game = State().Games[1];
    State().Match = {.RulesFile = game.RulesFile,
                     .OpponentFile = game.OpponentFiles[opponent],
                     .Opponent = game.Opponents[opponent].Name,
                     .IsVisit = isVisit,
                     .Winners = winners,
                     .TookBack = tookBack,
                     .EasiestMind = mind};
    return CountEndedMatch();
  }
  static std::string Against(int opponent) {
    const MatchResults results = ResultsAgainst(1, opponent);
    return Joined(results.Won, " ", results.Lost, " ", results.Undecided);
  }

  const int oona_ = OpponentNamed("Oona Ebb");
  const int other_ = oona_ + 1;
};

TEST_F(MatchResultsTest, EachEndCountsOnceForItsOpponent) {
  EXPECT_EQ(Against(oona_), "0 0 0");
  for (const int winners : {1, 2, 1, 3, 0, 1}) EXPECT_EQ(End(oona_, winners), "");
  EXPECT_EQ(End(other_, 2), "");
  EXPECT_EQ(Against(oona_), "3 1 2");
  EXPECT_EQ(Against(other_), "0 1 0");
  EXPECT_EQ(End(oona_, 1, true), "") << "with a turn taken back";
  EXPECT_EQ(End(oona_, 1, false, true), "") << "a visit";
  EXPECT_EQ(Against(oona_), "3 1 2");
  State().Profile.PlayerName = "Bob";
  EXPECT_EQ(Against(oona_), "0 0 0");
}

TEST_F(MatchResultsTest, WhatElseIsInTheFileStays) {
  const std::string name = "wickwater/3_Oona_Ebb.txt";
  const std::string strange = "a note\n#RESULT, \"Gone.txt\", 7\n#LATER, 1, 2, 3";
  WriteFile(kFile, strange);
  EXPECT_EQ(End(oona_, 1), "");
  EXPECT_EQ(ReadFile(kFile), Joined(strange, "\r\n#RESULT, \"", name, "\", 1, 0, 0\r\n"));
  EXPECT_EQ(End(oona_, 2), "");
  EXPECT_EQ(ReadFile(kFile), Joined(strange, "\r\n#RESULT, \"", name, "\", 1, 1, 0\r\n"));
  struct Row {
    const char* Counts;
    const char* Read;
  };
  for (const Row& row : {Row{", -3, 1e300, x", "0 0 0"}, Row{"", "0 0 0"}, Row{", 3, 1", "0 0 0"},
                         Row{", 4294967297, 0, 0", "0 0 0"}, Row{", 2, 1, 1, 9", "2 1 1"}}) {
    WriteFile(kFile, Joined("#RESULT, \"", name, "\"", row.Counts));
    EXPECT_EQ(Against(oona_), row.Read) << row.Counts;
    EXPECT_EQ(End(oona_, 1), "");
  }
  files_->WriteError = "no space";
  const std::string before = ReadFile(kFile);
  EXPECT_EQ(End(oona_, 1), Joined("Can't save ", kFile, ": no space"));
  EXPECT_EQ(ReadFile(kFile), before);
}

TEST_F(MatchResultsTest, EachMindOfAnOpponentHasItsOwnLine) {
  const auto beaten = [] {
    std::string all;
    for (const BeatenOpponent& row : BeatenOpponents(1))
      all += Joined(row.Opponent, ":", row.Mind, " ");
    return all;
  };
  EXPECT_EQ(beaten(), "");
  WriteFile(kFile,
            "#RESULT, \"wickwater/3_Oona_Ebb.txt\", 2, 0, 0\r\n#RESULTDEEP, Gone.txt, 1, 0, 0");
  EXPECT_EQ(End(other_, 2, false, false, 1), "");
  EXPECT_EQ(beaten(), Joined(oona_, ":0 "));
  EXPECT_EQ(End(oona_, 1, false, false, 2), "");
  EXPECT_EQ(End(oona_, 2, false, false, 1), "");
  EXPECT_EQ(beaten(), Joined(oona_, ":2 "));
  EXPECT_EQ(End(other_, 1, false, false, 1), "");
  EXPECT_EQ(beaten(), Joined(oona_, ":2 ", other_, ":1 "));
  EXPECT_EQ(Against(oona_), "2 0 0");
  EXPECT_EQ(ResultsAgainst(1, oona_, 1).Lost, 1);
  EXPECT_EQ(ResultsAgainst(1, other_, 1).Played(), 2);
  EXPECT_TRUE(ReadFile(kFile).starts_with("#RESULT, \"wickwater/3_Oona_Ebb.txt\", 2, 0, 0\r\n"))
      << "an earlier version finds its own line: " << ReadFile(kFile);
}

TEST_F(MatchResultsTest, TheyHaveTheFateOfThePlayer) {
  OpenStarterChest();
  State().CurrentGame = 1;
  ASSERT_EQ(End(oona_, 1), "");
  NewGame();
  ASSERT_EQ(RenamePlayer("Ann", "Zoe"), "");
  State().Profile.PlayerName = "Zoe";
  EXPECT_EQ(Against(oona_), "1 0 0");
  ASSERT_EQ(DeletePlayer("Zoe"), "");
  EXPECT_EQ(Against(oona_), "0 0 0");
}

}  // namespace
}  // namespace brindlemoor
