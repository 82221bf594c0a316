// The shipped game: from the start to the list, and turns of a match without the view.
#include <benchmark/benchmark.h>
#include <fstream>

#include "bench/bench_session.h"
#include "data/player_files.h"
#include "game/automatic_player.h"
#include "game/game_list.h"
#include "game/match_start.h"
#include "game/program_start.h"
#include "game/turn.h"

namespace brindlemoor {
namespace {

void StartShippedGame(const GamesCopy& games, std::uint64_t seed) {
  StartBenchSession(std::make_unique<LocalFileSystem>(), games.Path(), seed);
  State().Profile.PlayerName = "Bench";
  NewGame();
}

/// Index of the shipped game's opponent by name, 0 for none.
int OpponentNamed(std::string_view name) {
  const Pile& opponents = State().Games[1].Opponents;
  for (int index = 1; index <= opponents.UpperBound(); ++index) {
    if (opponents[index].Name == name) return index;
  }
  return 0;
}

void StartMatch(const GamesCopy& games, std::uint64_t seed) {
  StartShippedGame(games, seed);
  ChooseGame(1, OpponentNamed("Starter Chest"));
  EndGame();
  NewGame();
  ChooseGame(1, OpponentNamed("Oona Ebb"));
}

void BM_StartToGameList(benchmark::State& state) {
  const GamesCopy games;
  for (int64_t file = 0; file < state.range(0); ++file) {
    std::ofstream(games.Path() + "/Cards" + std::to_string(file) + ".txt")
        << std::ifstream(games.Path() + "/wickwater/WickwaterCards.txt").rdbuf();
  }
  for (auto _ : state) StartShippedGame(games, 1);
  state.counters["games"] = State().Games.UpperBound();
}
BENCHMARK(BM_StartToGameList)->Arg(0)->Arg(200)->Unit(benchmark::kMillisecond);

/// Whole matches of the shipped game, the automatic player against the first opponent: the time is
/// that of one turn.
void BM_TurnOfShippedGame(benchmark::State& state) {
  const GamesCopy games;
  std::uint64_t seed = 1;
  StartMatch(games, seed);
  for (auto _ : state) {
    if (State().GameOver != 0) {
      state.PauseTiming();
      StartMatch(games, ++seed);
      state.ResumeTiming();
    }
    PlanAutomaticPlays();
    TakeTurn(0);
  }
  state.counters["matches"] = static_cast<double>(seed);
}
BENCHMARK(BM_TurnOfShippedGame)->Unit(benchmark::kMillisecond);

void BM_StartOfMatch(benchmark::State& state) {
  const GamesCopy games;
  StartMatch(games, 1);
  for (auto _ : state) {
    NewGame();
    ChooseGame(1, OpponentNamed("Oona Ebb"));
  }
}
BENCHMARK(BM_StartOfMatch)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
