// TableJournal: what a test changes in the table, kept so that it can be put back.
#pragma once

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "core/state.h"

namespace brindlemoor {

/// While it exists, what may change a record of the table notes it first (Session::Journal): a run
/// its two cards, and what registers an action the lists. A test run changes nothing else there:
/// it fills no slot, and copies that it makes are not of the table. An inner journal puts back what
/// changes meanwhile, so that there is nothing to note in the outer one.
class TableJournal {
 public:
  TableJournal() : outer_(std::exchange(State().Journal, this)) {}
  TableJournal(const TableJournal&) = delete;
  TableJournal& operator=(const TableJournal&) = delete;
  ~TableJournal() { State().Journal = outer_; }

  /// Keeps a card as it is, once. Cards that are no record of the table are passed over.
  void Note(const Card& card);
  /// Keeps the lists of actions as they are, once.
  void NoteHits();
  /// The table and its lists are as they were when the journal began.
  void PutBack();

 private:
  TableJournal* outer_;
  std::vector<std::pair<int, Card>> cards_;  ///< by slot
  std::optional<std::array<std::vector<Hit>, kHitLists>> hits_;
};

}  // namespace brindlemoor
