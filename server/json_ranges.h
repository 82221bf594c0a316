// Positions and ranges of texts as JSON.
#pragma once

#include <optional>
#include <string>

#include "server/json_values.h"
#include "server/text_positions.h"

namespace brindlemoor {

/// The position of this name in a value; nothing when it is none.
std::optional<TextPosition> PositionIn(const Json& value, const char* name);

/// The range between two bytes of a text.
Json RangeOf(const TextPositions& positions, std::size_t begin, std::size_t end);

}  // namespace brindlemoor
