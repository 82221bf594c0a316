// The deck manager over a large collection: opening, a click that moves a card, scrolling, a
// search. The pages are left out; half of the cards lack their pictures.
#include <benchmark/benchmark.h>

#include "bench/bench_session.h"
#include "core/paths.h"
#include "data/card_reader.h"
#include "script/card_setup.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

/// A collection of copies of the shipped cards.
class Owner {
 public:
  explicit Owner(int cards) {
    StartBenchSession(std::make_unique<LocalFileSystem>(), games_.Path());
    Session& session = State();
    session.DeckRules = "TRAITLIMIT:PLAYER:1:SAMENAMELIMIT:#ANY#:4:TRAITLIMIT:#ANY#:40";
    PlayerState models;
    InitPlayer(models, 1);
    ReadCards(ResolvePath("WickwaterCards.txt", 0), models, 0, "", 0);
    session.Collection.Resize(0);
    for (int index = 0; index < cards; ++index) {
      Card card = models.Deck[2 + index % (models.Deck.UpperBound() - 1)];
      card.GlobalID = index + 1;
      if (index % 2 == 0) card.Thumb = Joined("gone-", index % 100, ".jpg");
      session.Collection.Append(std::move(card));
    }
    for (int deck = 1; deck <= 3; ++deck) session.Decks[deck].Cards.Reset(1);
    Form().Form_Load();
  }
  static DeckManager& Form() { return TheDeckManager(); }

 private:
  GamesCopy games_;
};

void BM_DeckManagerOpening(benchmark::State& state) {
  Owner owner(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    owner.Form().Form_Load();
    owner.Form().Form_Activate();
  }
}
BENCHMARK(BM_DeckManagerOpening)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

/// A card goes into the deck and comes back: two clicks.
void BM_DeckManagerTwoClicks(benchmark::State& state) {
  Owner owner(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    owner.Form().CollectPic[1]->MouseUp(MouseButton::kLeft);
    owner.Form().DeckPic[0]->MouseUp(MouseButton::kLeft);
  }
}
BENCHMARK(BM_DeckManagerTwoClicks)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_DeckManagerScrolling(benchmark::State& state) {
  Owner owner(static_cast<int>(state.range(0)));
  ScrollBar& bar = *owner.Form().VScroll1[1];
  for (auto _ : state) {
    bar.Value = (bar.Value + 3) % bar.Maximum;
    bar.Change();
  }
}
BENCHMARK(BM_DeckManagerScrolling)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_DeckManagerSearch(benchmark::State& state) {
  Owner owner(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    owner.Form().SearchText.Text = "gull HP>=2";
    owner.Form().SearchText.Change();
  }
}
BENCHMARK(BM_DeckManagerSearch)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
