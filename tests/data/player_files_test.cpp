// Player files, the profile list and the end of a game.
#include "data/player_files.h"

#include <algorithm>

#include "data/card_reader.h"
#include "data/profiles.h"
#include "tests/support/saved_cards.h"
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

TEST_F(PlayerFilesTest, ASaveSortsDecksAndCollection) {
  for (const char* name : {"Troll", "", "Elf"}) State().Collection.Append(MakeCard(name, 1));
  for (const char* name : {"Orc", "Imp"}) State().Decks[2].Cards.Append(MakeCard(name, 1));
  WritePlayerFile(kFile);
  std::string order;
  const std::string saved = ReadFile("Ann_Goblins.plr");
  for (const char* name : {"Imp", "Orc", "Elf", "Troll"}) {
    const std::size_t found = saved.find(Joined("\"", name, "\""));
    ASSERT_NE(found, std::string::npos) << name;
    EXPECT_TRUE(order.empty() || saved.find(order) < found) << name;
    order = Joined("\"", name, "\"");
  }
  EXPECT_EQ(State().Collection.UpperBound(), 2) << "free elements go";
  EXPECT_EQ(State().Decks[2].Cards[1].Name, "Imp");
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

TEST_F(PlayerFilesTest, AListThatCannotBeSavedSaysWhy) {
  WriteFile("PlayerProfiles.txt", "old");
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save PlayerProfiles.txt: no space"};
  SaveProfiles();
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), "old");
}

TEST_F(PlayerFilesTest, ALongListAmongForeignLinesIsReadWhole) {
  constexpr int kPlayers = 10000;
  std::string list;
  for (int player = 1; player <= kPlayers; ++player) {
    list += Joined("# a note, \"on player\", ", player, "\r\n\"#PLAYERPROFILE\",\"P", player,
                   "\",\"P", player, ".plr:Goblins.txt\",\"\",\"\",\"\"\r\n\r\n#CARD, x\n");
  }
  WriteFile("PlayerProfiles.txt", list);
  LoadProfiles();
  ASSERT_EQ(State().Profiles.UpperBound(), kPlayers);
  EXPECT_EQ(State().Profiles[kPlayers].PlayerFile, Joined("P", kPlayers, ".plr"));
  State().Profile = {"P777", "new.plr", "Goblins.txt"};
  SaveProfiles();
  LoadProfiles();
  ASSERT_EQ(State().Profiles.UpperBound(), kPlayers);
  EXPECT_EQ(State().Profiles[777].PlayerFile, "new.plr");
  EXPECT_EQ(State().Profiles[kPlayers].PlayerName, Joined("P", kPlayers));
}

TEST_F(PlayerFilesTest, AListCutAnywhereKeepsThePlayersBeforeTheCut) {
  State().Profiles.Resize(0);
  for (const std::string name : {"Ann, B.", "Bob", "\xC3\x84nne"}) {
    State().Profiles.Append({name, name + ".plr", "r.txt"});
  }
  SaveProfiles();
  const std::string list = ReadFile("PlayerProfiles.txt");
  for (std::size_t size = 0; size <= list.size(); ++size) {
    WriteFile("PlayerProfiles.txt", list.substr(0, size));
    LoadProfiles();
    const Table<ProfileRec>& profiles = State().Profiles;
    const auto whole = std::count(list.begin(), list.begin() + static_cast<long>(size), '\n');
    ASSERT_GE(profiles.UpperBound(), std::min<long>(whole, 3)) << size;
    if (whole >= 1) {
      EXPECT_EQ(profiles[1].PlayerFile, "Ann, B..plr");
    }
    if (whole >= 2) {
      EXPECT_EQ(profiles[2].PlayerName, "Bob");
    }
  }
}

TEST_F(PlayerFilesTest, APlayerFileCutAnywhereKeepsTheCardsBeforeTheCut) {
  OwnCards();
  Card wizard = MakeCard("Wizard, \xC3\x84lter", 1, {"HP:3", "FLYING"});
  wizard.Description = "Line one,\r\n#TRAIT, and \"two\"";
  wizard.TraitCaptions.Edit(2) = "It flies, mostly";
  wizard.ActivateOn = "PHASE2";
  wizard.EntryScripts = "MODTRAIT:HP:1$|$ECHO:a, b$|$";
  AddEffect(wizard, "ECHO:x, y", 7, "MENU:PHASE1:Cast, or not", 0, "SELF");
  State().Decks[2].Cards.Append(wizard);
  State().Collection.Append(wizard);
  WritePlayerFile(kFile);
  const std::string file = ReadFile("Ann_Goblins.plr");

  const auto ownedAfter = [this](const std::string& text) {
    WriteFile("Ann_Goblins.plr", text);
    State().Problems.clear();
    ReadCards(kFile, State().Players[1], 0, "", 0);
    std::vector<std::string> cards;
    const auto add = [&cards](const Pile& pile) {
      for (const Card& card : pile) {
        if (!IsFree(card)) cards.push_back(Described(card));
      }
    };
    for (const DeckRec& deck : State().Decks) add(deck.Cards);
    add(State().Collection);
    return cards;
  };
  const std::vector<std::string> owned = ownedAfter(file);
  ASSERT_EQ(owned.size(), 5U);
  const std::string banner(41, '*');
  for (std::size_t size = 0; size < file.size(); ++size) {
    std::size_t whole = 0;
    for (std::size_t card = file.find(banner); card != std::string::npos;
         card = file.find(banner, card + 1)) {
      const std::size_t next = std::min(file.find(banner, card + 1), file.size());
      if (next <= size) ++whole;
    }
    const std::vector<std::string> found = ownedAfter(file.substr(0, size));
    ASSERT_GE(found.size(), whole) << size;
    for (std::size_t card = 0; card < whole; ++card) ASSERT_EQ(found[card], owned[card]) << size;
  }
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
