// Cards on their way into the table.
#include "script/card_entry.h"

#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "script/card_setup.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {

namespace {

/// The first free slot, made at the end of the table if there is none; 0 when the table is full.
int TakeFreeSlot(Pile& table) {
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (IsFree(table[slot])) return slot;
  }
  if (table.UpperBound() >= limits::kTableCards) {
    limits::ReportLimit("The table is full: a card was left out.");
    return 0;
  }
  return table.Append(Card());
}

void WaitForTrigger(int slot) {
  Table<std::int16_t>& waiting = State().WaitingSlots;
  int entry = 1;
  while (waiting.Holds(entry) && waiting[entry] != 0) ++entry;
  if (!waiting.Holds(entry)) waiting.Resize(entry);
  waiting[entry] = static_cast<std::int16_t>(slot);
}

/// Puts the cards of a list that begin at a position before those that wait.
void WaitAgain(const Pile& cards, int first) {
  if (!cards.Holds(first)) return;
  const Pile behind = std::exchange(State().PendingCards, Pile(1));
  const int count = std::exchange(State().PendingCount, std::int16_t{0});
  for (int index = first; cards.Holds(index); ++index) QueuePending(cards[index]);
  for (int index = 1; index <= count; ++index) QueuePending(behind[index]);
}

}  // namespace

int AddToTable(const Card& card) {
  if (IsFree(card)) return 0;
  Pile& table = State().CardTable;
  SpendWorkOnSearch(static_cast<std::size_t>(table.UpperBound()));
  const int slot = TakeFreeSlot(table);
  if (slot == 0) return 0;
  Card& entering = table[slot];
  entering = card;
  State().LastEntered = slot;
  entering.Slot = static_cast<std::int16_t>(slot);
  if (entering.GlobalID == 0) entering.GlobalID = RollDie(kDuplicateId);
  SetOwner(entering, entering.Owner);

  const std::int32_t globalId = entering.GlobalID;
  RunEntryScripts(entering);
  // An entry script may have destroyed the card, and another one may have taken the slot.
  if (IsFree(entering) || entering.GlobalID != globalId) return slot;
  entering.InPlay = 0;
  if (entering.ActivateOn.empty()) {
    EnterPlay(entering);
  } else {
    WaitForTrigger(slot);
  }
  return slot;
}

void FlushPending() {
  Session& state = State();
  // Those that the turn has no steps left for enter in the next one.
  if (state.PendingCount <= 0 || WorkIsSpent()) return;
  // Cards that entry scripts queue meanwhile go into the fresh list and wait for the next flush.
  const Pile entering = std::move(state.PendingCards);
  state.PendingCards.Reset(1);
  state.PendingCount = 0;
  int next = 1;
  while (entering.Holds(next) && !WorkIsSpent()) AddToTable(entering[next++]);
  WaitAgain(entering, next);
}

}  // namespace brindlemoor
