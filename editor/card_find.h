// Finding cards by words of what the editor shows of them.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// The next card behind a position, round the end and up to the position itself, that the words
/// speak of: as in the search box of a collection, or in the trigger, target or script of its
/// actions. 0 when there is none, or no words.
int FindNextCard(const Pile& cards, int after, std::string_view words);

}  // namespace brindlemoor
