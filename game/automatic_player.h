// The simplest automatic player for side 1: it queues what it can pay.
#pragma once

namespace brindlemoor {

/// Queues every hand card that can be paid, in hand order, and arms menu actions of side 1 that
/// have a clean target.
void PlanAutomaticPlays();

}  // namespace brindlemoor
