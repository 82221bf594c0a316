// The computer opponent's part of a turn.
#pragma once

#include <string>

namespace brindlemoor {

/// What the enemy's plays leave for the report.
struct EnemyPlays {
  std::string Cells;     ///< cells of the plays table
  std::string Thoughts;  ///< its reasoning, shown in debug mode
};

/// The enemy plays cards from its hand.
EnemyPlays PlayEnemyHand();

}  // namespace brindlemoor
