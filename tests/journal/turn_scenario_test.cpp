// Turns of journals as scenarios: they do again what was played.
#include "journal/turn_scenario.h"

#include <sstream>

#include "core/replacing.h"
#include "journal/match_journal.h"
#include "scenario/scenario_run.h"
#include "scenario/scene.h"
#include "tests/journal/recorded_session.h"

namespace brindlemoor {
namespace {

class TurnScenarioTest : public RecordedSession {
 protected:
  /// The report that a scenario shows behind its turn; its expectations are held.
  std::string ReportOf(const TurnScenario& scenario, std::string_view player) const {
    const std::string path = (root_ / "turn.txt").string();
    WriteBytes(path, scenario.Text);
    WriteBytes(root_ / "t.match", scenario.Match);
    ScenarioLibrary library;
    ScenarioReport report;
    std::string page;
    RunScenarioFile(path, library, report, [&](const Scene& scene) {
      page = scene.Desktop->Files().Read(Folder() + "/Display.html").value_or("");
    });
    for (const ScenarioFinding& finding : report.Findings) {
      ADD_FAILURE() << ScenarioFindingLine(finding);
    }
    EXPECT_GT(report.Expectations, 3);
    EXPECT_NE(page, "");
    // A scenario's player has a name of its own.
    return ReplacedCopy(page, ">Player<", Joined(">", player, "<"));
  }
};

TEST_F(TurnScenarioTest, AMatchOfTheComputerComesAgainTurnByTurn) {
  const std::filesystem::path path = root_ / "match.journal";
  JournalWriter writer;
  ASSERT_EQ(writer.Open(path.string()), "");
  AutomaticMatchOptions options;
  options.Folder = Folder();
  options.Game = "Wickwater";
  options.Seed = 7;
  options.MaximumTurns = 4;
  RecordMatch(writer, options);
  std::map<std::string, std::string> pages;
  options.OnPage = [note = options.OnPage, &pages](const std::string& name,
                                                   const std::string& page) {
    note(name, page);
    pages[name] = page;
  };
  std::ostringstream unseen;
  RecordResult(writer, AutomaticMatch(options, unseen));
  Journal journal;
  ASSERT_EQ(ReadJournal(ReadBytes(path), journal), "");
  for (const int turn : {1, 3, 4}) {
    const TurnScenario scenario =
        ScenarioOfTurn(journal, {.Folder = Folder()}, turn, "t.match", Folder());
    ASSERT_EQ(scenario.Problem, "") << turn;
    EXPECT_TRUE(ReportOf(scenario, "Auto") == pages[Joined("turn-00", turn, ".html")]) << turn;
  }
  EXPECT_EQ(ScenarioOfTurn(journal, {.Folder = Folder()}, 5, "t.match", Folder()).Problem,
            "The journal's last turn is 4.");
}

TEST_F(TurnScenarioTest, ATurnOfASessionHasThePlayersPlan) {
  Journal journal;
  std::string report;
  const auto play = [&] {
    PlayAWhile();
    report = desktop_->Pages["WB"];
  };
  ASSERT_EQ(ReadJournal(Record(play), journal), "");
  const TurnScenario first = ScenarioOfTurn(journal, {.Folder = Folder()}, 1, "t.match", "game");
  ASSERT_EQ(first.Problem, "");
  EXPECT_FALSE(ReportOf(first, "Ann") == report);
  const TurnScenario last = ScenarioOfTurn(journal, {.Folder = Folder()}, 2, "t.match", "game");
  ASSERT_EQ(last.Problem, "");
  EXPECT_TRUE(ReportOf(last, "Ann") == report);
}

}  // namespace
}  // namespace brindlemoor
