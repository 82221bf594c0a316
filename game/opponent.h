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

/// What an action says for its card.
struct ActionTrial {
  int Effect = 0;
  bool IsTried = true;  ///< false for a trigger that counts without being tried
  int Target = 0;       ///< slot of the card it was tried on, 0 when there is none to try it on
  int Result = 0;       ///< of the run
  std::string FailReason;
  int Points =
      0;  ///< 2 for an action that works, -1 for one that doesn't; three times that of AIREQ
};

/// What the computer opponent thinks of a card, by its parts.
struct CardWorth {
  bool Payable = false;
  double OfActions =
      0;  ///< ten times the points an action, rounded down; -100 when it can't be paid
  double Priority = 0;              ///< its PRIORITY
  std::vector<ActionTrial> Trials;  ///< in the order of its actions; only where they are asked for

  double Total() const { return OfActions + Priority; }
};

/// Which parts of a card's worth are gathered.
enum class WorthDetail { kSums, kTrials };

/// Tries a hand card's actions out on the present table and stores what the card is worth in total
/// as the trait "AILOVE". A free record is left as it is and is worth -100.
CardWorth ValueCardForAI(Card& card, WorthDetail detail = WorthDetail::kSums);

/// The worth and its reasons as one line: "22: 20 of its actions, PRIORITY 2; action 1 ENTERPLAY at
/// Crab: 2".
std::string WorthText(const Card& card, const CardWorth& worth);

/// The enemy values its hand, sorts it and plays, best first, what is worth 1 or more and can be
/// paid.
EnemyPlays PlayEnemyHand();

}  // namespace brindlemoor
