// The version of the program.
#pragma once

#include <string_view>

namespace brindlemoor {

inline constexpr std::string_view kProgramVersion = "Beta 1.0";

}  // namespace brindlemoor
