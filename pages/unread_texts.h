// Texts that nobody reads, as in matches that are played for their outcome: whether composing one
// does anything beside.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// True when nobody reads and filling the marks of a message in for a pair of cards changes
/// nothing: no dice are rolled for them. Its custom strings are filled in already. What is left out
/// is counted (WorkBudget::LeftOut). Long messages are never left out, so that each that is takes
/// less than WorkBudget::kStepsOfText.
bool LeavesOutMarks(const Card& source, const Card& target, std::string_view message);

/// The same for the picture of a card.
bool LeavesOutPicture(const Card& card);

/// The same for the report page of the turn.
bool LeavesOutReport();

}  // namespace brindlemoor
