// Whole matches of the shipped game, both sides judged, as brindle sim plays them.
#include <benchmark/benchmark.h>

#include "bench/measures.h"
#include "bench/seated_stage.h"
#include "simulation/simulation.h"

namespace brindlemoor {
namespace {

/// So many matches of each pairing.
void BM_Matches(benchmark::State& state) {
  SimulationOptions options;
  options.Folder = BenchData("games");
  options.Matches = state.range(0);
  Stage stage;
  SimulationSetup setup;
  OrThrow(PrepareSimulation(options, stage, setup));
  std::int64_t matches = 0;
  std::int64_t turns = 0;
  for (auto _ : state) {
    Totals totals;
    OrThrow(PlayMatches(setup, {}, stage, totals, [] {}));
    matches += totals.Matches();
    for (const PairingTotals& pairing : totals.Pairings) {
      for (const SeatTotals& seat : pairing.Seats) turns += seat.Turns;
    }
  }
  state.counters["per_second"] =
      benchmark::Counter(static_cast<double>(matches), benchmark::Counter::kIsRate);
  state.counters["turns"] = static_cast<double>(turns) / static_cast<double>(matches);
  Target(state, 20, "300 per second");
}
BENCHMARK(BM_Matches)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
