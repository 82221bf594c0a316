// EditedCard: the card in the editor, with its rows and the steps of its changes.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/records.h"
#include "editor/card_history.h"
#include "editor/card_rows.h"

namespace brindlemoor {

/// State().EditCard while it is edited. Its lists are edited as rows; the card itself keeps those
/// that it was loaded with.
class EditedCard {
 public:
  CardRows Rows;

  /// Takes a card; one of a free place is made a fresh one.
  void Load(Card card);
  /// The card with the rows as its lists.
  Card WithRows() const;
  /// Gives a card without a unique ID one, which no undo takes away again.
  void GiveUniqueID();

  /// Another card is edited: nothing can be undone, and it is as it was stored.
  void BeginHistory();
  /// The card was made afresh of the same content: no step.
  void Refresh() { history_.Refresh(Snapshot()); }
  /// A control was used. True when the card is not what it was before.
  bool Note(std::string_view control, bool typed) {
    return history_.Note(Snapshot(), control, typed);
  }
  /// What is typed next begins a step.
  void EndTyping() { history_.EndTyping(); }
  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  /// There must be a step.
  void Undo() { Show(history_.Undo()); }
  void Redo() { Show(history_.Redo()); }
  /// No step takes away the file of the card, or that of its image where it had none.
  void KeepFile();
  void KeepImage();

  bool IsSaved() const { return history_.Revision() == savedRevision_; }
  void MarkSaved() { savedRevision_ = history_.Revision(); }

 private:
  CardSnapshot Snapshot() const;
  void Show(const CardSnapshot& snapshot);

  CardHistory history_;
  std::uint64_t savedRevision_ = 0;
};

}  // namespace brindlemoor
