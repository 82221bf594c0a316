// Runs of scripts: refused ones, single commands, value expressions, targets and triggers.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "language/values.h"
#include "script/card_entry.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

void StartTable() {
  StartBenchSession(std::make_unique<MemoryFileSystem>(), "/game");
  StartEmptyTable();
}

/// A pair of cards in play with 10 traits each, the acting one with the script for its action.
struct Pair {
  explicit Pair(std::string_view script) {
    StartTable();
    Card card = SizedCard(10);
    card.Effects = SharedArray<CardEffect>(1);
    Act(card, "PHASE3", kTargetRandom, script);
    Source = AddToTable(card);
    Target = AddToTable(SizedCard(10));
  }
  Card& Actor() const { return State().CardTable[Source]; }
  Card& Other() const { return State().CardTable[Target]; }
  int Source = 0;
  int Target = 0;
};

std::string Repeated(std::string_view command, std::int64_t times) {
  std::string script;
  for (std::int64_t count = 0; count < times; ++count) {
    script += Joined(script.empty() ? "" : ":", command);
  }
  return script;
}

/// The cards have so many traits and actions: it must not matter.
void BM_RunRefusedByMask(benchmark::State& state) {
  StartTable();
  Card source = SizedCard(static_cast<int>(state.range(0)));
  Card target = SizedCard(static_cast<int>(state.range(0)));
  source.InPlay = target.InPlay = 1;
  const RunOptions options{.TestRun = 1};
  const Allocations allocations;
  int results = 0;
  for (auto _ : state) results += RunAction(source, target, 1, options);
  allocations.Report(state);
  if (results != kRunFailed * state.iterations()) state.SkipWithError("not refused");
  Target(state, 10, "15 ns");
}
BENCHMARK(BM_RunRefusedByMask)->Arg(10)->Arg(100)->Arg(1000);

/// A script of so many commands, run for real.
void RunScript(benchmark::State& state, std::string_view command, const char* target) {
  const Pair pair(Repeated(command, state.range(0)));
  const Allocations allocations;
  int results = 0;
  for (auto _ : state) results += RunAction(pair.Actor(), pair.Other(), 1);
  allocations.Report(state);
  if (results != kRunClean * state.iterations()) state.SkipWithError("not clean");
  TimeOfEach(state, state.range(0));
  Target(state, 100, target);
}

void BM_Requirement(benchmark::State& state) { RunScript(state, "REQTRAIT:HP", "60 ns each"); }
BENCHMARK(BM_Requirement)->Arg(1)->Arg(10)->Arg(100);

void BM_ModTrait(benchmark::State& state) { RunScript(state, "MODTRAIT:HP:-1", "150 ns each"); }
BENCHMARK(BM_ModTrait)->Arg(1)->Arg(10)->Arg(100);

void Evaluate(benchmark::State& state, std::string_view expression, double expected) {
  const Pair pair("REQALLY");
  const Allocations allocations;
  double value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(expression);
    value = EvalValue(pair.Actor(), pair.Other(), expression).Number();
    benchmark::DoNotOptimize(value);
  }
  allocations.Report(state);
  if (value != expected) state.SkipWithError("another value");
}

void BM_EvalPlainNumber(benchmark::State& state) {
  Evaluate(state, "12", 12);
  state.SetLabel("20 ns");
}
BENCHMARK(BM_EvalPlainNumber);

/// One, ten and a hundred chains of four fields in one expression.
void BM_EvalChain(benchmark::State& state) {
  std::string expression = "SRCTRAIT/HP/TRAITPLUS1/MULT2";
  double expected = 10;
  for (std::int64_t count = 1; count < state.range(0); ++count) {
    expression += "/SRCTRAIT/HP/TRAITPLUS1/MINUS5";
  }
  Evaluate(state, expression, expected);
  Target(state, 1, "150 ns");
}
BENCHMARK(BM_EvalChain)->Arg(1)->Arg(10)->Arg(60);

/// Nine of ten cards are refused by the mask, the others are tried on copies.
void BM_PickTarget(benchmark::State& state) {
  StartTable();
  FillTable(static_cast<int>(state.range(0)));
  Card source = MakeCard("Hunter", 2);
  Act(source, "PHASE3", kTargetRandom, "REQTRAIT:PREY:SUBTRAIT:HP:2");
  source.InPlay = 1;
  const Allocations allocations;
  int quality = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(PickTarget(source, 1, kTargetRandom, Text(), quality));
  }
  allocations.Report(state);
  if (quality != kCleanTarget) state.SkipWithError("no target");
  Target(state, 100, "8 us, linear");
}
BENCHMARK(BM_PickTarget)->Arg(10)->Arg(100)->Arg(1000);

void BM_TriggerWithoutListeners(benchmark::State& state) {
  StartTable();
  FillTable(static_cast<int>(state.range(0)));
  const Allocations allocations;
  for (auto _ : state) {
    FireHit("PHASE5");
    FireTrigger(State().RulesCard, "PHASE5");
  }
  allocations.Report(state);
  Target(state, 10000, "100 ns");
}
BENCHMARK(BM_TriggerWithoutListeners)->Arg(100)->Arg(1000)->Arg(10000);

}  // namespace
}  // namespace brindlemoor
