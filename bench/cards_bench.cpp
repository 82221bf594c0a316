// Records of cards: what a copy costs, and what a card takes in memory.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "core/paths.h"
#include "data/card_reader.h"
#include "script/card_setup.h"

namespace brindlemoor {
namespace {

/// A card with so many traits and actions.
void BM_CopyOfCard(benchmark::State& state) {
  StartBenchSession(std::make_unique<MemoryFileSystem>(), "/game");
  StartEmptyTable();
  const Card card = SizedCard(static_cast<int>(state.range(0)));
  const Allocations allocations;
  for (auto _ : state) {
    const Card copy = card;
    benchmark::DoNotOptimize(&copy);
  }
  allocations.Report(state);
  Target(state, 10, "80 ns");
}
BENCHMARK(BM_CopyOfCard)->Arg(10)->Arg(100)->Arg(1000);

/// The first card of the shipped game that has an action.
Card ShippedCard() {
  PlayerState models;
  InitPlayer(models, 1);
  ReadCards(ResolvePath("WickwaterCards.txt", 0), models, 0, "", 0);
  for (const Card& card : models.Deck) {
    if (!IsFree(card) && card.Effects[1].Script.size() > 0) return card;
  }
  return {};
}

/// So many copies of a definition of the shipped game in a pile: bytes of each beyond the first.
void BM_MemoryOfCopies(benchmark::State& state) {
  const GamesCopy games;
  StartBenchSession(std::make_unique<LocalFileSystem>(), games.Path());
  StartEmptyTable();
  Pile pile;
  pile.Append(ShippedCard());
  if (IsFree(pile[1])) state.SkipWithError("no card");
  const double before = BytesInUse();
  double each = 0;
  for (auto _ : state) {
    for (std::int64_t count = 0; count < state.range(0); ++count) pile.Append(pile[1]);
    each = (BytesInUse() - before) / static_cast<double>(state.range(0));
    state.PauseTiming();
    pile = Pile();
    pile.Append(ShippedCard());
    state.ResumeTiming();
  }
  state.counters["bytes"] = each;
  Target(state, 100, "600 bytes");
}
BENCHMARK(BM_MemoryOfCopies)->Arg(100)->Arg(1000)->Arg(10000)->Iterations(1);

}  // namespace
}  // namespace brindlemoor
