// Thinking a turn over: plans are tried out by playing matches on.
#pragma once

#include <cstdint>
#include <optional>

#include "core/turn_plan.h"

namespace brindlemoor {

/// The plan that a side, 1 or 2, does best with, as far as so many steps of work find out
/// (core/work_budget.h): nothing where nothing was found that is better than what the plain mind
/// does. It knows no game and sees what a player at the table sees. A function of that and the
/// steps; the session is as it was before.
///
/// First some matches are played to their end, from which is learnt what positions are worth. Then
/// a climb over plans: those beside the best one yet are played for some turns, and compared by
/// sequential halving (Karnin, Koren and Somekh, "Almost Optimal Exploration in Multi-Armed
/// Bandits", 2013), all on the same deals of the hidden cards.
std::optional<TurnPlan> PlanByPlaying(int side, std::int64_t steps);

/// The same with the steps of the side's level (Session::Minds).
std::optional<TurnPlan> ThinkOfTurn(int side);

}  // namespace brindlemoor
