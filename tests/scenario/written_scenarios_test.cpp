// Scenarios that tests write: the document's examples, files that nobody meant, which come to an
// end with a word whatever stands in them, and files that are read twice.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <sstream>
#include <unistd.h>
#include <vector>

#include "core/state.h"
#include "game/turn.h"
#include "scenario/scenario_run.h"
#include "scenario/state_digest.h"
#include "simulation/automatic_match.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

class WrittenScenariosTest : public ::testing::Test {
 protected:
  WrittenScenariosTest() { fs::create_directories(folder_); }
  ~WrittenScenariosTest() override { fs::remove_all(folder_); }

  ScenarioReport Run(std::string_view text) {
    // What was read once is not read again: every text gets a name of its own.
    const std::string path = Joined(folder_, "/", ++number_, ".txt");
    std::ofstream(path, std::ios::binary) << text;
    ScenarioReport report;
    ScenarioLibrary library;
    RunScenarioFile(path, library, report);
    return report;
  }

  static std::string Whole(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }

  std::string folder_ = Joined(::testing::TempDir(), "written_scenarios_", ::getpid());
  int number_ = 0;
};

TEST_F(WrittenScenariosTest, TheExamplesOfTheDocumentHold) {
  std::ifstream stream(BRINDLEMOOR_SOURCE_DIR "/docs/scenarios.md");
  std::string text;
  int examples = 0;
  bool inside = false;
  for (std::string line; std::getline(stream, line);) {
    if (!line.starts_with("```")) {
      if (inside) text += line + "\n";
      continue;
    }
    inside = !inside;
    if (inside || text.find("\nexpect ") == std::string::npos) {
      text.clear();
      continue;
    }
    ++examples;
    const ScenarioReport report = Run("folder " BRINDLEMOOR_SOURCE_DIR "/games\n" + text);
    for (const ScenarioFinding& finding : report.Findings) {
      ADD_FAILURE() << ScenarioFindingLine(finding);
    }
    text.clear();
  }
  EXPECT_GE(examples, 2);
}

TEST_F(WrittenScenariosTest, BoundsAreNamed) {
  std::string manyRows = "set tokens 1\n| a |\n";
  for (int row = 0; row < 150000; ++row) manyRows += "| 1 |\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {std::string(5U << 20, 'x'), "This can't be read."},
      {std::string(200002, '\n') + "card", "There are more than 200000 lines."},
      {manyRows + manyRows, "There are more than 200000 lines."},
      {"card Moth in hand\ncard Eel in hand\n| n |\n| " + std::string(100000, '|') + " |\n", ""}};
  for (const auto& [text, message] : cases) {
    const ScenarioReport report = Run(text);
    const std::string found = report.Findings.empty() ? "" : report.Findings.back().Text;
    EXPECT_EQ(found, message);
  }
}

TEST_F(WrittenScenariosTest, AFileThatGoesOnAndOnIsStopped) {
  std::string text = "card Torch\n";
  for (int line = 0; line < 1000; ++line) text += "set tokens 1\n";
  text += "| a |\n";
  for (int row = 0; row < 2000; ++row) text += "| 1 |\n";
  const ScenarioReport report = Run(text);
  ASSERT_EQ(report.Findings.size(), 1U);
  EXPECT_EQ(report.Findings[0].Text,
            "The scenarios of this file have too many lines to carry out.");
}

TEST_F(WrittenScenariosTest, FilesThatWereReadBeforeGiveTheSame) {
  // Expectations that fail say what was there.
  const ScenarioReport report = Run(
      Joined("folder ", BRINDLEMOOR_SOURCE_DIR, "/games\nrules Wickwater.txt\nseed 7\n",
             "player 1 with KEEPER HP:20\nplayer 2 with KEEPER HP:20\n",
             "card Mouse \"Wick Mouse\" from WickwaterCards.txt\n",
             "card Tortoise \"Brass Tortoise\" from WickwaterCards.txt owner 2\nturn 3 noplays\n",
             "expect seed 1\nexpect traits Tortoise\nexpect page Display.html is \"\"\n",
             "| round |\n| 1 |\n| 2 |\n"));
  EXPECT_EQ(report.Unreadable, 0);
  ASSERT_EQ(report.Findings.size(), 6U);
  for (std::size_t finding = 0; finding < 3; ++finding) {
    EXPECT_EQ(report.Findings[finding].Text, report.Findings[finding + 3].Text);
  }
}

TEST_F(WrittenScenariosTest, AMatchThatWasSavedGoesOn) {
  const std::string games = BRINDLEMOOR_SOURCE_DIR "/games";
  std::ostringstream unseen;
  AutomaticMatchOptions options{
      .Folder = games, .PagesFolder = "", .Seed = 4, .MaximumTurns = 3, .Game = "Wickwater"};
  options.SaveTo = folder_ + "/kept.match";
  ASSERT_EQ(AutomaticMatch(options, unseen).Error, "");
  const std::string digest = StateDigest();
  TakeTurn(0);
  const std::uint64_t luck = State().Random.State;
  const std::string after = StateDigest();

  const std::string path = folder_ + "/bug.txt";
  std::ofstream(path) << "folder " << games << "\ncard Moth gid 1\nmatch kept.match\n"
                      << "expect nocard Moth\nturn\nexpect gameover 0\n"
                      << "expect page Display.html contains \"CARD\"\n";
  ScenarioReport report;
  ScenarioLibrary library;
  std::vector<std::string> digests;
  bool lucky = false;
  RunScenarioFile(path, library, report, [&](const Scene&) {
    digests.push_back(StateDigest());
    if (digests.size() == 5) lucky = State().Random.State == luck;
  });
  for (const ScenarioFinding& finding : report.Findings) {
    ADD_FAILURE() << ScenarioFindingLine(finding);
  }
  ASSERT_EQ(digests.size(), 7U);
  EXPECT_TRUE(lucky) << "another turn was rolled";
  EXPECT_EQ(FirstDifference(digest, digests[2]), "");
  EXPECT_EQ(FirstDifference(after, digests[4]), "");

  const auto problemOf = [this](const std::string& text) {
    const ScenarioReport found = Run(text);
    return found.Findings.empty() ? "" : found.Findings[0].Text;
  };
  EXPECT_EQ(problemOf("match kept.match\n"),
            "The game of the match is not in the folder: there is no Wickwater.txt.");
  EXPECT_EQ(problemOf("match bug.txt\n"), "bug.txt is no saved match.");
}

TEST_F(WrittenScenariosTest, MixedUpLinesOfTheTestFilesComeToAnEnd) {
  const fs::path tests = fs::path(BRINDLEMOOR_SOURCE_DIR) / "tests";
  std::vector<std::string> words;
  std::vector<std::string> lines;
  for (const fs::path& folder : {tests / "scenarios", tests / "scenario/failing"}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      for (std::string line; std::getline(stream, line);) {
        std::istringstream tokens(line);
        for (std::string word; tokens >> word;) words.push_back(word);
        if (!line.starts_with("scenario") && !line.starts_with('#')) lines.push_back(line);
      }
    }
  }
  std::mt19937 random(7);
  const auto pick = [&random](const auto& list) -> const auto& {
    return list[std::uniform_int_distribution<std::size_t>(0, list.size() - 1)(random)];
  };
  int carriedOut = 0;
  constexpr int kFiles = 1500;
  for (int file = 0; file < kFiles; ++file) {
    std::vector<std::string> text = {"card Ada", "card Bob owner 2 with HP:5", "card Moth in hand",
                                     "player 1", "seed 1"};
    for (int line = 0; line < 12; ++line) {
      std::string one = pick(lines);
      const std::size_t at = one.find_last_of(' ');
      if (random() % 3 == 0 && at != std::string::npos) one = one.substr(0, at + 1) + pick(words);
      if (random() % 20 == 0 && !one.empty()) one[random() % one.size()] ^= 0x15;
      text.push_back(one);
    }
    ScenarioReport report = Run(Whole(text));
    // A line without meaning keeps the file from being carried out: those are taken out.
    for (std::size_t round = 0; round < text.size() && report.Scenarios == 0; ++round) {
      for (const ScenarioFinding& finding : report.Findings) {
        if (finding.Line > 0) text[static_cast<std::size_t>(finding.Line) - 1].clear();
      }
      report = Run(Whole(text));
    }
    carriedOut += report.Scenarios > 0 ? 1 : 0;
  }
  EXPECT_GT(carriedOut, kFiles * 9 / 10);
}

}  // namespace
}  // namespace brindlemoor
