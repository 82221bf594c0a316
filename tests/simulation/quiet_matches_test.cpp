// Matches whose texts nobody reads: they end as they do when every text is composed, whatever those
// texts roll, read and cost.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/random.h"
#include "core/state.h"
#include "simulation/simulation.h"
#include "simulation/stage.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

/// What a match came to, down to the next number that would be rolled.
std::string Outcome(Stage& stage, const SimulationSetup& setup, const MatchKey& key) {
  const PlayedMatch played = PlayMatch(setup, key, stage);
  std::string outcome = Joined(stage.MatchHash(), " winner ", played.Winner, " turns ",
                               played.Turns, " tokens ", played.Tokens, " worths");
  for (const LoggedWorth& worth : stage.Log().Worths) outcome += Joined(" ", worth.Worth);
  const int roll = RollDie(1e9);
  return Joined(outcome, " next ", roll);
}

/// Plays matches of every pairing quietly and aloud. How many were quiet to their end.
int CompareMatches(const SimulationOptions& options) {
  Stage quiet;
  Stage aloud;
  SimulationSetup setup;
  // The stages take turns on the one session; each match begins it anew.
  EXPECT_EQ(PrepareSimulation(options, aloud, setup), "");
  EXPECT_EQ(PrepareSimulation(options, quiet, setup), "");
  aloud.PlayAloud();
  int quietMatches = 0;
  for (int pairing = 0; pairing < setup.Pairings(); ++pairing) {
    MatchKey key{pairing, false};
    EXPECT_EQ(SeatMatch(setup, key, quiet), "");
    EXPECT_EQ(SeatMatch(setup, key, aloud), "");
    for (key.Match = 0; key.Match < setup.Matches; ++key.Match) {
      const std::string expected = Outcome(aloud, setup, key);
      EXPECT_EQ(Outcome(quiet, setup, key), expected) << "pairing " << pairing;
      quietMatches += State().Quiet ? 1 : 0;
    }
  }
  return quietMatches;
}

class QuietMatchesTest : public ::testing::Test {
 protected:
  ~QuietMatchesTest() override {
    State() = Session{};
    fs::remove_all(root_);
  }
  void Write(const std::string& name, std::string_view bytes) const {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << bytes;
  }
  /// A game whose Imps act with a script each turn, and how many of four matches were quiet.
  int Compare(std::string_view script, std::string_view rules = "") const {
    Write("Imps.txt", Joined("#GAMERULES,Imps,,#112233,imps,g.htm\n", rules,
                             "#RULESCARD\n#EFFECT,ALL,GAMESTART,REQTRAIT:PLAYER:DRAWCARDS:4\n"
                             "#EFFECT,ALL,TURNEND,REQTRAIT:PLAYER:REQTRAITLESS:HP:0:LOSEGAME\n"));
    Write("imps/Cards.txt",
          Joined("#CARD,INDECK,Ann,Ann1,Cards.txt,,,#00FF00,\n#TRAIT,PLAYER\n"
                 "#TRAIT,HP:40\n#CARD,INDECK,Imp,Imp1,Cards.txt,imp.bmp,imp.bmp,,\n"
                 "#TRAIT,LUCK:2\n#EFFECT,ENEMYPLAYER,PHASE1,\"",
                 script, ":MODTRAIT:HP:R1Die06/NEG\"\n"));
    Write("imps/Gob.txt",
          "#PLAYERCARD,Gob,1,2,3,,5,6,d\n#CARD,INDECK,Gob,,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:40\n"
          "#CARD,INDECK,Imp,Imp1,Cards.txt,imp.bmp,imp.bmp,,\n#DUPLICATE,6\n");
    Write("imps/Starter.txt",
          "#STARTERDECK\n#PLAYERCARD,Starter,1,2,3,,5,6,d\n#RULESCARD\n"
          "#EFFECT,SELF,GAMESTART,BOOSTERCARD:Ann:1:BOOSTERCARD:Imp:5\n#INCLUDE,Cards.txt,\n");
    SimulationOptions options;
    options.Folder = root_.string();
    options.Matches = 4;
    options.MaximumTurns = 12;
    return CompareMatches(options);
  }

  const fs::path root_ = fs::path(testing::TempDir()) / Joined("brindlemoor_quiet_", ::getpid());
};

TEST(QuietMatches, OfTheShippedGamesEndAsThoseWithTexts) {
  for (const char* game : {"Wickwater", "Yawnwood"}) {
    SimulationOptions options;
    options.Folder = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
    options.Game = game;
    options.Matches = 2;
    EXPECT_GT(CompareMatches(options), 0) << game;
  }
  State() = Session{};
}

TEST_F(QuietMatchesTest, EndAlikeWhateverTheirTextsRollAndRead) {
  struct Case {
    const char* Script;
    const char* Rules = "";
  };
  for (const Case& sample : std::initializer_list<Case>{
           {"ECHO:$MYNAME hits $TARGETNAME for $AMT"},
           {"ECHO:luck #MYTRAIT/LUCK# &#8288; and #TRAIT/HP#"},
           {"ECHO:it rolls #TRANSVAL/R1Die20#"},
           {"ECHOMINOR:a word: &col%WORD%",
            "#CUSTOMSTRING,%WORD%,one\n#CUSTOMSTRING,%WORD%,two\n#CUSTOMSTRING,%WORD%,three\n"},
           {"ECHOFAIL:%WORD%:REQTRAIT:NONE9",
            "#CUSTOMSTRING,%WORD%,one\n#CUSTOMSTRING,%WORD%,two\n"},
           {"SETMYTRAIT:TALE:#TRANSVAL/R1Die20#:ECHO:#MYTRAIT/TALE#"},
           {"SETMYTRAIT:BONUSHP:R1Die06:MODMYTRAIT:HP:1:ECHO:it grows"},
           {"SETTRAIT:BONUSHP:R2Die06:ECHO:it grows"},
           {"ECHO:#TRANS#MYTRAIT/GONE#VAL/R1Die20# and #MYTRAIT/LUCK#"},
           {"CHANGEMYNAME:Imp of $MYIMG#TRANSVAL/R1Die06#:ECHO:$MYNAME"},
           {"CHANGENAME:$MYNAME:ECHO:$TARGETNAME"},
           {"CHANGEIMG:$MYIMG:ECHO:a picture"},
           {"REQTRAITIS:HP:#TRAIT/HP#:ECHO:so it is"},
           {"ECHO:badges", "#TRAIT,TRAITGRAPHIC:LUCK:imp.bmp:#TRANSVAL/R1Die06#:#FFFFFF:1:1\n"},
       }) {
    SCOPED_TRACE(sample.Script);
    EXPECT_EQ(Compare(sample.Script, sample.Rules), 4);
  }
}

TEST_F(QuietMatchesTest, ArePlayedAgainAloudWhereTheirTextsMightUseUpTheWork) {
  std::string script = "ECHO:again";
  for (int times = 0; times < 300; ++times) script += ":ECHO:and again";
  EXPECT_EQ(Compare(script), 0);
}

}  // namespace
}  // namespace brindlemoor
