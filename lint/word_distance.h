// The known word that a mistyped one was most likely meant to be.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace brindlemoor {

/// The word of the list that is nearest to the given one, "" when none is near. Added, missing,
/// wrong and swapped characters count 1 each, case counts nothing; at most 2 are near, in words of
/// fewer than 5 characters 1. Of equally near words the first is taken.
std::string NearestWord(std::string_view word, std::span<const std::string_view> known);

}  // namespace brindlemoor
