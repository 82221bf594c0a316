// Turns of the shipped game with many cards in the table, without the view.
#include <benchmark/benchmark.h>

#include "bench/bench_session.h"
#include "bench/card_supply.h"
#include "bench/measures.h"
#include "bench/seated_stage.h"
#include "game/turn.h"
#include "pages/battlefield.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "script/trait_changes.h"

namespace brindlemoor {
namespace {

/// A match in its second turn, with so many cards in the table and a full hand of the enemy. Both
/// players have hit points enough for every turn to come.
void LayOut(Stage& stage, std::int64_t cards) {
  SeatFirst(stage);
  stage.Play(1, 1);
  Session& session = State();
  for (int side = 1; side <= 2; ++side) {
    SetTrait(session.CardTable[session.Players[side].PlayerCard], "HP", 1000000, 0);
  }
  FillUpTable(cards);
}

void BM_TakeTurn(benchmark::State& state) {
  Stage stage = OpenedStage();
  LayOut(stage, state.range(0));
  const Session before = State();
  for (auto _ : state) {
    TakeTurn(0);
    state.PauseTiming();
    if (State().GameOver != 0) state.SkipWithError("the match has ended");
    State() = before;
    state.ResumeTiming();
  }
  Target(state, 60, "1 ms");
}
BENCHMARK(BM_TakeTurn)->Arg(60)->Arg(600)->Unit(benchmark::kMillisecond);

void BM_ReportPage(benchmark::State& state) {
  Stage stage = OpenedStage();
  LayOut(stage, state.range(0));
  std::size_t bytes = 0;
  for (auto _ : state) {
    AppendPage(PlayerHeader(State().Players[1]));
    AppendPage(PlayerTable(State().Players[1]));
    AppendPage(PlayerTable(State().Players[2]));
    bytes = State().PageText.size();
    WritePage("Display.html", "#000000");
    State().PageText.clear();
  }
  state.counters["page"] = static_cast<double>(bytes);
  Target(state, 60, "300 us");
}
BENCHMARK(BM_ReportPage)->Arg(60)->Arg(600)->Arg(6000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlemoor
