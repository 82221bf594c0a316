// The parts of the script checker for triggers and targets, alone or behind a command.
#pragma once

#include <cstddef>

#include "lint/checked_fields.h"

namespace brindlemoor {

/// Checks a target's word; the last field that belongs to it, or the number of fields when one is
/// missing at the end. GIDCARD has its expression behind it as an action's target, and none as a
/// command's.
std::size_t CheckTargetFields(CheckedFields& fields, std::size_t at, bool withExpression);

/// The same for a trigger's word. Its case counts for nothing where folds is set and the engine
/// folds it.
std::size_t CheckTriggerFields(CheckedFields& fields, std::size_t at, bool folds);

}  // namespace brindlemoor
