// Program start and the reset of a new game.
#include "game/program_start.h"

#include <gtest/gtest.h>

#include "script/messages.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class ProgramStartTest : public SessionTest {
 protected:
  ProgramStartTest() {
    State() = Session{};
    auto files = std::make_unique<MemoryFileSystem>();
    files_ = files.get();
    auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
    desktop_ = desktop.get();
    State().Desktop = std::move(desktop);
    State().ProgramFolder = kFolder;
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
  EXPECT_EQ(State().DebugMode, 0);
  EXPECT_EQ(State().FullSizeImages, 1);
  EXPECT_NE(desktop_->Pages["WB"].find("<a href=\"GAME:1:2\">Gob</a>"), std::string::npos);
  EXPECT_EQ(State().PageText, "");
  EXPECT_EQ(State().BitValues[1], 1U);
  EXPECT_EQ(State().BitValues[64], std::uint64_t{1} << 63);
  EXPECT_TRUE(State().Players[3].Color == "#AAAAAA");
  EXPECT_EQ(State().GameDeck.PlayerNo, 4);
  EXPECT_TRUE(State().Decks[3].DeckName == "Deck #3");
  EXPECT_EQ(State().Players[1].Hand.UpperBound(), 10);
  EXPECT_EQ(State().Players[1].Hand[10].Initialised, 1);
}

TEST_F(ProgramStartTest, MarkerFileTurnsDebugModeOn) {
  WriteFile("Debug.on", "anything");
  StartProgram();
  EXPECT_EQ(State().DebugMode, 1);
}

TEST_F(ProgramStartTest, DefaultPlayerCardsGiveWayToTheSidesOwn) {
  NewGame();
  const char* const names[] = {"Player 1", "Player 2"};
  const char* const thumbs[] = {"Player1thumb.bmp", "Player2thumb.bmp"};
  for (int side = 1; side <= 2; ++side) {
    const Card& card = State().CardTable[State().Players[side].PlayerCard];
    EXPECT_EQ(card.Name.View(), names[side - 1]);
    EXPECT_EQ(card.Thumb.View(), thumbs[side - 1]);
    EXPECT_EQ(card.Owner, side);
    EXPECT_EQ(card.InPlay, 1);
  }
  const int slot = AddToTable(MakeCard("Wizard", 2, {"PLAYER"}));
  EXPECT_EQ(State().Players[2].PlayerCard, slot);
  EXPECT_TRUE(State().CardTable[1].Name == "Player 1");
  EXPECT_TRUE(IsFree(State().CardTable[2]));
}

// The stored rules and player files are read where they still exist.
TEST_F(ProgramStartTest, StoredFilesAreRead) {
  State().Profile.RulesFile = "Goblins.txt";
  State().Profile.PlayerFile = "Ann_Goblins.plr";
  NewGame();
  EXPECT_EQ(State().Players[1].Tokens, 77);
  EXPECT_TRUE(State().Collection[2].Name == "Orc");
  EXPECT_TRUE(State().DeckRules == "TRAITLIMIT:#ANY#:9");
  State().Profile.RulesFile = "Gone.txt";
  State().Profile.PlayerFile = "../Gone.plr";
  NewGame();
  EXPECT_EQ(State().Collection.UpperBound(), 1);
  EXPECT_TRUE(State().Collection[1].Name == "Imp");  // its first card is kept
  EXPECT_TRUE(State().Problems.empty());
}

TEST_F(ProgramStartTest, NothingOfTheLastGameIsLeft) {
  State().Profile.RulesFile = "Goblins.txt";
  NewGame();
  EXPECT_EQ(CustomStringPick("WORD"), "value");
  Session& session = State();
  PutInPlay(MakeCard("Imp", 1));
  session.PlayQueue[3] = 4;
  session.PlayTarget[3] = 1;
  session.AwaitingPlayTarget = 3;
  session.AwaitingMenuTarget = 1;
  session.SelectedSlot = 2;
  session.GameOver = 1;
  session.CurrentGame = 1;
  session.HitTable[1].push_back({1, 1});
  session.Decks[2].DeckName = "Mine";
  session.Decks[2].Cards.Append(MakeCard("Imp", 1));
  QueuePending(MakeCard("Late", 1));
  AddProblem("a.txt", 1, "odd");
  session.Profile.RulesFile = "";
  NewGame();
  EXPECT_EQ(session.CardTable.UpperBound(), 2);
  EXPECT_EQ(session.PlayQueue, (FixedTable<std::uint8_t, 10>{}));
  EXPECT_EQ(session.PlayTarget, (FixedTable<std::int16_t, 10>{}));
  EXPECT_EQ(session.AwaitingPlayTarget + session.AwaitingMenuTarget, 0);
  EXPECT_EQ(session.SelectedSlot + session.CurrentGame + session.GameOver, 0);
  EXPECT_EQ(session.PendingCount, 0);
  EXPECT_TRUE(session.HitTable[1].empty());
  EXPECT_TRUE(session.Decks[2].DeckName == "Mine");
  EXPECT_EQ(session.Decks[2].Cards.UpperBound(), 1);
  EXPECT_TRUE(session.DeckRules.empty());
  EXPECT_EQ(CustomStringPick("WORD"), "(STRING NOT FOUND)");
  EXPECT_TRUE(session.Problems.empty());
  EXPECT_EQ(session.Games.UpperBound(), 1);
}

TEST_F(ProgramStartTest, ProfileIsChosenFirst) {
  State().Profile.PlayerName = "";
  WriteFile("PlayerProfiles.txt",
            "\"#PLAYERPROFILE\",\"Ann\",\"Ann_Goblins.plr:Goblins.txt\",\"\",\"\",\"\"\n");
  desktop_->ModalForms.push_back(
      [](Form& form) { dynamic_cast<ProfileMenu&>(form).Command1_Click(1); });
  StartProgram();
  EXPECT_TRUE(State().Profile.PlayerName == "Ann");
  EXPECT_EQ(State().Players[1].Tokens, 77);
  EXPECT_FALSE(desktop_->Ending());
  EXPECT_NE(desktop_->Pages["WB"].find("Goblins"), std::string::npos);
}

TEST_F(ProgramStartTest, WithoutAProfileTheProgramEnds) {
  State().Profile.PlayerName = "";
  desktop_->ModalForms.push_back([](Form&) {});
  StartProgram();
  EXPECT_TRUE(desktop_->Ending());
  EXPECT_FALSE(TheMainWindow().Shown);
  EXPECT_EQ(ReadFile("Display.html"), "(no such file)");
}

}  // namespace
}  // namespace brindlemoor
