// The scenario files of the tests: those that hold, and those that fail with what they print.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>

#include "scenario/card_places.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_words.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const fs::path& Tests() {
  static const fs::path tests = fs::path(BRINDLEMOOR_SOURCE_DIR) / "tests";
  return tests;
}

std::vector<std::string> FilesIn(const fs::path& folder) {
  std::set<std::string> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.insert(entry.path().string());
  }
  return {files.begin(), files.end()};
}

std::string Contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The printed lines, without the name of the file.
std::vector<std::string> Printed(const std::string& file, const ScenarioReport& report) {
  std::vector<std::string> lines;
  for (const ScenarioFinding& finding : report.Findings) {
    lines.push_back(ScenarioFindingLine(finding));
    EXPECT_TRUE(lines.back().starts_with(file + ":")) << lines.back();
    lines.back().erase(0, file.size() + 1);
  }
  return lines;
}

class ScenariosTest : public ::testing::TestWithParam<std::string> {};

TEST_P(ScenariosTest, Holds) {
  ScenarioLibrary library;
  ScenarioReport report;
  RunScenarioFile(GetParam(), library, report);
  for (const ScenarioFinding& finding : report.Findings) {
    ADD_FAILURE() << ScenarioFindingLine(finding);
  }
  EXPECT_GT(report.Expectations, 0);
}

std::string NameOfFile(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = fs::path(info.param).stem().string();
  for (char& c : name) c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  return name;
}
INSTANTIATE_TEST_SUITE_P(Files, ScenariosTest, ::testing::ValuesIn(FilesIn(Tests() / "scenarios")),
                         NameOfFile);

class FailingScenariosTest : public ::testing::TestWithParam<std::string> {};

TEST_P(FailingScenariosTest, PrintWhatWasThere) {
  constexpr std::string_view kPrinted = "#> ";
  std::vector<std::string> expected;
  std::istringstream stream(Contents(GetParam()));
  for (std::string line; std::getline(stream, line);) {
    if (!line.starts_with(kPrinted)) continue;
    line.erase(0, kPrinted.size());
    const std::size_t here = line.find("{here}");
    const std::string folder = fs::path(GetParam()).parent_path().generic_string();
    if (here != std::string::npos) line.replace(here, 6, folder);
    expected.push_back(line);
  }
  ASSERT_FALSE(expected.empty());
  ScenarioLibrary library;
  ScenarioReport report;
  RunScenarioFile(GetParam(), library, report);
  const std::vector<std::string> printed = Printed(GetParam(), report);
  for (std::size_t line = 0; line < std::max(printed.size(), expected.size()); ++line) {
    EXPECT_EQ(line < printed.size() ? printed[line] : "(nothing)",
              line < expected.size() ? expected[line] : "(nothing)");
  }
}

INSTANTIATE_TEST_SUITE_P(Files, FailingScenariosTest,
                         ::testing::ValuesIn(FilesIn(Tests() / "scenario/failing")), NameOfFile);

/// Every line that the test files begin with a word, as "WORD" or "expect WORD".
std::set<std::string> UsedWords(const std::vector<std::string>& files) {
  std::set<std::string> words;
  for (const std::string& file : files) {
    std::istringstream stream(Contents(file));
    for (std::string line; std::getline(stream, line);) {
      std::istringstream tokens(line);
      std::string word;
      std::string second;
      tokens >> word >> second;
      words.insert(word == "expect" ? "expect " + second : word);
    }
  }
  return words;
}

TEST(ScenarioWords, EachIsUsedAndEachExpectationIsSeenToFail) {
  std::vector<std::string> files = FilesIn(Tests() / "scenario/failing");
  const std::set<std::string> failing = UsedWords(files);
  const std::vector<std::string> holding = FilesIn(Tests() / "scenarios");
  files.insert(files.end(), holding.begin(), holding.end());
  const std::set<std::string> used = UsedWords(files);
  for (const ScenarioWordGroup& group : ScenarioWordGroups()) {
    for (const ScenarioWord& row : group.Rows) {
      const bool generic = row.Word == "FIELD" || row.Word == "VALUE";
      const bool expects = row.Kind == WordKind::kExpect;
      const std::string word =
          row.Usage.starts_with("expect ") ? Joined("expect ", row.Word) : std::string(row.Word);
      EXPECT_TRUE(generic || (expects ? failing : used).contains(word)) << word;
    }
  }
}

TEST(ScenarioWords, TheDocumentTellsOfEach) {
  const std::string document = Contents(fs::path(BRINDLEMOOR_SOURCE_DIR) / "docs/scenarios.md");
  const auto tellsOf = [&document](std::string_view word, std::string_view meaning) {
    const std::string line = Joined("- `", word, "`: ", meaning, "\n");
    EXPECT_NE(document.find(line), std::string::npos) << line;
  };
  for (const ScenarioWordGroup& group : ScenarioWordGroups()) {
    EXPECT_NE(document.find(Joined("### ", group.Title, "\n")), std::string::npos) << group.Title;
    for (const ScenarioWord& row : group.Rows) tellsOf(row.Usage, row.Help);
  }
  for (const PlaceRow& row : PlaceRows()) tellsOf(row.Word, row.Meaning);
  for (const CardFieldRow& row : CardFieldRows()) tellsOf(row.Word, row.Meaning);
  for (const SessionValueRow& row : SessionValueRows()) tellsOf(row.Word, row.Meaning);
}

}  // namespace
}  // namespace brindlemoor
