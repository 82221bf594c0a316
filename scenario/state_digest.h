// The whole state of a match as lines, for telling whether something was changed, and what.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Everything that a match consists of, a card or value a line: not the random source, not the
/// counters of the debug mode, nor what one script run leaves for the next.
std::string StateDigest();

/// The first thing in which two digests differ, as it was and as it is; "" when they are equal.
std::string FirstDifference(std::string_view before, std::string_view after);

}  // namespace brindlemoor
