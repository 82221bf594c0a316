// Carrying out what a side has decided on for its turn.
#pragma once

#include <optional>
#include <vector>

#include "core/turn_plan.h"
#include "game/opponent.h"

namespace brindlemoor {

/// The menu actions of a side, 1 or 2, that it could arm, in the order of the table, unaimed.
std::vector<PlannedAction> OpenActions(int side);

/// Lines a plan of side 1 up as clicks would: the queue with its targets, the armed menu actions.
/// Whatever was lined up before is forgotten. What is not in the hand or on the table any more is
/// left out.
void LineUp(const TurnPlan& plan);

/// The enemy arms the menu actions of its plan, takes the others back and plays what it can pay.
EnemyPlays PlayEnemyPlan(const TurnPlan& plan);

/// True where side 2 thinks its turns out (Session::ThinkOfTurn): not in a visit, where there is
/// nobody to beat.
bool EnemyThinks();

/// The plan that side 2 has for this turn, which is forgotten, or one that it thinks out now;
/// nothing for a side that judges its cards one by one.
std::optional<TurnPlan> TakeEnemyPlan();

}  // namespace brindlemoor
