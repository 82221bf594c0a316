// The automatic player for side 1: it judges its hand as the computer opponent judges its own, or
// thinks.
#pragma once

namespace brindlemoor {

/// Queues the hand cards that are worth 1 or more and can be paid, best first and without a target,
/// so that their actions choose as the opponent's do; arms menu actions of side 1 that have a clean
/// target. The cards are valued on copies: beside the queue and the armed actions nothing changes.
void PlanAutomaticPlays();

/// Lines up what side 1 thinks out, where it thinks (Session::Minds), else PlanAutomaticPlays.
void PlanPlayerTurn();

}  // namespace brindlemoor
