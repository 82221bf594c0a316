// Player files as a database: when they are saved, and what is never saved over.
#include "game/player_saving.h"

#include "game/leaving.h"
#include "game/player_files.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr const char* kFile = "Ann_Goblins.plr";
constexpr const char* kOther = "Ann_Goblins.plr.other";

class PlayerSavingTest : public SessionTest {
 protected:
  PlayerSavingTest() {
    State().Games.Reset(1);
    State().Games[1].Name = "Goblins";
    State().CurrentGame = 1;
    State().Profile = {"Ann", "", "Goblins.txt"};
    State().Profiles.Reset(1);
    State().Profiles[1].PlayerName = "Ann";
    State().Players[1].Tokens = 7;
    State().Collection[1] = MakeCard("Troll", 1);
    State().Decks[1].Cards[1] = MakeCard("Orc", 1);
    WritePlayerFile(kFile);
    EXPECT_TRUE(ReadPlayerFile(kFile));
  }
};

TEST_F(PlayerSavingTest, WhatAnotherProgramHasWrittenIsSavedOverOnlyWhenTheUserSaysSo) {
  const std::string others = ReadFile(kFile) + "#CARD, COLLECTION, Imp, , , , , , \r\n";
  WriteFile(kFile, others);
  State().Players[1].Tokens = 8;
  desktop_->YesNoAnswers = {false, false};
  StorePlayer();
  StorePlayer();  // has its answer
  EXPECT_EQ(desktop_->YesNoAnswers.size(), 1U);
  EXPECT_FALSE(WritePlayerFile(kFile)) << "whoever asks for a save is asked again";
  EXPECT_TRUE(desktop_->YesNoAnswers.empty());
  EXPECT_EQ(ReadFile(kFile), others);
  EXPECT_TRUE(PlayerIsUnsaved());

  desktop_->YesNoAnswers = {true};
  files_->WriteError = "no space";
  desktop_->AcceptMessages = true;
  EXPECT_FALSE(WritePlayerFile(kFile)) << "without a copy nothing is saved over";
  EXPECT_EQ(ReadFile(kFile), others);
  files_->WriteError = "";
  desktop_->YesNoAnswers = {true};
  EXPECT_TRUE(WritePlayerFile(kFile));
  EXPECT_EQ(ReadFile(kOther), others);
  WriteFile(kFile, "and once more");
  desktop_->YesNoAnswers = {true};
  EXPECT_TRUE(WritePlayerFile(kFile));
  EXPECT_EQ(ReadFile(kOther), others) << "no copy is lost";
  EXPECT_EQ(ReadFile("Ann_Goblins.plr.other-2"), "and once more");
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 8"), std::string::npos);

  WriteFile(kFile, others);
  EXPECT_TRUE(ReadPlayerFile(kFile));
  State().Players[1].Tokens = 9;
  StorePlayer();  // read since: no question
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 9"), std::string::npos);
  EXPECT_NE(ReadFile(kFile).find("Imp"), std::string::npos);
}

TEST_F(PlayerSavingTest, StoringLeavesNoTraceAndWritesOnlyWhatHasChanged) {
  State().Collection.Append(MakeCard("Elf", 1));
  State().Collection.Append({});
  State().SaleMode = 1;
  const std::string before = Described(State().Collection);
  StorePlayer();
  EXPECT_EQ(Described(State().Collection), before);
  EXPECT_EQ(State().SaleMode, 1);
  EXPECT_NE(ReadFile(kFile).find("Elf"), std::string::npos);
  WriteFile(kFile, "changed by another");
  StorePlayer();
  EXPECT_EQ(ReadFile(kFile), "changed by another") << "nothing new to save, nothing to ask";
  State().DebugMode = 1;
  State().Players[1].Tokens = 1;
  StorePlayer();
  EXPECT_FALSE(PlayerIsUnsaved());
  EXPECT_EQ(ReadFile(kFile), "changed by another");
}

TEST_F(PlayerSavingTest, ThatAllCardsAreGoneIsSavedOverWhatWasRead) {
  State().Collection.Reset(1);
  State().Decks[1].Cards.Reset(1);
  State().Players[1].Tokens = 90;
  EXPECT_TRUE(WritePlayerFile(kFile));
  EXPECT_EQ(ReadFile(kFile), "#PLAYERDECK\r\n\r\n\r\n#TOKENS, 90\r\n\r\n");
  State().SaleMode = 1;
  WriteFile("Ann_Elves.plr", "unread");
  EXPECT_TRUE(WritePlayerFile("Ann_Elves.plr"));
  EXPECT_EQ(ReadFile("Ann_Elves.plr"), "unread");
  EXPECT_EQ(State().SaleMode, 0);
}

TEST_F(PlayerSavingTest, OnlyTheOwnFileCountsAsStored) {
  State().Players[1].Tokens = 8;
  EXPECT_TRUE(WritePlayerFile("copy.plr"));
  EXPECT_TRUE(PlayerIsUnsaved()) << "a match reads the own file";
  StorePlayer();
  EXPECT_FALSE(PlayerIsUnsaved());
}

TEST_F(PlayerSavingTest, NamesOfDecksLastAndAreOnlyThePlayersOwn) {
  const std::string plain = ReadFile(kFile);
  EXPECT_EQ(plain.find("#DECKNAME"), std::string::npos);
  State().Decks[2].DeckName = "Fast, \"small\" ones";
  State().Decks[3].DeckName = "";
  EXPECT_TRUE(PlayerIsUnsaved());
  StorePlayer();
  State().Decks[2].DeckName = "else";
  EXPECT_TRUE(ReadPlayerFile(kFile));
  EXPECT_EQ(Joined(State().Decks[1].DeckName, "|", State().Decks[2].DeckName, "|",
                   State().Decks[3].DeckName),
            "Deck #1|Fast, \"small\" ones|Deck #3");
  WriteFile("enemy.txt", "#DECKNAME, 1, mine\n#CARDINDECK, Imp, , , , , \n");
  ReadCards("enemy.txt", State().Players[2], 0, "", 0);
  EXPECT_EQ(State().Decks[1].DeckName, "Deck #1");
  WriteFile(kFile, plain);
  EXPECT_TRUE(ReadPlayerFile(kFile));
  EXPECT_EQ(State().Decks[2].DeckName, "Deck #2") << "another file's names are not kept";
}

TEST_F(PlayerSavingTest, NothingIsLostUnnoticedWhenThePlayerLeaves) {
  EXPECT_TRUE(MayLeavePlayer(Leaving::kAsksFirst)) << "all is saved";
  State().Players[1].Tokens = 8;
  EXPECT_TRUE(MayLeavePlayer(Leaving::kSavesFirst));
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 8"), std::string::npos);

  State().Players[1].Tokens = 9;
  files_->WriteError = "no space";
  desktop_->AcceptMessages = true;
  desktop_->SaveAnswers = {SaveAnswer::kSave, SaveAnswer::kCancel};
  EXPECT_FALSE(MayLeavePlayer(Leaving::kSavesFirst));
  EXPECT_EQ(desktop_->Messages.size(), 2U) << "each attempt says why it failed";
  desktop_->SaveAnswers = {SaveAnswer::kDiscard};
  EXPECT_TRUE(MayLeavePlayer(Leaving::kAsksFirst));
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 8"), std::string::npos);
  files_->WriteError = "";
  StorePlayer();
  EXPECT_TRUE(MayLeavePlayer(Leaving::kSavesFirst));
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 8"), std::string::npos) << "let go of";
  State().Players[1].Tokens = 10;
  desktop_->SaveAnswers = {SaveAnswer::kSave};
  EXPECT_TRUE(MayLeavePlayer(Leaving::kAsksFirst));
  EXPECT_NE(ReadFile(kFile).find("#TOKENS, 10"), std::string::npos);
}

}  // namespace
}  // namespace brindlemoor
