// Which file holds what a player owns: no two players or games share one, earlier files are found.
#include "game/player_file_names.h"

#include <set>

#include "game/match_start.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "tests/support/session_test.h"
#include "text/file_names.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kCards = "#TOKENS, 42\n#CARD, COLLECTION, Spare, , , , , , \n";

class PlayerFileNamesTest : public SessionTest {
 protected:
  static void Play(std::string_view player, const std::vector<std::string>& games) {
    State().Profile = {player, "", ""};
    State().Profiles.Reset(1);
    State().Profiles[1].PlayerName = player;
    State().Games.Reset(static_cast<int>(games.size()));
    for (int game = 1; game <= State().Games.UpperBound(); ++game) {
      State().Games[game].Name = games[static_cast<std::size_t>(game - 1)];
      State().Games[game].RulesFile = Joined("rules", game, ".txt");
    }
  }
  static std::string NameOf(std::string_view player, const std::string& game) {
    Play(player, {game});
    return PlayerFileName(1);
  }
};

TEST_F(PlayerFileNamesTest, PlainNamesKeepTheirFileAndNoTwoShareOne) {
  const std::string long1(32U << 20U, 'x');
  std::string umlauts;
  for (int i = 0; i < 100; ++i) umlauts += "\xC3\xA4";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"Ann B.", "The Goblins' War", "Ann B._The Goblins' War.plr"},
      {"\xC3\x84nne", "Elfen_\xC3\xBC", "\xC3\x84nne_Elfen_\xC3\xBC.plr"},
      {"Ann", "Bob_Two", "Ann_Bob_Two.plr"},
      {"Ann_Bob", "Two", "Ann%5FBob_Two.plr"},
      {"Ann%5FBob", "Two", "Ann%255FBob_Two.plr"},
      {"Ann", "A:B", "Ann_A%3AB.plr"},
      {"Ann", "A_B", "Ann_A_B.plr"},
      {"Ann", "A%3AB", "Ann_A%253AB.plr"},
      {"Ann", "../a\n\x7F", "Ann_..%2Fa%0A%7F.plr"},
      {"Ann", std::string(120, 'x'), Joined("Ann_", std::string(120, 'x'), ".plr")},
      {"Ann", std::string(121, 'x'), ""},
      {"Ann", std::string(122, 'x'), ""},
      {"Ann", long1, ""},
      {"Ann", long1 + "y", ""},
      {umlauts, umlauts, ""},
      {umlauts + "a", umlauts, ""},
  };
  std::set<std::string> names;
  for (const auto& [player, game, file] : cases) {
    const std::string name = NameOf(player, game);
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_TRUE(file.empty() || name == file) << name << " " << file;
    EXPECT_LE(name.size(), 243U) << "a copy has something behind its name";
    std::string prefix = name.substr(0, name.find("%~"));
    EXPECT_TRUE(prefix.empty() || static_cast<unsigned char>(prefix.back()) != 0xC3U) << name;
  }
  EXPECT_EQ(PlayerFileName(0), "");
}

TEST_F(PlayerFileNamesTest, TwoGamesOfOneNameShareNoFileWhateverTheirRulesFilesAreCalled) {
  std::set<std::string> names;
  for (const std::string& rules :
       {std::string("AAA.txt"), std::string("Wickwater.txt"), std::string(240, 'a') + ".txt",
        std::string(241, 'a') + ".txt"}) {
    Play("Ann", {"Wickwater"});
    State().Games[1].RulesFile = rules;
    State().Games[1].Namesakes = {"Other.txt"};
    const std::string name = PlayerFileName(1);
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_LE(name.size(), 247U);
  }
  EXPECT_TRUE(names.contains("Ann_Wickwater%~AAA.txt.plr"));
  State().Games[1].RulesFile = "AAA.txt";
  State().Games[1].Namesakes.clear();
  EXPECT_EQ(PlayerFileName(1), "Ann_Wickwater.plr");
  WriteFile("Ann_Wickwater%~AAA.txt.plr", kCards);
  EXPECT_EQ(PlayerFileName(1), "Ann_Wickwater%~AAA.txt.plr")
      << "when the other game has gone the cards are still found";
}

/// What is read for game 1 where a file of an earlier name is there.
TEST_F(PlayerFileNamesTest, AnEarlierFileIsReadOnlyWhereItIsSurelyThisPlayersAndGames) {
  struct Case {
    const char* What;
    const char* Player;
    std::vector<std::string> Games;
    std::vector<ProfileRec> Lines;  ///< further ones; the player's own takes the place of hers
    const char* File;
    bool IsRead;
    const char* Says;
  };
  const Case cases[] = {
      {"nobody else", "Ann", {"A:B"}, {}, "Ann_A_B.plr", true, ""},
      {"a game of the former name", "Ann", {"A:B", "A_B"}, {}, "Ann_A_B.plr", false, "Ann in A_B"},
      {"two of them", "Ann", {"A:B", "A*B"}, {}, "Ann_A_B.plr", false, "Ann in A*B"},
      {"last saved here",
       "Ann",
       {"A:B", "A_B"},
       {{"Ann", "Ann_A_B.plr", "rules1.txt"}},
       "Ann_A_B.plr",
       true,
       ""},
      {"last saved there",
       "Ann",
       {"A:B", "A_B"},
       {{"Ann", "Ann_A_B.plr", "rules2.txt"}},
       "Ann_A_B.plr",
       false,
       "Ann in A_B"},
      {"last saved in a game that has gone",
       "Ann",
       {"A:B"},
       {{"Ann", "Ann_A_B.plr", "gone.txt"}},
       "Ann_A_B.plr",
       false,
       "Ann with gone.txt"},
      {"no other player", "Ann_Bob", {"Two", "Bob_Two"}, {}, "Ann_Bob_Two.plr", true, ""},
      {"another player",
       "Ann_Bob",
       {"Two", "Bob_Two"},
       {{"Ann", "", ""}},
       "Ann_Bob_Two.plr",
       false,
       "Ann in Bob_Two"},
      {"another player, no such game",
       "Ann_Bob",
       {"Two"},
       {{"Ann", "", ""}},
       "Ann_Bob_Two.plr",
       true,
       ""},
      {"another player has saved it",
       "Ann_Bob",
       {"Two"},
       {{"Ann", "Ann_Bob_Two.plr", "x.txt"}},
       "Ann_Bob_Two.plr",
       false,
       "Ann with x.txt"},
      {"the present name of another player",
       "A%5FB",
       {"G"},
       {{"A_B", "", ""}},
       "A%5FB_G.plr",
       false,
       "A_B in G"},
  };
  for (const Case& test : cases) {
    files_->Contents.clear();
    Play(test.Player, test.Games);
    for (const ProfileRec& line : test.Lines) {
      if (line.PlayerName == State().Profiles[1].PlayerName) {
        State().Profiles[1] = line;
      } else {
        State().Profiles.Append(line);
      }
    }
    WriteFile(test.File, kCards);
    EXPECT_NE(PlayerFileName(1), test.File) << test.What;
    EXPECT_EQ(StoredPlayerFile(1), test.IsRead ? test.File : PlayerFileName(1)) << test.What;
    if (!test.IsRead) {
      desktop_->ExpectedMessages = {
          Joined(test.File, " is left alone: it may belong to ", test.Says,
                 ".  If these are your cards, begin with a starter deck or a card store and take "
                 "them in the deck manager: File, Load Player.")};
    }
    TellPlayerFileLeftAlone(1);
    WriteFile(PlayerFileName(1), "");
    EXPECT_EQ(StoredPlayerFile(1), PlayerFileName(1)) << test.What;
    TellPlayerFileLeftAlone(1);
  }
}

class NamesakesTest : public SessionTest {
 protected:
  static constexpr const char* kNatural = "Ann_Wickwater.plr";
  static constexpr const char* kOwn = "Ann_Wickwater%~AAA.txt.plr";

  NamesakesTest() {
    WriteFile("AAA.txt", "#GAMERULES, Wickwater, , , aaa,\n#RULESCARD\n");
    WriteFile("Wickwater.txt", "#GAMERULES, Wickwater, , , wick,\n#RULESCARD\n");
    WriteFile("aaa/x.txt", "#STARTERDECK\n#PLAYERCARD,X,1,2,3,t,5,6,d\n");
    WriteFile(kNatural, kCards);
  }
  void Start(const char* line) {
    WriteFile("PlayerProfiles.txt", Joined("\"#PLAYERPROFILE\",\"Ann\",\"", line, "\",\"\"\n"));
    State().Profile = {"Ann", FieldOf(line, 1), FieldOf(line, 2)};
    NewGame();
  }
  static std::string FieldOf(std::string_view line, int n) {
    const std::size_t colon = line.find(':');
    return std::string(n == 1 ? line.substr(0, colon) : line.substr(colon + 1));
  }
};

// A stranger's AAA.txt calls itself like the game that Ann plays, and is listed first.
TEST_F(NamesakesTest, AGameThatNamesItselfLikeAnotherDoesNotGetItsPlayerFile) {
  Start("Ann_Wickwater.plr:Wickwater.txt");
  EXPECT_NE(ReadFile("Display.html")
                .find("Two games have one name: that of AAA.txt is listed, that "
                      "of Wickwater.txt is left out."),
            std::string::npos);
  desktop_->ExpectedMessages = {
      "Ann_Wickwater.plr is left alone: it may belong to the game of Wickwater.txt, which has the "
      "same name as that of AAA.txt.  If these are your cards, begin with a starter deck or a card "
      "store and take them in the deck manager: File, Load Player."};
  ChooseGame(1, 2);
  EXPECT_EQ(State().Players[1].Tokens, kFirstTokens);
  State().Collection[1] = MakeCard("Stranger", 1);
  EndGame();
  EXPECT_EQ(ReadFile(kNatural), kCards);
  EXPECT_NE(ReadFile(kOwn).find("Stranger"), std::string::npos);
  NewGame();
  ChooseGame(1, 2);
  EXPECT_NE(ReadFile(kOwn).find("Stranger"), std::string::npos);
  EXPECT_EQ(State().Collection[1].Name, "Stranger") << "and is told once";
}

TEST_F(NamesakesTest, ItGetsTheFileThatWasLastSavedForIt) {
  Start("Ann_Wickwater.plr:AAA.txt");
  ChooseGame(1, 2);
  EXPECT_EQ(State().Players[1].Tokens, 42);
  EndGame();
  EXPECT_NE(ReadFile(kOwn).find("Spare"), std::string::npos) << "from now on it is sure";
}

// At the list of games, behind a match that saved nothing, the cards of one game lie beside the
// rules of another: a save there must not make them the other's.
TEST_F(NamesakesTest, ASaveAtTheListOfGamesGivesNoFileAway) {
  Start("Ann_Wickwater.plr:Wickwater.txt");
  State().Profile.RulesFile = "AAA.txt";
  EXPECT_EQ(OwnPlayerFileName(), kNatural);
  WritePlayerFile(OwnPlayerFileName());
  EXPECT_NE(ReadFile("PlayerProfiles.txt").find("Ann_Wickwater.plr:Wickwater.txt"),
            std::string::npos)
      << ReadFile("PlayerProfiles.txt");
  EXPECT_EQ(StoredPlayerFile(1), kOwn);
}

}  // namespace
}  // namespace brindlemoor
