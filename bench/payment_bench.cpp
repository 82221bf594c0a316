// Testing a price: the table is put back as it was.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "game/card_play.h"

namespace brindlemoor {
namespace {

/// One price, no changes of costs, a table of so many cards.
void BM_PayCostAsTest(benchmark::State& state) {
  StartBenchSession(std::make_unique<MemoryFileSystem>(), "/game");
  StartEmptyTable();
  FillTable(static_cast<int>(state.range(0)));
  Card card = MakeCard("Bought", 2);
  Act(card, "COST", kTargetOwner, "SUBTRAIT:MANA:1");
  const Allocations allocations;
  int unpaid = 0;
  for (auto _ : state) {
    if (PayCost(card, 1) != kPaid) ++unpaid;
  }
  allocations.Report(state);
  if (unpaid > 0) state.SkipWithError("not paid");
  Target(state, 200, "20 us, linear");
}
BENCHMARK(BM_PayCostAsTest)->Arg(20)->Arg(200)->Arg(2000);

}  // namespace
}  // namespace brindlemoor
