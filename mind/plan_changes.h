// What can be changed in the plan of a turn.
#pragma once

#include <vector>

#include "core/turn_plan.h"

namespace brindlemoor {

/// Plans that differ from one in a single thing: a card that is left out, added, played first or
/// aimed at another card; a menu action that is taken back or used. In a fixed order.
std::vector<TurnPlan> ChangedPlans(const TurnPlan& plan, int side);

}  // namespace brindlemoor
