// CardHistory: the states that undo and redo of the card editor go through.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "editor/card_rows.h"

namespace brindlemoor {

/// The edited card with its rows, and where their tables were scrolled to.
struct CardSnapshot {
  brindlemoor::Card Card{};
  CardRows Rows{};
  std::uint64_t Revision = 0;  ///< given by the history; states of one number are the same
};

/// True when the form would show the same, wherever the tables are scrolled to.
bool SameContent(const CardSnapshot& a, const CardSnapshot& b);

/// One step is one change by a control; typing on in the same box belongs to the step before.
class CardHistory {
 public:
  static constexpr std::size_t kSteps = 200;

  /// Another card: nothing can be undone.
  void Begin(CardSnapshot present);
  /// What the card is after a control was used. True when it is not what it was before.
  bool Note(CardSnapshot present, std::string_view control, bool typed);
  /// The card was made afresh of the same content: no step.
  void Refresh(CardSnapshot present);
  /// What is typed next begins a step.
  void EndTyping() { typedIn_.clear(); }

  bool CanUndo() const { return !past_.empty(); }
  bool CanRedo() const { return !future_.empty(); }
  /// The state to show now. There must be one.
  const CardSnapshot& Undo();
  const CardSnapshot& Redo();
  std::uint64_t Revision() const { return present_.Revision; }

  /// What a card is given by being stored, no step takes away again: its file, and its unique ID
  /// where it had none.
  void KeepIdentity(const Card& stored);
  /// Nor the files of its images, where it had none: what they were made of is gone.
  void KeepImage(const Card& stored);

 private:
  template <class Act>
  void ForEach(const Act& act) {
    for (CardSnapshot& state : past_) act(state);
    for (CardSnapshot& state : future_) act(state);
    act(present_);
  }

  std::deque<CardSnapshot> past_;
  std::vector<CardSnapshot> future_;
  CardSnapshot present_;
  std::string typedIn_;
  std::uint64_t lastRevision_ = 0;
};

}  // namespace brindlemoor
