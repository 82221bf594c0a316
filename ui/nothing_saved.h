// What the windows say all the time while nothing the player owns is saved.
#pragma once

#include <string_view>

namespace brindlemoor {

inline constexpr std::string_view kNothingSaved = "Debug mode: nothing is saved.";

}  // namespace brindlemoor
