// The computer opponent's part of a turn.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// What the enemy's plays leave for the report.
struct EnemyPlays {
  std::string Cells;     ///< cells of the plays table
  std::string Thoughts;  ///< its reasoning, shown in debug mode
};

/// How the trial of an action went.
struct ActionTrial {
  int Effect = 0;
  int Target = 0;  ///< slot of the card it was tried on, 0 when there is none to try it on
  int Result = 0;  ///< of the run
  std::string FailReason;
};

/// What valuing a card found out on the way.
struct ValuationNotes {
  bool Payable = false;
  std::vector<ActionTrial> Trials;
};

/// Tries a hand card's actions out on the present table and stores what the card is worth, with
/// its PRIORITY, as the trait "AILOVE". Returns the worth without the PRIORITY; -100 for a card
/// that can't be paid and for a free record, which is left as it is. notes, when given, gets what
/// the trials said.
double ValueCardForAI(Card& card, ValuationNotes* notes = nullptr);

/// The enemy values its hand, sorts it and plays, best first, what is worth 1 or more and can be
/// paid.
EnemyPlays PlayEnemyHand();

}  // namespace brindlemoor
