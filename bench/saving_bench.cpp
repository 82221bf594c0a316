// A running match as a file: composed and written to the disk, and read.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "bench/bench_session.h"
#include "bench/card_supply.h"
#include "bench/measures.h"
#include "bench/seated_stage.h"
#include "game/kept_matches.h"
#include "game/turn.h"
#include "platform/files.h"
#include "saving/saved_match.h"
#include "script/trait_changes.h"
#include "simulation/automatic_match.h"

namespace brindlemoor {
namespace {

constexpr std::uint64_t kSeedOfLongMatch = 7;
constexpr int kOpponentOfLongMatch = 3;
constexpr int kLateTurn = 14;

/// A match of the shipped game behind a late turn; behind one more with so many cards in the table,
/// 0 for those that are there.
void PlayToLateTurn(std::int64_t cards) {
  AutomaticMatchOptions options;
  options.Folder = BenchData("games");
  options.Game = "Wickwater";
  options.PagesFolder = "";
  options.Seed = kSeedOfLongMatch;
  options.Opponent = kOpponentOfLongMatch;
  options.MaximumTurns = kLateTurn;
  std::ostringstream ignored;
  OrThrow(AutomaticMatch(options, ignored).Error);
  if (cards > 0) {
    for (int side = 1; side <= 2; ++side) {
      SetTrait(State().CardTable[State().Players[side].PlayerCard], "HP", 1000000, 0);
    }
    FillUpTable(cards);
    TakeTurn(0);
  }
  if (!CanKeepMatch()) throw std::runtime_error("the match has ended");
}

std::string Composed() {
  MatchFileBytes file = ComposeMatchFile();
  OrThrow(file.Problem);
  return std::move(file.Bytes);
}

/// As the window does behind each turn: the file is composed, read for a trial, and on the disk.
void BM_KeepMatch(benchmark::State& state) {
  PlayToLateTurn(state.range(0));
  const std::string path =
      (std::filesystem::temp_directory_path() / ("brindlemoor-bench-" + std::to_string(::getpid())))
          .string();
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string file = Composed();
    OrThrow(LocalFileSystem().Write(path, file));
    bytes = file.size();
  }
  std::filesystem::remove(path);
  state.counters["file"] = static_cast<double>(bytes);
  state.counters["cards"] = CardsInPlay();
  Target(state, 60, "20 ms");
}
BENCHMARK(BM_KeepMatch)->Arg(0)->Arg(60)->Arg(600)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_ReadMatch(benchmark::State& state) {
  PlayToLateTurn(state.range(0));
  const std::string file = Composed();
  for (auto _ : state) {
    if (ReadMatch(file, "match").Match == nullptr) state.SkipWithError("it can't be read");
  }
}
BENCHMARK(BM_ReadMatch)->Arg(0)->Arg(60)->Arg(600)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
