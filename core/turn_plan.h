// TurnPlan: what a side that has thought does in its turn.
#pragma once

#include <vector>

namespace brindlemoor {

/// A hand card that is played if it can be paid when its place in the plan comes.
struct PlannedPlay {
  int Position = 0;  ///< in the hand
  int Target = 0;    ///< slot of the card that it is aimed at; 0 lets its actions choose
};

/// A menu action of a table card.
struct PlannedAction {
  int Slot = 0;
  int Effect = 0;  ///< its number
  int Target = 0;  ///< slot of the card that it is aimed at; 0 lets it choose
};

struct TurnPlan {
  std::vector<PlannedPlay> Plays;      ///< in order
  std::vector<PlannedAction> Actions;  ///< in the order of the table
};

}  // namespace brindlemoor
