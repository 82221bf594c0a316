// Reading card files, and bringing a deck up to date from the file of its definitions.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "core/desktop.h"
#include "data/card_file_writer.h"
#include "data/card_reader.h"
#include "game/card_refresh.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kFile = "cards.txt";
constexpr int kDeckCards = 60;

/// A session with a file of so many definitions. Returns the bytes of the file.
std::size_t WriteDefinitions(int count) {
  StartBenchSession(std::make_unique<MemoryFileSystem>(), "/game");
  StartEmptyTable();
  for (int number = 1; number <= count; ++number) {
    State().Collection.Append(AuthoredCard(number, kFile));
  }
  SaveCardFile(kFile, "COLLECTION", "", 0);
  return Desktop().Files().Read("/game/cards.txt").value_or("").size();
}

void ForgetCards() {
  State().Collection = Pile(1);
  State().InternedTexts.clear();
}

void BM_ReadCardFile(benchmark::State& state) {
  const std::size_t bytes = WriteDefinitions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    ForgetCards();
    state.ResumeTiming();
    ReadCards(kFile, State().Players[1], 0, "", 0);
  }
  if (State().Collection.UpperBound() < state.range(0)) state.SkipWithError("cards are missing");
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
  Target(state, 20000, "1 s, 60 MB/s");
}
BENCHMARK(BM_ReadCardFile)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

/// The file of definitions has so many cards.
void BM_RefreshDeck(benchmark::State& state) {
  const int masters = static_cast<int>(state.range(0));
  WriteDefinitions(masters);
  ForgetCards();
  for (int number = 0; number < kDeckCards; ++number) {
    Card card = AuthoredCard(number * (masters / kDeckCards) + 1, kFile);
    card.Description = "stale";
    State().Players[1].Deck.Append(card);
  }
  for (auto _ : state) RefreshPlayers();
  if (State().Players[1].Deck[kDeckCards].Description == "stale") state.SkipWithError("stale");
  Target(state, 4000, "80 ms");
}
BENCHMARK(BM_RefreshDeck)->Arg(400)->Arg(4000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
