// A card in a few words, for those who hear its picture.
#pragma once

#include <string>

#include "core/records.h"

namespace brindlemoor {

/// "COST 2, STRIKE 3, FAST": the traits in their order, a dozen at most. "" without any.
std::string TraitsInWords(const Card& card);

}  // namespace brindlemoor
