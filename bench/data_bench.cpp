// A player with many cards: reading and saving the file, and the memory that the cards take.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/bench_session.h"
#include "data/card_file_writer.h"
#include "data/card_reader.h"
#include "data/player_files.h"
#include "data/profiles.h"
#include "script/target_types.h"

namespace brindlemoor {
namespace {

constexpr int kCards = 5000;
constexpr int kDefinitions = 300;
constexpr int kDeckCards = 60;
constexpr int kDescriptionLength = 200;
constexpr std::string_view kPlayerFile = "Bench_Game.plr";
constexpr std::string_view kCardFile = "cards.txt";

/// A definition as game authors write them: six traits, three actions, a description.
Card Definition(int number) {
  Card card;
  InitCard(card, 1, 0);
  card.Name = Joined("Creature of the ", number, "th Hollow");
  card.UniqueID = Joined("Creature", number);
  card.SourceFile = kCardFile;
  card.Picture = Joined("Card-Creature", number, ".jpg");
  card.Thumb = Joined("Card-Creature", number, "-mini.jpg");
  std::string description = Joined("Creature number ", number, " says: ");
  while (description.size() < kDescriptionLength) description += "deep in the hollow, it waits; ";
  card.Description = description.substr(0, kDescriptionLength);
  const std::string traits[] = {Joined("HP:", number % 20),
                                Joined("ATTACK:", number % 7),
                                "CREATURE",
                                Joined("TRIBE", number % 12),
                                "COST:3",
                                "FLYING"};
  for (const std::string& trait : traits) SetTrait(card, trait, "", 1);
  card.TraitCaptions.Edit(1) = "Its health";
  AddEffect(card,
            Joined("REQENEMY:REQTRAIT:CREATURE:MODTRAIT:HP:-", number % 7, ":ECHO:$MYNAME hits."),
            kTargetRandomEnemy, "PHASE3", 0, "RANDOMENEMY");
  AddEffect(card, Joined("REQOWNERTRAITRANGE:MANA:3:99:MODOWNERTRAIT:MANA:-", number % 9),
            kTargetSelf, "COST", 0, "SELF");
  AddEffect(card, Joined("ECHO:The ", number, "th hollow, it falls silent."), kTargetSelf,
            "MENU:PHASE1:Rest", 0, "SELF");
  card.Rarity = static_cast<std::uint8_t>(number % 100);
  return card;
}

/// A player who owns the cards, saved to files in memory with the definitions' file beside.
void SavePlayer() {
  auto files = std::make_unique<MemoryFileSystem>();
  StartBenchSession(std::move(files), "/game");
  Session& session = State();
  session.TraitBitNames.Reset(1);
  session.TraitActions.Reset(1);
  session.CardTable.Reset(1);
  session.Sideboard.Reset(1);
  InitPlayer(session.Players[1], 1);
  session.Profile.PlayerName = "Bench";
  session.Profiles.Append({"Bench", "", ""});
  for (int number = 1; number <= kDefinitions; ++number) {
    session.Collection.Append(Definition(number));
  }
  SaveCardFile(kCardFile, "COLLECTION", "", 0);
  session.Collection.Resize(0);
  for (int number = 0; number < kCards; ++number) {
    session.Collection.Append(Definition(number % kDefinitions + 1));
  }
  for (DeckRec& deck : session.Decks) {
    deck.Cards.Reset(1);
    for (int number = 1; number <= kDeckCards; ++number) deck.Cards.Append(Definition(number));
  }
  WritePlayerFile(kPlayerFile);
}

void EmptyOwnPiles() {
  State().Collection = Pile(1);
  for (DeckRec& deck : State().Decks) deck.Cards = Pile(1);
  State().InternedTexts.clear();
}

void Read() { ReadCards(kPlayerFile, State().Players[1], 0, "", 0); }

double MiBInUse() { return static_cast<double>(mallinfo2().uordblks) / (1 << 20); }

void BM_ReadPlayerFile(benchmark::State& state) {
  SavePlayer();
  EmptyOwnPiles();
  const double before = MiBInUse();
  Read();
  state.counters["cards"] = State().Collection.UpperBound();
  state.counters["MiB"] = MiBInUse() - before;
  for (auto _ : state) Read();
}
BENCHMARK(BM_ReadPlayerFile)->Unit(benchmark::kMillisecond);

void BM_SavePlayerFile(benchmark::State& state) {
  SavePlayer();
  Read();
  for (auto _ : state) WritePlayerFile(kPlayerFile);
  state.counters["bytes"] =
      static_cast<double>(Desktop().Files().Read("/game/Bench_Game.plr").value_or("").size());
}
BENCHMARK(BM_SavePlayerFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
