// What --accept makes of a scenario file.
#include "scenario/accepting.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "scenario/scenario_run.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

/// The text of a file behind a run that accepts what was there.
std::string AfterAccepting(const std::string& text) {
  const std::string path =
      (std::filesystem::path(::testing::TempDir()) / "brindlemoor_accepting.txt").string();
  std::ofstream(path, std::ios::binary) << text;
  ScenarioLibrary library;
  ScenarioReport report;
  report.Accepts = true;
  RunScenarioFile(path, library, report);
  std::filesystem::remove(path);
  std::vector<AcceptedText*> changes;
  for (ScenarioFinding& finding : report.Findings) {
    if (finding.Accepted) changes.push_back(&*finding.Accepted);
  }
  for (AcceptedText& held : report.Held) changes.push_back(&held);
  return WithAccepted(text, changes);
}

TEST(AcceptingTest, WhatWasThereTakesThePlaceOfWhatWasExpected) {
  const std::string card = "card Torch \"Old Torch\" with BURN:2\n";
  const std::pair<const char*, const char*> cases[] = {
      {"  expect trait Torch BURN 7  ", "  expect trait Torch BURN 2  "},
      {"\texpect trait Torch BURN \"7\"\r", "\texpect trait Torch BURN \"2\"\r"},
      {"expect traits Torch", "expect traits Torch \"BURN:2\""},
      {"expect having BURN A \"B c\" D", "expect having BURN \"Old Torch\""},
      {"expect description Torch flat", "expect description Torch \"\""},
      {"expect name Torch is", "expect name Torch \"Old Torch\""},
      {"value Torch \"TRAIT/BURN\" = 7 computed", "value Torch \"TRAIT/BURN\" = 2 computed"},
      {"value Torch \"TRAIT/BURN\" = 2 plain", "value Torch \"TRAIT/BURN\" = 2 plain"},
      {"expect worth Torch -3", "expect worth Torch 0"},
      {"expect picked none", "expect picked none"},
      {"message Torch \"say \"\"a\"\"\" = b",
       "message Torch \"say \"\"a\"\"\" = \"say \"\"a\"\"\""},
  };
  for (const auto& [before, after] : cases) {
    EXPECT_EQ(AfterAccepting(Joined(card, before, "\n")), Joined(card, after, "\n"));
  }
}

TEST(AcceptingTest, RowsTakeTheirOwnAndSharedLinesOnlyWhatAllAgreeOn) {
  const std::string text =
      "card Torch with BURN:0\n"
      "scenario Rows\n"
      "run Torch \"MODTRAIT:BURN:{by}\"\n"
      "expect trait Torch BURN {burn}\n"
      "expect trait Torch BURN 1\n"      // holds in one row
      "expect trait Torch BURN {by}9\n"  // made of several
      "expect owner Torch 2\n"
      "  | by | burn | more   |\n"
      "  | 1  | \"2\"  | a | \n"
      "  | 2  | 3    | b |\n"
      "  | 10 | 1    | c |\n";
  std::string after = text;
  after.replace(after.find("\"2\" "), 4, "1   ");
  after.replace(after.find("3    |"), 4, "2   ");
  after.replace(after.find("1    | c"), 4, "10  ");
  after.replace(after.find("owner Torch 2"), 13, "owner Torch 1");
  EXPECT_EQ(AfterAccepting(text), after);
  // A cell that does something else as well, cells between tabs, and lines of an included file.
  const std::string shared =
      "card Torch with BURN:{burn}\nexpect trait Torch BURN 1\n"
      "scenario Rows\nrun Torch \"MODTRAIT:BURN:1\"\n"
      "expect trait Torch BURN {burn}\n| burn |\n| 1 |\n";
  EXPECT_EQ(AfterAccepting(shared), shared);
  EXPECT_EQ(AfterAccepting("card Torch\nscenario Rows\nexpect owner Torch {owner}\n"
                           "|\towner\t|\tx\t|\n|\t25\t|\ty\t|\n"),
            "card Torch\nscenario Rows\nexpect owner Torch {owner}\n"
            "|\towner\t|\tx\t|\n|\t1 \t|\ty\t|\n");
  const std::string seeds = "random seeds 2\ncard Torch\nexpect owner Torch 2\n";
  EXPECT_EQ(AfterAccepting(seeds), seeds);
}

}  // namespace
}  // namespace brindlemoor
