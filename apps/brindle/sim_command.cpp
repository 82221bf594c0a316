// brindle sim: many matches, shared among processes, and what they say.
#include <algorithm>
#include <unistd.h>

#include "apps/brindle/commands.h"
#include "apps/brindle/jobs.h"
#include "apps/brindle/output_file.h"
#include "apps/brindle/progress_line.h"
#include "apps/brindle/report_output.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "journal/journal_writer.h"
#include "journal/match_journal.h"
#include "mind/turn_thinking.h"
#include "simulation/simulation.h"
#include "simulation/stage.h"

namespace brindlemoor {

namespace {

struct SimOptions {
  SimulationOptions Simulation;
  int Jobs = 1;
  bool IsShard = false;
  std::string Out;
  std::string Journal;  ///< "" for none
  ReportOutput Output;
};

bool StoreShard(SimOptions& options, std::string_view value) {
  const std::size_t slash = value.find('/');
  SimulationOptions& simulation = options.Simulation;
  options.IsShard = true;
  return slash != value.npos && ReadNumber(value.substr(0, slash), simulation.Shard) &&
         ReadNumber(value.substr(slash + 1), simulation.Shards) && simulation.Shard >= 1 &&
         simulation.Shard <= simulation.Shards && simulation.Shards <= kMostShards;
}

constexpr Count kMostMatches = 1'000'000'000;

constexpr std::array<Option<SimOptions>, 14> kOptions = {{
    {"--game",
     [](SimOptions& o, std::string_view v) {
       o.Simulation.Game = v;
       return !v.empty();
     }},
    {"--matches",
     [](SimOptions& o, std::string_view v) {
       return ReadNumber(v, o.Simulation.Matches) && o.Simulation.Matches >= 1 &&
              o.Simulation.Matches <= kMostMatches;
     }},
    {"--seed", [](SimOptions& o, std::string_view v) { return ReadNumber(v, o.Simulation.Seed); }},
    {"--turns",
     [](SimOptions& o, std::string_view v) {
       return ReadNumber(v, o.Simulation.MaximumTurns) && o.Simulation.MaximumTurns >= 1;
     }},
    {"--jobs",
     [](SimOptions& o, std::string_view v) {
       return ReadNumber(v, o.Jobs) && o.Jobs >= 1 && o.Jobs <= kMostJobs;
     }},
    {"--decks",
     [](SimOptions& o, std::string_view) {
       o.Simulation.DecksMeet = true;
       return true;
     },
     true},
    {"--mind",
     [](SimOptions& o, std::string_view v) { return FindMindLevel(v, o.Simulation.OpponentMind); }},
    {"--player-mind",
     [](SimOptions& o, std::string_view v) { return FindMindLevel(v, o.Simulation.DeckMind); }},
    {"--shard", StoreShard},
    {"--out",
     [](SimOptions& o, std::string_view v) {
       o.Out = v;
       return !v.empty();
     }},
    {"--journal",
     [](SimOptions& o, std::string_view v) {
       o.Journal = v;
       return !v.empty();
     }},
    {"--csv", StoreForm<0, SimOptions>, true, true},
    {"--json", StoreForm<1, SimOptions>, true, true},
    {"--html", StoreForm<2, SimOptions>, true, true},
}};

/// kSuccess, or kWrongUsage, which has been told.
int CheckOptions(const SimOptions& options, const std::vector<std::string>& folders) {
  if (folders.size() > 1) return WrongUsage("one folder only: ", folders[1]);
  const auto& forms = options.Output.Forms;
  const bool hasForms =
      std::ranges::any_of(forms, [](const auto& form) { return form.has_value(); });
  if (options.IsShard && hasForms) {
    return WrongUsage("a shard is reported when all are there: ", "see brindle merge");
  }
  if (!options.Out.empty() && !options.IsShard) {
    return WrongUsage("--out is for shards; a report goes to a file with ", "--csv=FILE");
  }
  std::string problem = OutputProblem(options.Output);
  if (problem.empty()) problem = OutputProblem(options.Out);
  return problem.empty() ? kSuccess : Refuse(problem, kWrongUsage);
}

/// Every job plays its part of the matches and answers with its sums.
std::string PlayAll(const SimulationSetup& setup, int jobs, Stage& stage, Totals& totals,
                    MatchObserver* observer) {
  ProgressLine bar(setup.OwnMatches(), "matches");
  const JobWork work = [&](int job, const std::function<void()>& played) -> JobAnswer {
    TotalsFile part{setup, {}};
    std::string problem = PlayMatches(setup, {job, jobs}, stage, part.Sums, played, observer);
    return {std::move(problem), SumsText(part.Sums)};
  };
  std::vector<std::string> texts;
  std::string problem = RunJobs(
      jobs, work, [&](int played) { bar.Add(played); }, texts);
  for (const std::string& text : texts) {
    if (!problem.empty()) break;
    Totals part;
    problem = ReadSums(text, setup, part);
    totals += part;
  }
  return problem;
}

/// The sums of a shard, or the report. kSuccess, or a code for the failure, which has been told.
int WriteResult(const TotalsFile& result, const SimOptions& options) {
  if (!options.IsShard) return WriteReport(MakeReport(result), options.Output);
  const std::string problem = WriteOutput(options.Out, TotalsText(result));
  return problem.empty() ? kSuccess : Refuse(problem, kWrongUsage);
}

}  // namespace

int RunSim(Arguments arguments) {
  SimOptions options;
  std::vector<std::string> folders;
  int code = ReadOptions<SimOptions>(arguments, kOptions, options, folders);
  if (code == kSuccess) code = CheckOptions(options, folders);
  if (code != kSuccess) return code;
  if (!folders.empty()) options.Simulation.Folder = folders[0];

  Stage stage;
  stage.LetThink(ThinkOfTurn);
  TotalsFile result;
  std::string problem = PrepareSimulation(options.Simulation, stage, result.Setup);
  if (!problem.empty()) return Refuse(problem, kFailure);
  JournalWriter journal;
  SimulationRecorder recorder(journal);
  if (!options.Journal.empty()) {
    problem = OpenJournal(options.Journal, journal);
    if (!problem.empty()) return Refuse(problem, kWrongUsage);
    recorder.Begin(options.Simulation);
    stage.HashPages();
  }
  problem = PlayAll(result.Setup, options.Jobs, stage, result.Sums,
                    journal.Works() ? &recorder : nullptr);
  if (!problem.empty()) return Refuse(problem, kFailure);
  journal.End();
  code = WriteResult(result, options);
  return code == kSuccess && journal.Failed() ? kWrongUsage : code;
}

}  // namespace brindlemoor
