// The road through a scenario file.
#include "scenario/scenario_run.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "core/limits.h"
#include "core/state.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kLines = 1000000;
/// Steps of scripts: as many as this number of turns may take.
constexpr std::int64_t kTurns = 10;

/// What all scenarios of a file may take together.
struct Budget {
  int Lines = kLines;
  std::int64_t Work = kTurns * limits::kStepsOfTurn;
};

std::string FolderOf(const std::string& path) {
  std::error_code failure;
  return std::filesystem::absolute(path, failure).lexically_normal().parent_path().generic_string();
}

void CarryOut(Scene& scene, const ScenarioLine& line) {
  const bool acts = line.Word->Kind == WordKind::kAct;
  if (acts) BeginAction(scene);
  const int depth = State().RunDepth;
  constexpr std::size_t kBehindExpect = 2;
  const bool expects = line.Tokens[0].Text == "expect";
  WordReader reader(scene, expects ? kBehindExpect : 1);
  if (!scene.Stopped) {
    std::optional<SceneTrace::Listening> listening;
    if (acts) listening.emplace(scene);
    line.Word->Carry(scene, reader);
  }
  if (acts && (State().RunDepth != depth || State().RedirectDepth != 0)) {
    scene.Fail("the action left runs in progress");
  }
}

/// False when the file can't go on.
bool RunLines(Scene& scene, const std::vector<ScenarioLine>& lines, Budget& budget,
              const SceneWatcher& watch) {
  for (const ScenarioLine& line : lines) {
    scene.Line = &line;
    scene.Report.Line = line.Place.Line;
    if (scene.WorkedTooMuch()) return false;
    if (--budget.Lines < 0) {
      scene.Stop("The scenarios of this file have too many lines to carry out.");
      return false;
    }
    CarryOut(scene, line);
    if (scene.Stopped) return false;
    if (watch) watch(scene);
  }
  return true;
}

/// False when the scenarios behind it would meet the same end.
bool RunCase(const ScenarioText& text, const ScenarioCase& one, const ScenarioRow* row, int seed,
             ScenarioLibrary& library, ScenarioReport& report, Budget& budget,
             const SceneWatcher& watch) {
  Scene scene{library, report, text, one, budget.Work, row};
  scene.Seed = seed;
  ++report.Scenarios;
  OpenScene(scene, FolderOf(text.Files[0]));
  if (!RunLines(scene, text.Head, budget, watch)) return false;
  if (RunLines(scene, one.Lines, budget, watch)) CloseScene(scene);
  budget.Work -= State().Work.Total;
  return budget.Lines >= 0 && budget.Work >= 0;
}

/// Once, or for each of its seeds up to the first that fails.
bool RunSeeds(const ScenarioText& text, const ScenarioCase& one, const ScenarioRow* row,
              ScenarioLibrary& library, ScenarioReport& report, Budget& budget,
              const SceneWatcher& watch) {
  const int seeds = std::max(one.Seeds, text.Seeds);
  if (seeds == 0) return RunCase(text, one, row, 0, library, report, budget, watch);
  const int before = report.Failed + report.Unreadable;
  for (int seed = 1; seed <= seeds; ++seed) {
    if (!RunCase(text, one, row, seed, library, report, budget, watch)) return false;
    if (report.Failed + report.Unreadable > before) break;
  }
  return true;
}

}  // namespace

void RunScenarioFile(const std::string& path, ScenarioLibrary& library, ScenarioReport& report,
                     const SceneWatcher& watch) {
  ++report.Files;
  const ScenarioText text = ReadScenarioText(path, library.Machine());
  for (const ScenarioFault& fault : text.Faults) {
    report.Add({true, text.Files[static_cast<std::size_t>(fault.Place.File)], fault.Place.Line,
                fault.Text, "", 0, 0});
  }
  if (!text.Faults.empty()) return;
  Budget budget;
  bool goesOn = true;
  for (const ScenarioCase& one : text.Cases) {
    if (one.Columns.empty() && goesOn) {
      goesOn = RunSeeds(text, one, nullptr, library, report, budget, watch);
    }
    for (const ScenarioRow& row : one.Rows) {
      if (goesOn) goesOn = RunSeeds(text, one, &row, library, report, budget, watch);
    }
  }
  State() = Session{};
}

}  // namespace brindlemoor
