// A player with many cards: reading and saving the file, and the memory that the cards take.
#include <benchmark/benchmark.h>

#include "bench/bench_cards.h"
#include "bench/bench_session.h"
#include "bench/measures.h"
#include "core/desktop.h"
#include "data/card_file_writer.h"
#include "data/card_reader.h"
#include "data/profiles.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "script/card_setup.h"

namespace brindlemoor {
namespace {

constexpr int kCards = 5000;
constexpr int kDefinitions = 300;
constexpr int kDeckCards = 60;
constexpr std::string_view kPlayerFile = "Bench_Game.plr";
constexpr std::string_view kCardFile = "cards.txt";

/// A player who owns the cards, saved to files in memory with the definitions' file beside.
void SavePlayer() {
  auto files = std::make_unique<MemoryFileSystem>();
  StartBenchSession(std::move(files), "/game");
  Session& session = State();
  session.TraitActions.Reset(1);
  session.CardTable.Reset(1);
  session.Sideboard.Reset(1);
  InitPlayer(session.Players[1], 1);
  session.Profile.PlayerName = "Bench";
  session.Profiles.Append({"Bench", "", ""});
  for (int number = 1; number <= kDefinitions; ++number) {
    session.Collection.Append(AuthoredCard(number, kCardFile));
  }
  SaveCardFile(kCardFile, "COLLECTION", "", 0);
  session.Collection.Resize(0);
  for (int number = 0; number < kCards; ++number) {
    session.Collection.Append(AuthoredCard(number % kDefinitions + 1, kCardFile));
  }
  for (DeckRec& deck : session.Decks) {
    deck.Cards.Reset(1);
    for (int number = 1; number <= kDeckCards; ++number)
      deck.Cards.Append(AuthoredCard(number, kCardFile));
  }
  WritePlayerFile(kPlayerFile);
}

void EmptyOwnPiles() {
  State().Collection = Pile(1);
  for (DeckRec& deck : State().Decks) deck.Cards = Pile(1);
  State().InternedTexts.clear();
}

void Read() { ReadCards(kPlayerFile, State().Players[1], 0, "", 0); }

void BM_ReadPlayerFile(benchmark::State& state) {
  SavePlayer();
  EmptyOwnPiles();
  const double before = BytesInUse();
  Read();
  state.counters["cards"] = State().Collection.UpperBound();
  state.counters["MiB"] = (BytesInUse() - before) / (1 << 20);
  for (auto _ : state) Read();
}
BENCHMARK(BM_ReadPlayerFile)->Unit(benchmark::kMillisecond);

void BM_SavePlayerFile(benchmark::State& state) {
  SavePlayer();
  Read();
  for (auto _ : state) WritePlayerFile(kPlayerFile);
  state.counters["size"] =
      static_cast<double>(Desktop().Files().Read("/game/Bench_Game.plr").value_or("").size());
}
BENCHMARK(BM_SavePlayerFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
