// A whole match that plays itself, from real files to report pages.
#include "simulation/automatic_match.h"

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
     "#GAMERULES,Imps,,#112233,imps,g.htm\n#RULESCARD\n#EFFECT,OWNER,GAMESTART,DRAWCARDS:3\n"
     "#EFFECT,ALL,PHASE2,REQTRAIT:HUMAN:REQTRAITLESS:HP:0:LOSEGAME\n"
     "#EFFECT,ALL,PHASE3,REQTRAIT:PLAYER:REQNOTRAIT:HUMAN:REQTRAITLESS:HP:0:WINGAME\n"},
    {"imps/Cards.txt",
     "#CARD,INDECK,Ann,Ann1,Cards.txt,,,#00FF00,\n#TRAIT,PLAYER\n#TRAIT,HP:6\n#TRAIT,HUMAN\n"
     "#CARD,INDECK,Imp,Imp1,Cards.txt,,imp.bmp,,\n"
     "#EFFECT,ENEMYPLAYER,PHASE1,MODTRAIT:HP:-1:ECHO:ouch\n"},
    {"imp.bmp", "x"},
    {"imps/Gob.txt",
     "#PLAYERCARD,Gob,1,2,3,,5,6,d\n#CARDINDECK,Gob,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:9\n"},
    {"imps/Hob.txt",
     "#PLAYERCARD,Hob,1,2,3,,5,6,d\n#CARDINDECK,Hob,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:99\n"
     "#EFFECT,ENEMYPLAYER,PHASE1,MODTRAIT:HP:-5\n"},
    {"imps/Rock.txt",
     "#PLAYERCARD,Rock,1,2,3,,5,6,d\n#CARDINDECK,Rock,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:99\n"},
    {"imps/Starter.txt",
     "#STARTERDECK\n#PLAYERCARD,Starter,1,2,3,,5,6,d\n#RULESCARD\n"
     "#EFFECT,SELF,GAMESTART,BOOSTERCARD:Ann:1:BOOSTERCARD:Imp:5\n#INCLUDE,Cards.txt,\n"},
    {"Auto_Imps.plr", "#TOKENS,1\n"},
};

TEST(AutomaticMatchTest, PlaysToItsEndAndTouchesOnlyItsPages) {
  const fs::path root = fs::path(testing::TempDir()) / "brindlemoor_auto";
  fs::remove_all(root);
  const auto write = [&root](const Files& files) {
    for (const auto& [name, bytes] : files) {
      fs::create_directories((root / name).parent_path());
      std::ofstream(root / name) << bytes;
    }
  };
  const auto read = [](const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path());
      files[entry.path().lexically_relative(folder).string()] =
          std::string(std::istreambuf_iterator<char>(in), {});
    }
    return files;
  };
  const auto play = [&root](int opponent, std::uint64_t seed = 1, const char* pages = "/pages") {
    std::ostringstream said;
    const std::string folder = root.string();
    const auto result = AutomaticMatch({folder, folder + pages, seed, 4, opponent}, said);
    return result.Error + said.str();
  };
  write(kGame);
  const std::pair<int, std::string> cases[] = {
      {1,
       "Turn 1: Ann HP 6, Gob HP 9\nTurn 2: Ann HP 6, Gob HP 6\nTurn 3: Ann HP 6, Gob HP 3\n"
       "After turn 3: Ann HP 6, Gob HP 0\nResult: the player wins.\n"},
      {2,
       "Turn 1: Ann HP 1, Hob HP 99\nAfter turn 1: Ann HP -4, Hob HP 96\n"
       "Result: the enemy wins.\n"},
      {3,
       "Turn 1: Ann HP 6, Rock HP 99\nTurn 2: Ann HP 6, Rock HP 96\n"
       "Turn 3: Ann HP 6, Rock HP 93\nTurn 4: Ann HP 6, Rock HP 90\n"
       "After turn 4: Ann HP 6, Rock HP 87\nResult: no decision.\n"},
      {4, "The game has no opponent number 4."},
  };
  for (const auto& [opponent, said] : cases) EXPECT_EQ(play(opponent), said);
  EXPECT_EQ(play(1, 1, ""), Joined("The pages can't go to ", root.string()));
  write({{"pages/turn-12.html", "old"}, {"pages/turn-of-events.html", "mine"}});
  play(1);
  Files pages = read(root / "pages");
  EXPECT_EQ(pages.size(), 5U);  // one for each turn, one for the end, and ours
  EXPECT_EQ(pages["turn-of-events.html"], "mine");
  play(1);
  EXPECT_EQ(read(root / "pages"), pages) << "the same seed gives the same pages";
  play(1, 2);
  EXPECT_NE(read(root / "pages"), pages);
  fs::remove_all(root / "pages");
  EXPECT_EQ(read(root), kGame);
  std::ostringstream said;
  EXPECT_EQ(AutomaticMatch({root.string(), "", 1, 2, 1, "", "", {}, false, true}, said).Error, "");
  const std::string told = said.str();
  const std::string refusal =
      "#EFFECT, ALL, PHASE2, \"REQTRAIT:HUMAN:REQTRAITLESS:HP:0:LOSEGAME\": ";
  const std::string reason =
      "filter: the target has no HUMAN (Gob, Imp, Imp and 1 more); requirement: "
      "REQTRAITLESS:HP:0, HP is 6, the value 0 (Ann)\n";
  EXPECT_NE(told.find("Turn 2: Ann HP 6, Gob HP 6\n  RulesCard #"), std::string::npos) << told;
  EXPECT_NE(told.find(refusal + reason), std::string::npos) << told;
  EXPECT_NE(told.find("Actions that never acted:\n  RulesCard, " + refusal +
                      "asked for 3 times, at last: " + reason),
            std::string::npos)
      << told;
  EXPECT_EQ(told.find("GAMESTART"), std::string::npos)
      << "it acted before the first turn: " << told;
  EXPECT_EQ(AutomaticMatch({root.string(), "", 1, 1, 1, "imps"}, said).Error, "");
  EXPECT_EQ(AutomaticMatch({root.string(), "", 1, 1, 1, "Elves"}, said).Error,
            "There is no game Elves in this folder. It has: Imps.");
  write({{"imps/Starter.txt", "#STARTERDECK\n#PLAYERCARD,S\n"}});
  EXPECT_EQ(play(1), "The game's starter decks give no cards to play with.");
  write({{"Imps.txt", ""}});
  EXPECT_EQ(play(1), "There is no game in this folder.");
  fs::remove_all(root);
  EXPECT_EQ(play(1), Joined("There is no folder ", root.string()));
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
