// Names of what the program keeps on the disk for a while only.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What all of them begin with.
inline constexpr std::string_view kPassingFile = ".brindlemoor-";
/// The end of the name of a file that is written beside the one that it will replace.
inline constexpr std::string_view kPartEnding = ".part~";

/// A new name that no other program or machine has: the beginning, something random, the ending.
/// Its length does not grow with that of a file's name, which may be as long as the system allows.
std::string PassingName(std::string_view ending);

/// True for a name that PassingName has given with this ending.
bool IsPassingName(std::string_view name, std::string_view ending);

}  // namespace brindlemoor
