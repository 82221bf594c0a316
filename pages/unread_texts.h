// Texts that nobody reads, as in matches that are played for their outcome: whether composing one
// does anything beside.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// True when nobody reads and filling a message in for a pair of cards changes nothing: no dice are
/// rolled for it. What is left out is counted (WorkBudget::LeftOut). Long messages are never left
/// out, so that each that is takes less than WorkBudget::kStepsOfText.
bool LeavesOutMessage(const Card& source, const Card& target, std::string_view message);

/// The same for the report page of the turn.
bool LeavesOutReport();

}  // namespace brindlemoor
