// Boosters: cards drawn at random, by rarity, from the store that the computer's side stands for.
#include "script/boosters.h"

#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "pages/card_pages.h"
#include "script/stored_cards.h"

namespace brindlemoor {
namespace {

constexpr int kCardsInRow = 4;
constexpr int kRarityAttempts = 1000;
constexpr int kRarityAttemptsWithReqs = 500;

/// What a card of the booster has to pass.
struct BoosterRules {
  int RarityAttempts = kRarityAttempts;  ///< draws after which rarity no longer counts
  Text Requirements;                     ///< script that a test run on the card must pass
};

bool MeetsRequirements(Run& run, const Text& requirements, const Card& card) {
  if (requirements.empty()) return true;
  Card actor = run.Source;
  Card target = card;
  const RunOptions options{
      .TestRun = 1, .NoCounters = 1, .Nested = 1, .ScriptOverride = requirements};
  return RunAction(actor, target, run.EffectIndex, options) != kRunFailed;
}

/// One card, and how many draws it took.
struct Drawn {
  Card Record;
  int Attempts = 0;
};

Drawn DrawBoosterCard(Run& run, const BoosterRules& rules) {
  const Pile& store = State().Players[2].StartDeck;
  const Card nothing;
  for (int attempts = 1;; ++attempts) {
    const int index = RollDie(store.UpperBound());
    const Card& card = store.Holds(index) ? store[index] : nothing;
    const bool more = attempts < limits::kBoosterAttempts && !WorkIsSpent();
    SpendWork(1);
    if (RollDie(100) < card.Rarity && more && attempts < rules.RarityAttempts) continue;
    if (IsFree(card) && more) continue;
    if (more && !MeetsRequirements(run, rules.Requirements, card)) continue;
    return {card, attempts};
  }
}

void GiveCard(Run& run, Card card) {
  AddToCollection(card);
  run.Show(CardPanelHtml(card, 0));
}

Step GiveBooster(Run& run, const BoosterRules& rules) {
  run.ShowRun = true;
  const double count = run.Number(1);
  int draws = 0;
  for (int card = 1; card <= count; ++card) {
    if (card > limits::kBoosterCards || draws >= limits::kBoosterDraws) {
      limits::ReportLimit("A booster had too many cards: the rest was left out.");
      break;
    }
    Drawn drawn = DrawBoosterCard(run, rules);
    draws += drawn.Attempts;
    if (drawn.Attempts >= limits::kBoosterAttempts) run.Show("Max attempts exceeded.");
    GiveCard(run, std::move(drawn.Record));
    if (card % kCardsInRow == 0) run.Show("<br>");
  }
  run.Show("<br>");
  return Step::kNext;
}

}  // namespace

Step BoosterCommand(Run& run) { return GiveBooster(run, {}); }

Step BoosterWithReqsCommand(Run& run) {
  return GiveBooster(run, {kRarityAttemptsWithReqs, run.Rest(2)});
}

Step BoosterCardCommand(Run& run) {
  run.ShowRun = true;
  const double count = run.Number(2);
  for (int card = 1; card <= count; ++card) {
    if (card > limits::kBoosterCards) {
      limits::ReportLimit("A booster had too many cards: the rest was left out.");
      break;
    }
    GiveCard(run, FindInStartDeck(State().Players[2], run.Argument(1)));
  }
  return Step::kNext;
}

}  // namespace brindlemoor
