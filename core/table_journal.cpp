// Keeping records of the table and putting them back.
#include "core/table_journal.h"

#include <algorithm>

namespace brindlemoor {

void TableJournal::Note(const Card& card) {
  // By its address: cards that files put straight into the table have no slot of their own.
  const int slot = State().CardTable.IndexOf(card);
  if (slot == 0) return;
  const auto isKept = [slot](const auto& kept) { return kept.first == slot; };
  if (std::ranges::none_of(cards_, isKept)) cards_.emplace_back(slot, card);
}

void TableJournal::NoteHits() {
  if (!hits_) hits_ = State().HitTable;
}

void TableJournal::PutBack() {
  Session& session = State();
  for (auto& [slot, card] : cards_) session.CardTable[slot] = std::move(card);
  cards_.clear();
  if (hits_) session.HitTable = *std::exchange(hits_, std::nullopt);
}

}  // namespace brindlemoor
