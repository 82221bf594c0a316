// Paying for cards in the plain engine: the whole table is copied before the test and put back
// after it, and every card that could change the price is copied once more.
#include "core/cards.h"
#include "core/state.h"
#include "game/card_play.h"
#include "script/firing.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

void RunCostModifiers(Card& card, Card& work, Payment payment) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].Trigger != "COSTMOD") continue;
    const OwnFiring modifier;
    BeginFiring();
    RunAction(card, work, effect,
              RunOptions{
                  .CostMode = 1, .TestRun = payment == Payment::kIsTested ? 1 : 0, .Paying = true});
  }
}

}  // namespace

bool PayCost(const Card& card, Payment payment) {
  Session& session = State();
  session.CostCard.InPlay = 1;
  if (session.DebugMode == 1) return true;
  SpendWork(session.CardTable.UpperBound());
  if (WorkIsSpent()) return false;
  const Pile table = session.CardTable;
  const auto hits = session.HitTable;
  const std::string page = session.PageText;
  const std::string banner = session.PhaseBanner;
  const auto cancel = session.CancelState;
  const Card rules = session.RulesCard;
  const auto players = session.Players;
  const Pile collection = session.Collection;
  const auto decks = session.Decks;
  const Pile pending = session.PendingCards;
  const auto pendingCount = session.PendingCount;
  Card work = card;

  RunCostModifiers(session.RulesCard, work, payment);
  for (int slot = 1; slot <= session.CardTable.UpperBound(); ++slot) {
    if (IsFree(session.CardTable[slot])) continue;
    Card copy = session.CardTable[slot];
    RunCostModifiers(copy, work, payment);
  }
  Card tested = work;
  const int failures = FireTrigger(tested, "COST", -1, 0, 1);
  session.CardTable = table;
  session.HitTable = hits;
  session.PageText = page;
  session.CancelState = cancel;
  if (failures > 0 || WorkIsSpent()) {
    session.PhaseBanner = banner;
    if (payment == Payment::kIsTested) return false;
    session.RulesCard = rules;
    session.Players = players;
    session.Collection = collection;
    session.Decks = decks;
    session.PendingCards = pending;
    session.PendingCount = pendingCount;
    return false;
  }
  if (payment == Payment::kIsMade) FireTrigger(work, "COST");
  session.CancelState = cancel;
  return true;
}

}  // namespace brindlemoor
