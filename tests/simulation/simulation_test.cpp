// Simulations of a small game on real files: what is counted, and that neither the split of the
// work nor what was played before changes anything.
#include "simulation/simulation.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

#include "core/state.h"
#include "simulation/report.h"
#include "simulation/stage.h"
#include "simulation/totals_file.h"
#include "tests/simulation/merged_shards.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

/// A game in which every Imp in play takes one HP of the other side's player each turn; Duds do
/// nothing and are kept in the hand. A win brings 7 tokens.
const Files kGame = {
    {"Imps.txt",
     "#GAMERULES,Imps,,#112233,imps,g.htm\n#RULESCARD\n"
     "#EFFECT,ALL,GAMESTART,REQTRAIT:PLAYER:DRAWCARDS:4\n"
     "#EFFECT,ALL,TURNSTART,REQTRAIT:PLAYER:DRAWCARDS:1\n"
     "#EFFECT,ALL,TURNEND,REQTRAIT:PLAYER:REQENEMY:REQTRAITLESS:HP:0:MODTOKENS:7:WINGAME\n"
     "#EFFECT,ALL,TURNEND,REQTRAIT:PLAYER:REQALLY:REQTRAITLESS:HP:0:LOSEGAME\n"},
    {"Zeds.txt", "#GAMERULES,Zeds,,#112233,zeds,z.htm\n"},
    {"imps/Cards.txt",
     "#CARD,INDECK,Ann,Ann1,Cards.txt,,,#00FF00,\n#TRAIT,PLAYER\n#TRAIT,HP:12\n"
     "#CARD,INDECK,Imp,Imp1,Cards.txt,,imp.bmp,,\n"
     "#EFFECT,ENEMYPLAYER,PHASE1,MODTRAIT:HP:-1:ECHO:ouch\n"
     "#CARD,INDECK,Dud,Dud1,Cards.txt,,imp.bmp,,\n"},
    {"imp.bmp", "x"},
    {"imps/Gob.txt",
     "#PLAYERCARD,Gob,1,2,3,,5,6,d\n#CARD,INDECK,Gob,,,,,,\n#TRAIT,PLAYER\n#TRAIT,HP:9\n"
     "#CARD,INDECK,Imp,Imp1,Cards.txt,,imp.bmp,,\n#DUPLICATE,3\n"
     "#CARD,INDECK,Dud,Dud1,Cards.txt,,imp.bmp,,\n#DUPLICATE,3\n"},
    {"imps/Rock.txt",
     "#PLAYERCARD,Rock,1,2,3,,5,6,d\n#CARD,INDECK,Rock,,,,,,\n#TRAIT,PLAYER\n"
     "#TRAIT,HP:999\n"},
    {"imps/Starter.txt",
     "#STARTERDECK\n#PLAYERCARD,Starter,1,2,3,,5,6,d\n#RULESCARD\n"
     "#EFFECT,SELF,GAMESTART,BOOSTERCARD:Ann:1:BOOSTERCARD:Imp:5:BOOSTERCARD:Dud:4\n"
     "#INCLUDE,Cards.txt,\n"},
    {"imps/Shop.txt", "#STARTERDECK\n#PLAYERCARD,Shop,1,2,3,,5,6,d\n"},
};

class SimulationTest : public ::testing::Test {
 protected:
  SimulationTest() {
    fs::remove_all(root_);
    for (const auto& [name, bytes] : kGame) Write(name, bytes);
    options_.Folder = root_.string();
    options_.Game = "imps";
    options_.Matches = 40;
    options_.MaximumTurns = 30;
  }
  ~SimulationTest() override {
    fs::remove_all(root_);
    State() = Session{};
  }
  void Write(const std::string& name, std::string_view bytes) const {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << bytes;
  }
  /// The totals as text, of all jobs one after the other.
  std::string Simulate(int jobs = 1) const {
    TotalsFile file;
    for (int job = 0; job < jobs; ++job) {
      Stage stage;
      EXPECT_EQ(PrepareSimulation(options_, stage, file.Setup), "");
      EXPECT_EQ(PlayMatches(file.Setup, {job, jobs}, stage, file.Sums, [] {}), "");
    }
    return TotalsText(file);
  }
  static Totals SumsOf(const std::string& text) {
    TotalsFile file;
    EXPECT_EQ(ReadTotals(text, file), "");
    return file.Sums;
  }

  // Tests run side by side.
  const fs::path root_ =
      fs::path(testing::TempDir()) / Joined("brindlemoor_simulation_", ::getpid());
  SimulationOptions options_;
};

TEST_F(SimulationTest, CountsWhatHappened) {
  const Totals totals = SumsOf(Simulate());
  ASSERT_EQ(totals.Pairings.size(), 2U) << "two opponents, one deck: the shop gives nothing";
  const auto& [gob, rock] = std::tie(totals.Pairings[0], totals.Pairings[1]);
  for (const SeatTotals& seat : gob.Seats) {
    EXPECT_EQ(seat.Deck.Matches, 20);
    EXPECT_EQ(seat.Deck.Undecided(), 0);
    EXPECT_GE(seat.Deck.Wins, 12) << "the deck has more imps and more HP";
  }
  EXPECT_EQ(gob.Seats[0].Tokens, 7 * gob.Seats[0].Deck.Wins);
  EXPECT_EQ(gob.Seats[1].Tokens, 7 * gob.Seats[1].Deck.Losses) << "side 1 is the opponent there";
  EXPECT_EQ(rock.Seats[0].Deck, (Score{20, 0, 0})) << "the rock stands";
  EXPECT_EQ(rock.Lengths, (std::map<int, Count>{{30, 40}}));
  const CardTotals& imp = totals.Cards.at("Imp1");
  EXPECT_EQ(imp.Name, "Imp");
  EXPECT_GE(imp.Drawn, imp.Played);
  EXPECT_GE(imp.Played, 40 * 5) << "in matches against the rock all five are drawn and played";
  EXPECT_EQ(imp.WhenHeld.Matches, 0);
  const CardTotals& dud = totals.Cards.at("Dud1");
  EXPECT_GE(dud.Drawn, 40 * 4);
  EXPECT_EQ(dud.Played, 0) << "worth nothing to the computer, on both sides";
  EXPECT_EQ(dud.WhenPlayed.Matches, 0);
}

TEST_F(SimulationTest, DecksCanMeetEachOtherAndThemselves) {
  Write("imps/Weak.txt",
        "#STARTERDECK\n#PLAYERCARD,Weak,1,2,3,,5,6,d\n#RULESCARD\n"
        "#EFFECT,SELF,GAMESTART,BOOSTERCARD:Ann:1:BOOSTERCARD:Imp:1:BOOSTERCARD:Dud:8\n"
        "#INCLUDE,Cards.txt,\n");
  options_.DecksMeet = true;
  TotalsFile file;
  ASSERT_EQ(ReadTotals(Simulate(), file), "");
  EXPECT_EQ(file.Setup.Decks, (std::vector<std::string>{"Starter", "Weak"}));
  EXPECT_EQ(file.Setup.Opponents, file.Setup.Decks) << "neither Gob nor Rock";
  const std::vector<PairingTotals>& pairings = file.Sums.Pairings;
  ASSERT_EQ(pairings.size(), 4U);
  const auto wins = [&pairings](std::size_t pairing) {
    return pairings[pairing].Seats[0].Deck.Wins + pairings[pairing].Seats[1].Deck.Wins;
  };
  EXPECT_LE(wins(1), 4) << "the weak deck against the strong one";
  EXPECT_GE(wins(2), 36);
  for (const SeatTotals& seat : pairings[0].Seats) EXPECT_EQ(seat.Deck.Matches, 20);
}

TEST_F(SimulationTest, SameBytesForAnyJobsAndShards) {
  const std::string whole = Simulate();
  for (const int jobs : {2, 5}) EXPECT_EQ(Simulate(jobs), whole) << jobs;
  std::vector<NamedTotals> parts(3);
  options_.Shards = 3;
  for (int shard = 1; shard <= 3; ++shard) {
    options_.Shard = shard;
    EXPECT_EQ(ReadTotals(Simulate(2), parts[static_cast<std::size_t>(shard) - 1].File), "");
  }
  TotalsFile merged;
  EXPECT_EQ(MergeTotals(parts, merged), "");
  EXPECT_EQ(TotalsText(merged), whole);
  options_ = {options_.Folder, "Imps", 40, 2, 30};
  EXPECT_NE(SumsOf(Simulate()), merged.Sums) << "another seed";
}

TEST_F(SimulationTest, AMatchIsAFunctionOfItsSeedWhateverWasPlayedBefore) {
  Stage stage;
  ASSERT_EQ(stage.Open(root_.string(), "Imps", 1), "");
  ASSERT_EQ(stage.Seat(stage.Decks()[0], stage.Opponents()[0]), "");
  const auto play = [&stage](std::uint64_t seed) {
    const PlayedMatch outcome = stage.Play(seed, 30);
    std::string text = Joined(outcome.Winner, " ", outcome.Turns, " ", outcome.Tokens);
    for (const LoggedEvent& event : stage.Log().Events) {
      text += Joined(" ", static_cast<int>(event.Kind), event.Side, event.Name);
    }
    return text;
  };
  const std::string first = play(7);
  const std::size_t scripts = State().InternedTexts.size();
  for (std::uint64_t seed = 100; seed < 150; ++seed) play(seed);
  EXPECT_EQ(play(7), first);
  EXPECT_EQ(State().InternedTexts.size(), scripts) << "nothing gathers from match to match";
  EXPECT_NE(play(8), first);
  ASSERT_EQ(stage.Seat(stage.Opponents()[0], stage.Decks()[0]), "");
  EXPECT_NE(play(7), first);
  ASSERT_EQ(stage.Seat(stage.Decks()[0], stage.Opponents()[0]), "");
  EXPECT_EQ(play(7), first);
}

TEST_F(SimulationTest, TheFolderStaysAsItIsAndItsPlayersDoNotMatter) {
  const std::string before = Simulate();
  Write("Simulation_Imps.plr", "#TOKENS,9\n");
  Write("PlayerProfiles.txt", "Simulation,,\n");
  EXPECT_EQ(Simulate(), before);
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root_))
    files += entry.is_regular_file();
  EXPECT_EQ(files, kGame.size() + 2);
  Write("imps/Cards.txt", kGame.at("imps/Cards.txt") + "\n");
  EXPECT_NE(Simulate(), before) << "other card files are another simulation";
}

TEST_F(SimulationTest, ShardsThatAreWrittenIntoTheFolderAreNoCardFiles) {
  const auto hash = [this] {
    Stage stage;
    SimulationSetup setup;
    EXPECT_EQ(PrepareSimulation(options_, stage, setup), "");
    return setup.FilesHash;
  };
  const std::string before = hash();
  Write("shard-1.txt", Simulate());
  Write("imps/shard-2.txt", "brindle-sim\t1\nof an older program");
  EXPECT_EQ(hash(), before);
  Write("imps/More.txt", "#CARD,INDECK,Ann,,,,,,\n");
  EXPECT_NE(hash(), before);
}

TEST_F(SimulationTest, SaysWhyThereIsNothingToPlay) {
  const auto open = [this](std::string_view game) { return Stage().Open(root_.string(), game, 1); };
  EXPECT_EQ(open("Ghosts"), "There is no game Ghosts in this folder. It has: Imps, Zeds.");
  EXPECT_EQ(open("Zeds"), "The game has no opponent.");
  EXPECT_EQ(open(""), "") << "the first game";
  Write("imps/Starter.txt", kGame.at("imps/Shop.txt"));
  EXPECT_EQ(open("Imps"), "The game's starter decks give no cards to play with.");
  Write("Imps.txt", "");
  Write("Zeds.txt", "");
  EXPECT_EQ(open(""), "There is no game in this folder.");
  fs::remove_all(root_);
  EXPECT_EQ(open(""), Joined("There is no folder ", root_.string()));
}

TEST_F(SimulationTest, ReportsHoldTheSameNumbersInEveryForm) {
  Write("imps/Gob.txt",
        "#PLAYERCARD,\"Gob <b>, \"\"x\",1,2,3,,5,6,d\n" + kGame.at("imps/Gob.txt").substr(30));
  TotalsFile file;
  ASSERT_EQ(ReadTotals(Simulate(), file), "");
  const Report report = MakeReport(file);
  const std::string won = PercentText(report.Pairings[0].Won);
  const std::string text = ReportAsText(report);
  EXPECT_TRUE(text.starts_with("Imps: 40 matches of each pairing, seed 1, at most 30 turns\n\n"));
  EXPECT_NE(text.find(won), std::string::npos);
  Report strange = report;
  strange.Setup.Game = strange.Pairings[0].Opponent = "\x1B[2J\r\n\x7F!";
  const std::string calm = ReportAsText(strange);
  EXPECT_NE(calm.find(" [2J   !"), std::string::npos);
  EXPECT_EQ(calm.find_first_of("\x1B\r\x7F"), std::string::npos) << "nothing steers the terminal";
  const std::string csv = ReportAsCsv(report);
  EXPECT_NE(csv.find("pairing,\"Gob <b>,"), std::string::npos) << csv;
  EXPECT_NE(csv.find("\r\ncard,"), std::string::npos);
  EXPECT_NE(csv.find(FixedText(report.Pairings[0].Won.Value, 4)), std::string::npos);
  const std::string html = ReportAsHtml(report);
  EXPECT_NE(html.find(won), std::string::npos);
  EXPECT_NE(html.find("Gob &lt;b&gt;,"), std::string::npos);
  EXPECT_EQ(html.find("Gob <b>"), std::string::npos);
  for (const char* foreign : {"<script", "http:", "https:", "src=", "href="}) {
    EXPECT_EQ(html.find(foreign), std::string::npos) << foreign;
  }
  EXPECT_NE(ReportAsJson(report).find("\"deck\": \"Starter\", \"matches\": 40"), std::string::npos);
}

TEST(CsvTest, NoNameIsAFormula) {
  const std::pair<const char*, const char*> names[] = {
      {"=1+1", "'=1+1"},
      {"+SUM(A1)", "'+SUM(A1)"},
      {"-2+3", "'-2+3"},
      {"@A1", "'@A1"},
      {"\t=1", "'\t=1"},
      {"\r=1", "\"'\r=1\""},
      {"=\"a\",b", "\"'=\"\"a\"\",b\""},
      {"-", "'-"},
      {"-5", "-5"},
      {"+3", "+3"},
      {"Imp = 2", "Imp = 2"},
      {"", ""},
  };
  for (const auto& [name, field] : names) {
    Report report;
    report.Pairings.emplace_back().Opponent = name;
    report.Pairings[0].Tokens = -1;
    CardReport& card = report.Cards.emplace_back();
    card.Id = card.Sums.Name = name;
    const std::string csv = ReportAsCsv(report);
    EXPECT_NE(csv.find(Joined("\r\npairing,", field, ",")), std::string::npos) << csv;
    EXPECT_NE(csv.find(Joined("\r\ncard,,,", field, ",", field, ",")), std::string::npos) << csv;
    EXPECT_NE(csv.find(",-1.0000\r\n"), std::string::npos) << "numbers stay numbers";
  }
}

TEST(ReportNumbersTest, AreWrittenForReading) {
  EXPECT_EQ(FixedText(-0.04, 1), "0.0");
  EXPECT_EQ(FixedText(12.345, 2), "12.35");
  EXPECT_EQ(PointsText(0.0421), "+4.2");
  EXPECT_EQ(PointsText(-0.0421), "-4.2");
  EXPECT_EQ(PercentText({}), "-");
  EXPECT_EQ(IntervalText(WilsonShare(5, 10)), "23.7 to 76.3 %");
}

}  // namespace
}  // namespace brindlemoor
