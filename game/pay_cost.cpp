// Paying for cards by tests that leave no trace.
#include <array>
#include <optional>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/table_journal.h"
#include "game/card_play.h"
#include "script/effect_masks.h"
#include "script/firing.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

bool ModifiesCosts(const Card& card) {
  if ((TriggerMarks(card) & TriggerMark("COSTMOD")) == 0) return false;
  for (const CardEffect& effect : card.Effects) {
    if (effect.Trigger == "COSTMOD") return true;
  }
  return false;
}

/// The whole table: COSTMODs that are carried out for a payment may do anything there.
struct WholeTable {
  Pile CardTable = State().CardTable;
  std::array<std::vector<Hit>, kHitLists> HitTable = State().HitTable;

  void PutBack() const {
    State().CardTable = CardTable;
    State().HitTable = HitTable;
  }
};

/// What they may change beside the table: it comes back when the price can't be paid.
struct Belongings {
  Card RulesCard = State().RulesCard;
  FixedTable<PlayerState, 3> Players = State().Players;
  Pile Collection = State().Collection;
  FixedTable<DeckRec, kDecks> Decks = State().Decks;
  Pile PendingCards = State().PendingCards;
  std::int16_t PendingCount = State().PendingCount;

  void PutBack() const {
    Session& session = State();
    session.RulesCard = RulesCard;
    session.Players = Players;
    session.Collection = Collection;
    session.Decks = Decks;
    session.PendingCards = PendingCards;
    session.PendingCount = PendingCount;
  }
};

/// All that they may change, kept before the first of them runs: mostly their masks refuse it.
struct Aside {
  std::optional<WholeTable> Table;
  std::optional<Belongings> Owned;

  void Keep() {
    if (Table) return;
    Table.emplace();
    Owned.emplace();
  }
};

/// Runs the actions of one card that change the price of work. The card is the acting record.
void RunCostModifiers(Card& card, Card& work, Payment payment, Aside& aside) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].Trigger != "COSTMOD") continue;
    if (payment == Payment::kIsMade && !MasksRefuse(card.Effects[effect], card, work, State())) {
      aside.Keep();
    }
    const OwnFiring modifier;
    BeginFiring();
    RunAction(card, work, effect,
              RunOptions{
                  .CostMode = 1, .TestRun = payment == Payment::kIsTested ? 1 : 0, .Paying = true});
  }
}

void ModifyCost(Card& work, Payment payment, Aside& aside) {
  Session& session = State();
  RunCostModifiers(session.RulesCard, work, payment, aside);
  for (int slot = 1; slot <= session.CardTable.UpperBound(); ++slot) {
    if (IsFree(session.CardTable[slot]) || !ModifiesCosts(session.CardTable[slot])) continue;
    Card copy = session.CardTable[slot];
    RunCostModifiers(copy, work, payment, aside);
  }
}

/// Runs the actions of the price as tests. The number of those that failed; the table is as it was.
int TestCost(Card& work, Payment payment, Aside& aside, std::optional<Card>& toPayWith) {
  TableJournal journal;
  ModifyCost(work, payment, aside);
  if (payment == Payment::kIsMade) toPayWith = work;
  const int failures = FireTrigger(work, "COST", -1, 0, 1);
  journal.PutBack();
  return failures;
}

}  // namespace

bool PayCost(const Card& card, Payment payment) {
  Session& session = State();
  session.CostCard.InPlay = 1;
  if (session.DebugMode == 1) return true;
  SpendWork(session.CardTable.UpperBound());
  if (WorkIsSpent()) return false;  // scripts that do not run can ask for no price
  const std::string page = session.PageText;
  const std::string banner = session.PhaseBanner;
  const auto cancel = session.CancelState;  // a script that asks for a price goes on behind it
  Aside aside;
  Card work = card;
  std::optional<Card> toPayWith;  // the payment begins as the test did
  const int failures = TestCost(work, payment, aside, toPayWith);
  if (aside.Table) aside.Table->PutBack();
  session.PageText = page;
  session.CancelState = cancel;
  if (failures > 0 || WorkIsSpent()) {
    session.PhaseBanner = banner;
    if (aside.Owned) aside.Owned->PutBack();
    return false;
  }
  if (toPayWith) FireTrigger(*toPayWith, "COST");
  session.CancelState = cancel;
  return true;
}

}  // namespace brindlemoor
