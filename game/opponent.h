// The computer opponent's part of a turn.
#pragma once

#include <string>

#include "core/records.h"

namespace brindlemoor {

/// What the enemy's plays leave for the report.
struct EnemyPlays {
  std::string Cells;     ///< cells of the plays table
  std::string Thoughts;  ///< its reasoning, shown in debug mode
};

/// Tries a hand card's actions out on the present table and stores what the card is worth, with
/// its PRIORITY, as the trait "AILOVE". Returns the worth without the PRIORITY; -100 for a card
/// that can't be paid and for a free record, which is left as it is.
double ValueCardForAI(Card& card);

/// The enemy values its hand, sorts it and plays, best first, what is worth 1 or more and can be
/// paid.
EnemyPlays PlayEnemyHand();

}  // namespace brindlemoor
