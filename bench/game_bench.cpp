// The shipped game: from the start to the list, and from the list to a match.
#include <benchmark/benchmark.h>
#include <fstream>

#include "bench/bench_session.h"
#include "bench/seated_stage.h"
#include "game/program_start.h"

namespace brindlemoor {
namespace {

/// Beside the game lie so many card files that are no rules files.
void BM_StartToGameList(benchmark::State& state) {
  const GamesCopy games;
  for (int64_t file = 0; file < state.range(0); ++file) {
    std::ofstream(games.Path() + "/Cards" + std::to_string(file) + ".txt")
        << std::ifstream(games.Path() + "/wickwater/WickwaterCards.txt").rdbuf();
  }
  for (auto _ : state) {
    StartBenchSession(std::make_unique<LocalFileSystem>(), games.Path());
    State().Profile.PlayerName = "Bench";
    NewGame();
  }
  state.counters["games"] = State().Games.UpperBound();
}
BENCHMARK(BM_StartToGameList)->Arg(0)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

/// The files of rules and opponent are read and both decks brought up to date.
void BM_StartOfMatch(benchmark::State& state) {
  Stage stage = OpenedStage();
  for (auto _ : state) SeatFirst(stage);
}
BENCHMARK(BM_StartOfMatch)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
