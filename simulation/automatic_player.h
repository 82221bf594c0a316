// The automatic player for side 1: it judges its hand as the computer opponent judges its own, or
// thinks.
#pragma once

#include "core/turn_plan.h"

namespace brindlemoor {

/// What a side, 1 or 2, does that judges its cards one by one: the hand cards that are worth 1 or
/// more and can be paid, best first and without a target, so that their actions choose as the
/// opponent's do, and the menu actions that have a clean target. The cards are valued on copies;
/// only the random sequence moves on.
TurnPlan PlainPlan(int side);

/// Lines that up for side 1.
void PlanAutomaticPlays();

/// Lines up what side 1 thinks out, where it thinks (Session::Minds), else PlanAutomaticPlays.
void PlanPlayerTurn();

}  // namespace brindlemoor
