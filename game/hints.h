// What the cards in a hand are worth now, and why.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"
#include "game/opponent.h"

namespace brindlemoor {

/// What a hand card is worth.
struct HandValue {
  int Position = 0;  ///< in the hand
  double Value = 0;  ///< worth and PRIORITY, as the computer opponent counts them
  bool Payable = false;

  /// True for what the opponent would play.
  bool IsWorthPlaying() const { return Payable && Value >= 1; }
};

/// The cards in the hand of a side, 1 or 2, best first; of equal ones the one that lies further
/// left. They are valued on copies; only the random sequence moves on.
std::vector<HandValue> HandValues(int side);

/// A hand card with its value and what the trials of its actions said, in the order of its actions.
struct Hint {
  HandValue Play;
  brindlemoor::Card Card;           ///< a copy
  std::vector<std::string> Trials;  ///< a sentence each, plain text
};

/// The hand of side 1, best first. Nothing changes, the random sequence included.
std::vector<Hint> HandHints();

}  // namespace brindlemoor
