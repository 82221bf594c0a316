// Paying for cards, the enemy's menu actions and the end of bonuses.
#pragma once

#include "core/records.h"

namespace brindlemoor {

inline constexpr int kPaid = -1;  ///< the answer of PayCost when the price can be paid

/// Tests (mode 1) or tests and pays (mode 0) a card's price. kPaid when it can be paid, 0 when not.
/// The card is not changed; a failed test leaves no trace.
int PayCost(const Card& card, int mode);

/// The enemy arms each of its menu actions for which a clean target exists.
void PlanEnemyMenuActions();

/// Bonus traits and bonus actions end.
void ExpireBonuses();

}  // namespace brindlemoor
