// Program start and the reset of a new game.
#include "game/program_start.h"

#include "editor/program_session.h"
#include "pages/messages.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class ProgramStartTest : public SessionTest {
 protected:
  ProgramStartTest() {
    OpenProgramSession(State().Desktop, kFolder);
    State().Profile.PlayerName = "Ann";
    WriteFile("Goblins.txt",
              "#GAMERULES,Goblins,,#112233,gob,g.htm\n"
              "#DECKRULES,TRAITLIMIT:#ANY#:9\n#CUSTOMSTRING,WORD,value\n");
    WriteFile("gob/Gob.txt", "#PLAYERCARD,Gob,1,2,3,,5,6,d\n");
    WriteFile("Ann_Goblins.plr",
              "#PLAYERDECK\n#TOKENS,77\n#COLLECTION,Imp,,,,,\n#COLLECTION,Orc,,,,,\n");
  }
};

TEST_F(ProgramStartTest, StartShowsTheGameList) {
  StartProgram();
  EXPECT_TRUE(TheMainWindow().Shown);
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), "Take Turn");
  EXPECT_NE(desktop_->Pages["WB"].find("<a href=\"GAME:1:2\">Gob</a>"), std::string::npos);
  EXPECT_EQ(State().BitValues[64], std::uint64_t{1} << 63);
  EXPECT_EQ(State().Players[3].Color, "#AAAAAA");
  EXPECT_EQ(State().DebugMode, 0);
  WriteFile("Debug.on", "anything");
  StartProgram();
  EXPECT_EQ(State().DebugMode, 1);
}

TEST_F(ProgramStartTest, NothingOfTheLastGameIsLeft) {
  Session& session = State();
  session.Profile.RulesFile = "Goblins.txt";
  session.Profile.PlayerFile = "Ann_Goblins.plr";
  NewGame();
  EXPECT_EQ(session.Players[1].Tokens, 77);
  EXPECT_EQ(session.Collection[2].Name, "Orc");
  EXPECT_EQ(session.DeckRules, "TRAITLIMIT:#ANY#:9");
  EXPECT_EQ(CustomStringPick("WORD"), "value");
  PutInPlay(MakeCard("Imp", 1));
  session.PlayQueue[3] = 4;
  session.PlayTarget[3] = session.AwaitingPlayTarget = session.AwaitingMenuTarget = 3;
  session.SelectedSlot = 2;
  session.GameOver = session.CurrentGame = 1;
  session.HitTable[1].push_back({1, 1});
  session.Decks[2].DeckName = "Mine";
  QueuePending(MakeCard("Late", 1));
  AddProblem("a.txt", 1, "odd");
  session.Profile.RulesFile = "Gone.txt";
  session.Profile.PlayerFile = "../Gone.plr";
  NewGame();
  EXPECT_EQ(session.CardTable.UpperBound(), 2);
  EXPECT_EQ(session.PlayQueue, (FixedTable<std::uint8_t, 10>{}));
  EXPECT_EQ(session.PlayTarget, (FixedTable<std::int16_t, 10>{}));
  EXPECT_EQ(session.AwaitingPlayTarget + session.AwaitingMenuTarget, 0);
  EXPECT_EQ(session.SelectedSlot + session.CurrentGame + session.GameOver, 0);
  EXPECT_EQ(session.PendingCount, 0);
  EXPECT_TRUE(session.HitTable[1].empty());
  EXPECT_EQ(session.Decks[2].DeckName, "Mine");
  EXPECT_EQ(session.Collection.UpperBound(), 1);
  EXPECT_TRUE(IsFree(session.Collection[1])) << "it would be saved as all that Ann owns";
  EXPECT_EQ(session.DeckRules, "");
  EXPECT_EQ(CustomStringPick("WORD"), "(STRING NOT FOUND)");
  EXPECT_TRUE(session.Problems.empty());
  EXPECT_EQ(session.Games.UpperBound(), 1);
}

}  // namespace
}  // namespace brindlemoor
