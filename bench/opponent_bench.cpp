// The computer opponent's part of a turn: ten cards in hand, each with three actions, and a table
// on which one card in ten passes the masks of these actions.
#include <benchmark/benchmark.h>

#include "bench/bench_session.h"
#include "game/opponent.h"
#include "game/program_start.h"
#include "script/target_types.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

Card MakeCard(std::string_view name, int owner) {
  Card card;
  InitCard(card, owner, 0);
  card.Name = name;
  card.Thumb = "thumb.bmp";
  return card;
}

void Act(Card& card, std::string_view trigger, int target, std::string_view script) {
  AddEffect(card, script, target, trigger, 0, TargetTypeName(target));
}

void FillTable(int cards) {
  for (int slot = 1; slot <= cards; ++slot) {
    Card card = MakeCard("Table Card", slot % 2 + 1);
    SetTrait(card, "HP", 9, 1);
    SetTrait(card, slot % 10 == 0 ? "PREY" : "HUNTER", 1, 1);
    Act(card, "PHASE3", kTargetRandomEnemy, "REQTRAIT:PREY:MODTRAIT:HP:-1");
    AddToTable(card);
  }
  for (int side = 1; side <= 2; ++side) {
    Card card = MakeCard("Player", side);
    SetTrait(card, "PLAYER", 1, 1);
    SetTrait(card, "MANA", 5, 1);
    AddToTable(card);
  }
}

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
  State().Profile.PlayerName = "Bench";
  NewGame();
  State().CardTable.Resize(0);
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
BENCHMARK(BM_EnemyTurn)->Arg(60)->Arg(120)->Arg(240)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
