// Looking ahead in the shipped game: a trial of ten turns and the thinking of a turn, from the
// third turn of a match on.
#include <benchmark/benchmark.h>

#include "bench/seated_stage.h"
#include "mind/playouts.h"
#include "mind/turn_thinking.h"

namespace brindlemoor {
namespace {

constexpr std::int64_t kWithoutEnd = 1'000'000'000'000;

Stage StageInThirdTurn() {
  Stage stage = OpenedStage();
  SeatFirst(stage);
  stage.Play(5, 3);
  return stage;
}

void BM_Playout(benchmark::State& state) {
  const Stage stage = StageInThirdTurn();
  Playouts playouts(2, kWithoutEnd);
  std::uint64_t number = 0;
  int turns = 0;
  for (auto _ : state) {
    playouts.Play(std::nullopt, ++number, static_cast<int>(state.range(0)), [&] { ++turns; });
  }
  state.counters["turns"] = benchmark::Counter(turns, benchmark::Counter::kAvgIterations);
  if (state.range(0) == 10) state.SetLabel("1 ms");
}
BENCHMARK(BM_Playout)->Arg(1)->Arg(10)->Unit(benchmark::kMicrosecond);

void BM_Thinking(benchmark::State& state) {
  const Stage stage = StageInThirdTurn();
  for (auto _ : state) PlanByPlaying(2, state.range(0));
  if (state.range(0) == 4'000'000) state.SetLabel("300 ms");
}
BENCHMARK(BM_Thinking)->Arg(400'000)->Arg(4'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
