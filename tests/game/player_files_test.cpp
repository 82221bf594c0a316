// Player files, the profile list and the end of a game.
#include "game/player_files.h"

#include <algorithm>

#include "data/profiles.h"
#include "game/player_file_names.h"
#include "game/player_saving.h"
#include "script/card_setup.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kFile = "Ann_Goblins.plr";
constexpr const char* kList = "PlayerProfiles.txt";

class PlayerFilesTest : public SessionTest {
 protected:
  PlayerFilesTest() {
    State().Games.Reset(1);
    State().Games[1].Name = "Goblins";
    State().CurrentGame = 1;
    State().Profile = {"Ann", "", "Goblins.txt"};
    State().Profiles.Reset(1);
    State().Profiles[1].PlayerName = "Ann";
    State().Players[1].Tokens = 77;
  }
  static void OwnCards() {
    State().Collection[1] = MakeCard("Troll", 1);
    State().Collection.Append({});
    State().Collection.Append(MakeCard("Elf", 1, {"HP:1"}));
    for (const char* name : {"Orc", "Imp"}) State().Decks[1].Cards.Append(MakeCard(name, 1));
    State().Decks[3].Cards.Append(MakeCard("Troll", 1));
  }
};

TEST_F(PlayerFilesTest, TheEndOfAGameWritesTokensAndSortedCards) {
  OwnCards();
  State().SaleMode = 1;
  AddEffect(State().Collection[1], "TRAIT:TRAITEFFECT:HP:ECHO:x", 7, "PHASE1", 0, "SELF");
  State().DeckManagerMode = 2;
  EndGame();
  EXPECT_EQ(Joined(State().GameOver, State().DeckManagerMode, State().SaleMode), "100");
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), "End Game");
  EXPECT_EQ(ReadFile(kFile),
            Joined("#PLAYERDECK\r\n\r\n\r\n#TOKENS, 77\r\n\r\n", CardLines("INPLAYERDECK:1", "Imp"),
                   CardLines("INPLAYERDECK:1", "Orc"), CardLines("INPLAYERDECK:3", "Troll"),
                   CardLines("COLLECTION", "Elf", "#TRAIT, \"HP:1\", \r\n"),
                   CardLines("COLLECTION", "Troll")));
  EXPECT_EQ(State().Collection.UpperBound(), 2) << "sorted, free elements go";
  EXPECT_EQ(State().Collection[2].Effects[1].Script, "TRAIT:TRAITEFFECT:HP:ECHO:x");
  EXPECT_EQ(ReadFile(kList),
            "\"#PLAYERPROFILE\",\"Ann\",\"Ann_Goblins.plr:Goblins.txt\",\"\",\"\",\"\"\r\n\r\n");
}

TEST_F(PlayerFilesTest, AnOldFileStaysWhenNothingShallBeWritten) {
  WriteFile(kFile, "old");
  WritePlayerFile(kFile);  // no card at all
  EXPECT_EQ(ReadFile(kFile), "old");
  OwnCards();
  WritePlayerFile("");
  State().DebugMode = 1;
  WritePlayerFile(kFile);
  State().DebugMode = 0;
  for (const std::int16_t game : {0, 5, -1}) {
    State().CurrentGame = game;
    EndGame();
  }
  State().CurrentGame = 1;
  NotePlayerRead(std::string(kFolder) + "/" + kFile, "old");
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save Ann_Goblins.plr: no space"};
  WritePlayerFile(kFile);
  EXPECT_EQ(ReadFile(kFile), "old");
  EXPECT_EQ(State().Profile.PlayerFile, "");
  EXPECT_EQ(files_->Contents.size(), 1U);
}

TEST_F(PlayerFilesTest, TheProfileListToleratesAnythingElse) {
  WriteFile(kList,
            "hello, you\r\n\"#PLAYERPROFILE\",\"Ann, B.\",\"a.plr:r.txt\",\"\",\"\",\"\"\r\n"
            "#OTHER,\"x\"\n#PLAYERPROFILE, Bob, , , , \n\n#PLAYERPROFILE,Cut");
  LoadProfiles();
  LoadProfiles();
  State().Profile = {"Bob", "b.plr", "q.txt"};
  State().Profiles.Append({});
  SaveProfiles();
  const std::string saved = ReadFile(kList);
  EXPECT_EQ(saved,
            "\"#PLAYERPROFILE\",\"Ann, B.\",\"a.plr:r.txt\",\"\",\"\",\"\"\r\n"
            "\"#PLAYERPROFILE\",\"Bob\",\"b.plr:q.txt\",\"\",\"\",\"\"\r\n"
            "\"#PLAYERPROFILE\",\"Cut\",\":\",\"\",\"\",\"\"\r\n\r\n");
  LoadProfiles();
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save PlayerProfiles.txt: no space"};
  SaveProfiles();
  files_->WriteError = "";
  SaveProfiles();
  EXPECT_EQ(ReadFile(kList), saved);
  State().Profiles.Resize(0);
  SaveProfiles();
  EXPECT_EQ(ReadFile(kList), saved) << "a list that was not loaded is not lost";
  // Wherever the list is cut, the players before the cut stay.
  for (std::size_t size = 0; size <= saved.size(); ++size) {
    WriteFile(kList, saved.substr(0, size));
    LoadProfiles();
    const auto whole = std::count(saved.begin(), saved.begin() + static_cast<long>(size), '\n');
    ASSERT_GE(State().Profiles.UpperBound(), std::min<long>(whole, 3)) << size;
    ASSERT_TRUE(whole < 1 || State().Profiles[1].PlayerFile == "a.plr") << size;
    ASSERT_TRUE(whole < 2 || State().Profiles[2].PlayerName == "Bob") << size;
  }
}

TEST_F(PlayerFilesTest, APlayerFileCutAnywhereKeepsTheCardsBeforeTheCut) {
  OwnCards();
  Card wizard = MakeCard("Wizard, \xC3\x84lter", 1, {"HP:3", "FLYING"});
  wizard.Description = "Line one,\r\n#TRAIT, and \"two\"";
  wizard.TraitCaptions.Edit(2) = "It flies, mostly";
  AddEffect(wizard, "ECHO:x, y", 7, "MENU:PHASE1:Cast, or not", 0, "SELF");
  State().Decks[2].Cards.Append(wizard);
  State().Collection.Append(wizard);
  WritePlayerFile(kFile);
  const std::string file = ReadFile(kFile);
  const auto ownedAfter = [this](const std::string& text) {
    WriteFile(kFile, text);
    ReadCards(kFile, State().Players[1], 0, "", 0);
    std::string cards;
    for (const DeckRec& deck : State().Decks) cards += Described(deck.Cards);
    return cards + Described(State().Collection);
  };
  const std::string owned = ownedAfter(file);
  std::string whole;  // the cards that end before the cut
  for (std::size_t size = 0; size <= file.size(); ++size) {
    const std::string found = ownedAfter(file.substr(0, size));
    if (file.substr(0, size).ends_with("#EXTRADATA, 0, , , , \r\n\r\n\r\n")) {
      ASSERT_GT(found.size(), whole.size()) << size;
      whole = found;
    }
    ASSERT_EQ(found.find(whole), 0U) << size;
    ASSERT_EQ(owned.find(whole), 0U) << size;
  }
  EXPECT_EQ(whole, owned);
}

TEST_F(PlayerFilesTest, NamesThatNoFileCanHaveAreRefused) {
  using namespace std::string_literals;
  std::string umlauts;
  for (int i = 0; i < 50; ++i) umlauts += "\xC3\xA4";
  for (const std::string& name : {"Bob"s, "Ann B."s, "\xC3\x84nne"s, "O'Neil"s, umlauts}) {
    EXPECT_EQ(RefusePlayerName(name), "") << name;
  }
  for (const std::string& name : {""s, "Ann"s, "  "s, umlauts + "a", std::string(101, 'a'),
                                  std::string(34, '_'), ".hidden"s, "R\xFCgen"s}) {
    EXPECT_NE(RefusePlayerName(name), "") << name;
  }
  EXPECT_EQ(RefuseNameInFiles(umlauts + umlauts), "");
  std::string faces;
  for (int i = 0; i < 61; ++i) faces += "\xF0\x9F\x98\x80";
  EXPECT_NE(RefuseNameInFiles(faces), "") << "with its ending it is no file name";
  for (const char c : "/\\:*?\"<>|\n\x7F") EXPECT_NE(RefusePlayerName(Joined("a", c)), "") << c;
}

}  // namespace
}  // namespace brindlemoor
