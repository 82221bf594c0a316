// Card files with one fault each: every file says in its head what is to be found, and nothing
// else.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

#include "check/checked_file.h"
#include "check/game_check.h"
#include "core/state.h"
#include "platform/headless/headless_platform.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExpect = "*** expect: ";

const fs::path& Here() {
  static const fs::path here = fs::path(BRINDLEMOOR_SOURCE_DIR) / "tests/check";
  return here;
}

std::vector<std::string> ExpectedIn(const fs::path& file) {
  std::vector<std::string> lines;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(kExpect)) lines.push_back(line.substr(kExpect.size()));
  }
  return lines;
}

std::string Shown(const Finding& finding) {
  std::string text =
      Joined(finding.Place.Line, ":", finding.Place.Column, " ", RowOf(finding.Code).Word);
  return finding.Suggestion.empty() ? text : text + " " + finding.Suggestion;
}

class FaultsTest : public ::testing::Test {
 protected:
  FaultsTest() {
    State() = Session{};
    State().Desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>());
  }
  ~FaultsTest() override { State() = Session{}; }
};

TEST_F(FaultsTest, EveryFaultyFileHasItsFindingAndNoOther) {
  int files = 0;
  std::set<FindingCode> codes;
  for (const auto& entry : fs::directory_iterator(Here() / "faults")) {
    ++files;
    const CheckResult result = CheckPaths({entry.path().string()});
    std::vector<std::string> found;
    for (const Finding& finding : result.Findings) {
      found.push_back(Shown(finding));
      codes.insert(finding.Code);
    }
    EXPECT_EQ(found, ExpectedIn(entry.path())) << entry.path().filename();
  }
  EXPECT_GT(files, 30);
  // Traits, decks and shared names need a whole game, a quote can't stand in a file, and files here
  // can be read.
  const std::set<FindingCode> elsewhere = {
      FindingCode::kUnreadable,     FindingCode::kQuote,         FindingCode::kTraitNeverGiven,
      FindingCode::kTraitNeverRead, FindingCode::kTraitCase,     FindingCode::kCardText,
      FindingCode::kDeckRule,       FindingCode::kDuplicateGame, FindingCode::kDuplicateFile,
      FindingCode::kForeignFile};
  for (const FindingRow& row : FindingRows()) {
    EXPECT_NE(codes.contains(row.Code), elsewhere.contains(row.Code)) << row.Word;
  }
}

TEST_F(FaultsTest, AGameIsCheckedAcrossItsFiles) {
  for (const auto& [name, files] : {std::pair("game_faults", 3), std::pair("shared_names", 7)}) {
    const fs::path folder = Here() / name;
    const CheckResult result = CheckPaths({folder.string()});
    std::vector<std::string> found;
    for (const Finding& finding : result.Findings) {
      found.push_back(fs::path(finding.File).lexically_relative(folder).string() + " " +
                      Shown(finding));
    }
    EXPECT_EQ(found, ExpectedIn(folder / "Lanterns.txt"));
    EXPECT_EQ(result.Files, files);
  }
}

// The whole of them, the folder of one game's opponents alone, and each file by itself.
TEST_F(FaultsTest, NothingIsFoundInTheShippedGames) {
  const fs::path games = fs::path(BRINDLEMOOR_SOURCE_DIR) / "games";
  int all = 0;
  for (const auto& entry : fs::recursive_directory_iterator(games)) {
    all += static_cast<int>(entry.path().extension() == ".txt");
  }
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(games / "wickwater")) {
    files.push_back(entry.path().string());
  }
  const int opponents = static_cast<int>(files.size());
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{games.string()}, all},
      {{(games / "wickwater").string()}, opponents},
      {files, opponents},
  };
  for (const auto& [paths, read] : cases) {
    const CheckResult result = CheckPaths(paths);
    for (const Finding& finding : result.Findings) ADD_FAILURE() << FindingLine(finding);
    EXPECT_EQ(result.Files, read) << paths.front();
  }
}

TEST(CheckedFileTest, ColumnsCountCharactersOnLinesOfAnyLength) {
  std::string text = "one\r\n";
  for (int letter = 0; letter < 3000; ++letter) text += "\xC3\xA9";
  const CheckedFile file("file", text + "\rx");
  EXPECT_EQ(file.PlaceOf(2), (FilePlace{1, 3}));
  for (const int letter : {0, 1, 511, 512, 2999}) {
    const auto offset = static_cast<std::size_t>(5 + 2 * letter);
    EXPECT_EQ(file.PlaceOf(offset), (FilePlace{2, letter + 1})) << letter;
  }
  EXPECT_EQ(file.PlaceOf(text.size() + 2), (FilePlace{3, 2}));
}

TEST_F(FaultsTest, WhatCantBeReadIsAFinding) {
  const CheckResult result = CheckPaths({"/nowhere/at/all.txt"});
  EXPECT_FALSE(result.CouldRead);
  ASSERT_EQ(result.Findings.size(), 1U);
  EXPECT_EQ(FindingLine(result.Findings[0]),
            "/nowhere/at/all.txt: error: This can't be read. [unreadable]");
}

TEST(FindingText, LinesAndJsonStayWholeWhateverAFileHolds) {
  const Finding finding{"a \"b\"\\\n.txt",
                        {3, 14},
                        FindingCode::kUnknownCommand,
                        "\"X\x1B[2J\" is no command.",
                        "MOD\"TRAIT"};
  EXPECT_EQ(FindingLine(finding),
            "a \"b\"\\ .txt:3:14: error: \"X [2J\" is no command. Did you mean \"MOD\"TRAIT\"? "
            "[unknown-command]");
  const std::vector<Finding> findings = {finding};
  EXPECT_EQ(FindingsAsJson(findings),
            "[\n {\"file\": \"a \\\"b\\\"\\\\\\u000a.txt\", \"line\": 3, \"column\": 14, "
            "\"severity\": \"error\", \"code\": \"unknown-command\", \"text\": "
            "\"\\\"X\\u001b[2J\\\" is no command.\", \"suggestion\": \"MOD\\\"TRAIT\"}\n]\n");
}

}  // namespace
}  // namespace brindlemoor
