// The computer opponent's part of a turn: ten cards in hand, each with three actions, and a table
// on which one card in ten passes the masks of these actions.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "game/opponent.h"

namespace brindlemoor {
namespace {

void FillHand() {
  for (Card& card : State().Players[2].Hand) {
    card = MakeCard("Hand Card", 2);
    Act(card, "COST", kTargetOwner, "SUBTRAIT:MANA:1");
    Act(card, "ENTERPLAY", kTargetRandom, "REQTRAIT:PREY:MODTRAIT:HP:-1");
    Act(card, "PHASE4", kTargetRandomEnemy, "REQTRAIT:PREY:AIREQTRAIT:WEAK:SUBTRAIT:HP:2");
    Act(card, "AIREQ", kTargetRandom, "REQTRAIT:PREY:REQTRAITMORE:HP:3");
  }
}

/// Five of the ten cards can be paid and are played.
void BM_EnemyTurn(benchmark::State& state) {
  StartBenchSession(std::make_unique<MemoryFileSystem>(), "/game");
  StartEmptyTable();
  FillTable(static_cast<int>(state.range(0)));
  FillHand();
  const Session before = State();
  int played = 0;
  double masked = 0;
  for (auto _ : state) {
    PlayEnemyHand();
    state.PauseTiming();
    played = State().CardTable.UpperBound() - before.CardTable.UpperBound();
    masked = State().StatMasked / (State().StatMasked + State().StatNotMasked);
    State() = before;
    state.ResumeTiming();
  }
  state.counters["played"] = played;
  state.counters["masked"] = masked;
}
BENCHMARK(BM_EnemyTurn)->Arg(60)->Arg(600)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
