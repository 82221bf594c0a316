// Tests of cards as scenario files.
#include <benchmark/benchmark.h>
#include <filesystem>

#include "bench/bench_session.h"
#include "bench/measures.h"
#include "scenario/scenario_run.h"

namespace brindlemoor {
namespace {

std::vector<std::string> ScenarioFiles() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(BenchData("tests/scenarios"))) {
    if (entry.path().extension() == ".txt") files.push_back(entry.path().string());
  }
  return files;
}

/// All scenario files of the tests, so many times.
void BM_ScenarioFiles(benchmark::State& state) {
  const std::vector<std::string> files = ScenarioFiles();
  std::int64_t scenarios = 0;
  for (auto _ : state) {
    ScenarioLibrary library;
    ScenarioReport report;
    for (std::int64_t count = 0; count < state.range(0); ++count) {
      for (const std::string& file : files) RunScenarioFile(file, library, report);
    }
    scenarios += report.Scenarios;
  }
  state.counters["per_second"] =
      benchmark::Counter(static_cast<double>(scenarios), benchmark::Counter::kIsRate);
  Target(state, 1, "3,000 per second");
}
BENCHMARK(BM_ScenarioFiles)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
