// HitTable: which actions a phase has to run, and the cards that wait to enter play.
#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "core/table_journal.h"
#include "language/target_types.h"
#include "script/action_trace.h"
#include "script/triggers.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

std::vector<Hit>& HitsOf(int code) { return State().HitTable[static_cast<std::size_t>(code)]; }

bool IsHitCode(int code) { return code >= 1 && code < static_cast<int>(State().HitTable.size()); }

void FlushWaiting(std::string_view trigger) {
  auto& waiting = State().WaitingSlots;
  Pile& table = State().CardTable;
  for (int entry = 1; entry <= waiting.UpperBound(); ++entry) {
    const int slot = waiting[entry];
    if (slot == 0) continue;
    const bool gone = !table.Holds(slot) || IsFree(table[slot]);
    if (gone || table[slot].InPlay == 1) {
      waiting[entry] = 0;
    } else if (FoldEquals(table[slot].ActivateOn, trigger)) {
      // Freed first: a card that comes to wait while this one enters may take the entry.
      waiting[entry] = 0;
      EnterPlay(table[slot]);
    }
  }
}

void FireHits(Session& session, int code, std::string_view trigger, int value,
              std::uint32_t added) {
  if (!IsHitCode(code)) return;
  const std::vector<Hit>& hits = session.HitTable[static_cast<std::size_t>(code)];
  session.Work.SpendOnSearch(hits.size());
  if (session.Work.IsSpent()) return;  // cards that wait enter with their scripts, in another turn
  FlushWaiting(trigger);
  // What is added while the list is walked, at its end or in an entry that is free, waits for the
  // next time that the trigger is fired.
  const std::size_t end = hits.size();
  for (std::size_t index = 0; index < end && !session.Work.IsSpent(); ++index) {
    if (index >= hits.size()) return;  // a price test has put an older list back
    const Hit hit = hits[index];
    Pile& table = session.CardTable;
    if (hit.Effect == 0 || !table.Holds(hit.Slot)) continue;
    if (table[hit.Slot].Effects[hit.Effect].AddedAt > added) {
      if (session.Trace != nullptr) [[unlikely]] {
        session.Trace->NoteSkipped(table[hit.Slot], hit.Effect, trigger, Obstacle::kWaits,
                                   kAddedMeanwhile);
      }
      continue;
    }
    // The card that enters is no other card, also when a trait has put it into the list by now.
    if (code == kOtherEntersPlay && hit.Slot == value) continue;
    session.Work.Spend(1);
    FireTrigger(table[hit.Slot], trigger, value, hit.Effect);
  }
}

}  // namespace

void FireHit(int code, int value, std::uint32_t addedBefore) {
  FireHits(State(), code, TriggerName(code), value, addedBefore);
}

void FireHit(int code, int value) {
  Session& session = State();
  FireHits(session, code, TriggerName(code), value, session.ActionsAdded);
}

void FireHit(std::string_view trigger, int value) {
  const double number = NumericPrefix(trigger);
  if (number == 0) {
    Session& session = State();
    FireHits(session, TriggerCode(trigger), trigger, value, session.ActionsAdded);
  } else if (number >= 1 && number < static_cast<double>(State().HitTable.size())) {
    FireHit(static_cast<int>(number), value);
  }
}

void RegisterHit(int slot, int effect, bool remove) {
  const Pile& table = State().CardTable;
  if (!table.Holds(slot) || !table[slot].Effects.Holds(effect)) return;
  // Triggers without a code are found by scans: nothing fires a list for them.
  const int code = TriggerCode(table[slot].Effects[effect].Trigger);
  if (!IsHitCode(code)) return;
  // Not even looked through then: every action that is left out would cost as much.
  if (!remove && HitsOf(code).size() >= limits::kHits) {
    limits::ReportLimit("Too many actions have the same trigger: some were left out.");
    return;
  }
  if (State().Journal != nullptr) State().Journal->NoteHits();
  SpendWorkOnSearch(HitsOf(code).size());
  Hit* free = nullptr;
  for (Hit& hit : HitsOf(code)) {
    if (remove) {
      if (hit.Slot == slot) hit = Hit{};
    } else if (hit.Slot == slot && hit.Effect == effect) {
      return;
    } else if (hit.Slot == 0 && free == nullptr) {
      free = &hit;
    }
  }
  if (remove) return;
  if (free != nullptr) {
    *free = Hit{slot, effect};
  } else {
    HitsOf(code).push_back(Hit{slot, effect});
  }
}

void RegisterAllHits(const Card& card) {
  const int slot = card.Slot;
  SpendWorkOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    RegisterHit(slot, effect, false);
  }
}

bool IsTableRecord(const Card& card) {
  const Pile& table = State().CardTable;
  return table.Holds(card.Slot) && &table[card.Slot] == &card;
}

void RebuildHitTable() {
  const Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (IsFree(table[slot])) continue;
    for (int effect = 1; effect <= table[slot].Effects.UpperBound(); ++effect) {
      RegisterHit(slot, effect, false);
    }
  }
}

}  // namespace brindlemoor
