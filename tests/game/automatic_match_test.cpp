// A whole match that plays itself, from real files to report pages.
#include "game/automatic_match.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "core/state.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

/// A game in which every Imp in play takes one HP of the other side's player each turn.
const Files kGame = {
    {"Imps.txt",
     "#GAMERULES,Imps,,#112233,imps,g.htm\n"
     "#RULESCARD\n"
     "#EFFECT,OWNER,GAMESTART,DRAWCARDS:3\n"
     "#EFFECT,ALL,PHASE2,REQTRAIT:HUMAN:REQTRAITLESS:HP:0:LOSEGAME\n"
     "#EFFECT,ALL,PHASE3,REQTRAIT:PLAYER:REQNOTRAIT:HUMAN:REQTRAITLESS:HP:0:WINGAME\n"},
    {"imps/Cards.txt",
     "#CARD,INDECK,Ann,Ann1,Cards.txt,,,#00FF00,\n#TRAIT,PLAYER\n#TRAIT,HP:6\n#TRAIT,HUMAN\n"
     "#CARD,INDECK,Imp,Imp1,Cards.txt,,imp.bmp,,\n"
     "#EFFECT,ENEMYPLAYER,PHASE1,MODTRAIT:HP:-1:ECHOMINOR:ouch\n"},
    {"imps/Gob.txt",
     "#PLAYERCARD,Gob,1,2,3,,5,6,d\n#CARDINDECK,Gob,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:9\n"
     "#EXTRADATA,0,,,,\n"},
    {"imps/Hob.txt",
     "#PLAYERCARD,Hob,1,2,3,,5,6,d\n"
     "#CARD,INDECK,Hob,Hob1,Hob.txt,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:99\n"
     "#EFFECT,ENEMYPLAYER,PHASE1,MODTRAIT:HP:-5\n"},
    {"imps/Rock.txt",
     "#PLAYERCARD,Rock,1,2,3,,5,6,d\n"
     "#CARD,INDECK,Rock,Rock1,Rock.txt,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:99\n"},
    {"imps/Starter.txt",
     "#STARTERDECK\n#PLAYERCARD,Starter,1,2,3,,5,6,d\n"
     "#RULESCARD\n#EFFECT,SELF,GAMESTART,BOOSTERCARD:Ann:1:BOOSTERCARD:Imp:5\n"
     "#INCLUDE,Cards.txt,\n"},
    {"imp.bmp", "x"},
    {"Auto_Imps.plr", "#TOKENS,1\n"},
};

void WriteFiles(const fs::path& folder, const Files& files) {
  for (const auto& [name, bytes] : files) {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name) << bytes;
  }
}

Files FilesOf(const fs::path& folder) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream in(entry.path());
    std::ostringstream bytes;
    bytes << in.rdbuf();
    files[entry.path().lexically_relative(folder).string()] = bytes.str();
  }
  return files;
}

class AutomaticMatchTest : public ::testing::Test {
 protected:
  AutomaticMatchTest() : root_(fs::path(testing::TempDir()) / "brindlemoor_auto") {
    fs::remove_all(root_);
    WriteFiles(root_ / "game", kGame);
  }
  ~AutomaticMatchTest() override {
    fs::remove_all(root_);
    State() = Session{};
  }
  AutomaticMatchOptions Options(const std::string& pages) const {
    AutomaticMatchOptions options;
    options.Folder = (root_ / "game").string();
    options.PagesFolder = (root_ / pages).string();
    return options;
  }

  const fs::path root_;
};

TEST_F(AutomaticMatchTest, MatchesEndByTheRulesOrTheMaximum) {
  struct {
    int opponent;
    int turns;
    MatchWinner winner;
    const char* text;
  } const cases[] = {
      {1, 3, MatchWinner::kPlayer,
       "Turn 1: Ann HP 6, Gob HP 9\nTurn 2: Ann HP 6, Gob HP 6\nTurn 3: Ann HP 6, Gob HP 3\n"
       "After turn 3: Ann HP 6, Gob HP 0\nResult: the player wins.\n"},
      {2, 1, MatchWinner::kEnemy,
       "Turn 1: Ann HP 1, Hob HP 99\nAfter turn 1: Ann HP -4, Hob HP 96\n"
       "Result: the enemy wins.\n"},
      {3, 4, MatchWinner::kNobody,
       "Turn 1: Ann HP 6, Rock HP 99\nTurn 2: Ann HP 6, Rock HP 96\n"
       "Turn 3: Ann HP 6, Rock HP 93\nTurn 4: Ann HP 6, Rock HP 90\n"
       "After turn 4: Ann HP 6, Rock HP 87\nResult: no decision.\n"},
  };
  for (const auto& row : cases) {
    AutomaticMatchOptions options = Options("pages");
    options.Opponent = row.opponent;
    options.MaximumTurns = 4;
    std::ostringstream out;
    const AutomaticMatchResult result = AutomaticMatch(options, out);
    EXPECT_EQ(result.Error, "");
    EXPECT_EQ(result.Winner, row.winner);
    EXPECT_EQ(result.Turns, row.turns);
    EXPECT_EQ(out.str(), row.text);
    const Files pages = FilesOf(root_ / "pages");  // those of the match before are gone
    EXPECT_EQ(pages.size(), static_cast<std::size_t>(row.turns) + 1);
    EXPECT_TRUE(pages.contains(Joined("turn-00", row.turns, ".html")));
  }
  EXPECT_EQ(FilesOf(root_ / "game"), kGame);
}

TEST_F(AutomaticMatchTest, SameSeedGivesTheSamePages) {
  std::ostringstream out;
  EXPECT_EQ(AutomaticMatch(Options("one"), out).Error, "");
  EXPECT_EQ(AutomaticMatch(Options("two"), out).Error, "");
  AutomaticMatchOptions other = Options("three");
  other.Seed = 2;
  EXPECT_EQ(AutomaticMatch(other, out).Error, "");
  const Files pages = FilesOf(root_ / "one");
  EXPECT_EQ(pages, FilesOf(root_ / "two"));
  EXPECT_NE(pages, FilesOf(root_ / "three"));
  // The pictures are those of the game's own folder.
  const std::string picture = Joined("\"file://", (root_ / "game/imp.bmp").string(), "\"");
  EXPECT_NE(pages.at("turn-001.html").find(picture), std::string::npos);
}

// The folder of the game is never written to, whatever the pages' folder is called.
TEST_F(AutomaticMatchTest, OwnFilesAreSafe) {
  WriteFiles(root_ / "pages", {{"turn-12.html", "old"}, {"turn-of-events.html", "mine"}});
  std::ostringstream out;
  EXPECT_EQ(AutomaticMatch(Options("pages"), out).Error, "");
  const Files pages = FilesOf(root_ / "pages");
  EXPECT_FALSE(pages.contains("turn-12.html"));
  EXPECT_TRUE(pages.contains("turn-of-events.html"));
  EXPECT_EQ(AutomaticMatch(Options("game"), out).Error,
            Joined("The pages can't go to ", (root_ / "game").string()));
  EXPECT_EQ(AutomaticMatch(Options("game/pages"), out).Error, "");
  fs::remove_all(root_ / "game/pages");
  EXPECT_EQ(FilesOf(root_ / "game"), kGame);
}

TEST_F(AutomaticMatchTest, WhatCannotBePlayedIsSaid) {
  const Files starterGivesNothing = {{"imps/Starter.txt", "#STARTERDECK\n#PLAYERCARD,S\n"}};
  const std::string game = (root_ / "game").string();
  struct {
    const char* folder;
    Files changed;
    int opponent;
    std::string error;
  } const cases[] = {
      {"none", {}, 1, Joined("There is no folder ", (root_ / "none").string())},
      {"game", {}, 4, "The game has no opponent number 4."},
      {"game", starterGivesNothing, 1, "The game's starter decks give no cards to play with."},
      {"game", {{"Imps.txt", ""}}, 1, "There is no game in this folder."},
  };
  for (const auto& row : cases) {
    WriteFiles(game, row.changed);
    AutomaticMatchOptions options = Options("pages");
    options.Folder = (root_ / row.folder).string();
    options.Opponent = row.opponent;
    std::ostringstream out;
    EXPECT_EQ(AutomaticMatch(options, out).Error, row.error);
    EXPECT_EQ(out.str(), "");
  }
}

}  // namespace
}  // namespace brindlemoor
