// Player files, the profile list and the end of a game.
#include "data/player_files.h"

#include "data/card_reader.h"
#include "data/profiles.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class PlayerFilesTest : public SessionTest {
 protected:
  PlayerFilesTest() {
    State().Games.Reset(1);
    State().Games[1].Name = "Goblins";
    State().CurrentGame = 1;
    State().Profile.PlayerName = "Ann";
    State().Profile.RulesFile = "Goblins.txt";
    State().Profiles.Reset(1);
    State().Profiles[1].PlayerName = "Ann";
    State().Players[1].Tokens = 77;
  }
  static void OwnCards() {
    State().Collection[1] = MakeCard("Elf", 1, {"HP:1"});
    State().Decks[1].Cards.Append(MakeCard("Orc", 1));
    State().Decks[3].Cards.Append(MakeCard("Troll", 1));
  }
};

constexpr std::string_view kFile = "Ann_Goblins.plr";

TEST_F(PlayerFilesTest, WritesTokensDecksAndCollectionInOrder) {
  OwnCards();
  State().SaleMode = 1;
  WritePlayerFile(kFile);
  const std::string stars(41, '*');
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"),
            Joined("#PLAYERDECK\r\n\r\n\r\n#TOKENS, 77\r\n\r\n", stars,
                   " Orc\r\n#CARD, INPLAYERDECK:1, \"Orc\", \"\", , , , #FFFFFF, \"\"\r\n"
                   "#EXTRADATA, 0, , , , \r\n\r\n\r\n",
                   stars,
                   " Troll\r\n#CARD, INPLAYERDECK:3, \"Troll\", \"\", , , , #FFFFFF, \"\"\r\n"
                   "#EXTRADATA, 0, , , , \r\n\r\n\r\n",
                   stars,
                   " Elf\r\n#CARD, COLLECTION, \"Elf\", \"\", , , , #FFFFFF, \"\"\r\n"
                   "#TRAIT, \"HP:1\", \r\n#EXTRADATA, 0, , , , \r\n\r\n\r\n"));
  EXPECT_EQ(State().SaleMode, 0);
  EXPECT_EQ(State().Profile.PlayerFile, kFile);
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"),
            "\"#PLAYERPROFILE\",\"Ann\",\"Ann_Goblins.plr:Goblins.txt\",\"\",\"\",\"\"\r\n\r\n");
}

TEST_F(PlayerFilesTest, ASavedPlayerComesBackAndSavesTheSame) {
  OwnCards();
  WritePlayerFile(kFile);
  const std::string saved = ReadFile("Ann_Goblins.plr");
  State().Players[1].Tokens = 0;
  ReadCards(kFile, State().Players[1], 0, "", 0);
  EXPECT_EQ(State().Players[1].Tokens, 77);
  EXPECT_EQ(State().Decks[3].Cards[2].Name, "Troll");
  EXPECT_EQ(State().Collection[1].Owner, 1);
  WritePlayerFile(kFile);
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), saved);
  EXPECT_TRUE(State().Problems.empty());
}

TEST_F(PlayerFilesTest, AnOldFileStaysWhenNothingShallBeWritten) {
  WriteFile("Ann_Goblins.plr", "old");
  WritePlayerFile(kFile);  // no card at all
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "old");
  OwnCards();
  WritePlayerFile("");
  State().DebugMode = 1;
  WritePlayerFile(kFile);
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "old");
  EXPECT_EQ(State().Profile.PlayerFile, "");
  State().DebugMode = 0;
  files_->WriteError = "the disk is full";
  desktop_->ExpectedMessages = {"Can't save Ann_Goblins.plr: the disk is full"};
  WritePlayerFile(kFile);
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "old");
  EXPECT_EQ(State().Profile.PlayerFile, "");
}

TEST_F(PlayerFilesTest, ASaveLeavesTheStoredCardsActionsAlone) {
  State().Collection[1] = MakeCard("Elf", 1);
  AddEffect(State().Collection[1], "TRAIT:TRAITEFFECT:HP:ECHO:x", 7, "PHASE1", 0, "SELF");
  WritePlayerFile(kFile);
  EXPECT_EQ(State().Collection[1].Effects[1].Script, "TRAIT:TRAITEFFECT:HP:ECHO:x");
}

TEST_F(PlayerFilesTest, NamesAreMadeOfPlayerAndGame) {
  EXPECT_EQ(PlayerFileName(1), kFile);
  EXPECT_EQ(PlayerFileName(0), "");
  EXPECT_EQ(PlayerFileName(2), "");
  State().Games[1].Name = "../War: \"2\"";
  EXPECT_EQ(PlayerFileName(1), "Ann_.._War_ _2_.plr");
}

TEST_F(PlayerFilesTest, TheEndOfAGameSavesAndChangesTheButton) {
  OwnCards();
  State().PickingCard = 1;
  State().DeckManagerMode = 2;
  EndGame();
  EXPECT_NE(ReadFile("Ann_Goblins.plr").find("Troll"), std::string::npos);
  EXPECT_EQ(State().GameOver, 1);
  EXPECT_EQ(State().PickingCard, 0);
  EXPECT_EQ(State().DeckManagerMode, 0);
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), "End Game");
}

TEST_F(PlayerFilesTest, WithoutAGameTheEndWritesNothing) {
  OwnCards();
  for (const std::int16_t game : {0, 5, -1}) {
    State().CurrentGame = game;
    EndGame();
    for (const auto& [path, bytes] : files_->Contents) EXPECT_FALSE(path.ends_with(".plr")) << path;
  }
}

TEST_F(PlayerFilesTest, TheProfileListToleratesAnythingElse) {
  WriteFile("PlayerProfiles.txt",
            "hello, you\r\n\"#PLAYERPROFILE\",\"Ann, B.\",\"a.plr:r.txt\",\"\",\"\",\"\"\r\n"
            "#OTHER,\"x\"\n#PLAYERPROFILE, Bob, , , , \n\n#PLAYERPROFILE,Cut");
  LoadProfiles();
  LoadProfiles();
  const Table<ProfileRec>& profiles = State().Profiles;
  ASSERT_EQ(profiles.UpperBound(), 3);
  EXPECT_EQ(profiles[1].PlayerName, "Ann, B.");
  EXPECT_EQ(profiles[1].PlayerFile, "a.plr");
  EXPECT_EQ(profiles[1].RulesFile, "r.txt");
  EXPECT_EQ(profiles[2].PlayerName, "Bob");
  EXPECT_EQ(profiles[3].PlayerName, "Cut");
  State().Profile = {"Bob", "b.plr", "q.txt"};
  State().Profiles.Append({});
  SaveProfiles();
  const std::string saved = ReadFile("PlayerProfiles.txt");
  EXPECT_EQ(saved,
            "\"#PLAYERPROFILE\",\"Ann, B.\",\"a.plr:r.txt\",\"\",\"\",\"\"\r\n"
            "\"#PLAYERPROFILE\",\"Bob\",\"b.plr:q.txt\",\"\",\"\",\"\"\r\n"
            "\"#PLAYERPROFILE\",\"Cut\",\":\",\"\",\"\",\"\"\r\n\r\n");
  LoadProfiles();
  SaveProfiles();
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), saved);
  State().Profiles.Resize(0);
  SaveProfiles();
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), saved) << "a list that was not loaded is not lost";
  files_->Contents.clear();
  LoadProfiles();
  ASSERT_EQ(profiles.UpperBound(), 1);
  EXPECT_EQ(profiles[1].PlayerName, "");
}

TEST_F(PlayerFilesTest, NamesThatNoFileCanHaveAreRefused) {
  for (const std::string name : {"Ann", "Ann B.", "\xC3\x84nne", "O'Neil", "007"}) {
    EXPECT_EQ(RefusePlayerName(name), "") << name;
  }
  std::string umlauts;
  for (int i = 0; i < 100; ++i) umlauts += "\xC3\xA4";
  EXPECT_EQ(RefusePlayerName(umlauts), "");
  for (const std::string& name :
       {std::string(), std::string("  "), umlauts + "a", std::string(".hidden"), std::string("a/b"),
        std::string("a\\b"), std::string("a:b"), std::string("a*"), std::string("a?"),
        std::string("a\"b"), std::string("a<b"), std::string("a>b"), std::string("a|b"),
        std::string("a\nb"), std::string("a\x7F"), std::string("a\0b", 3)}) {
    EXPECT_NE(RefusePlayerName(name), "") << name;
  }
}

}  // namespace
}  // namespace brindlemoor
