// What both programs say of their version.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// The line that --version prints: the name of a program, the version of its package (three
/// numbers, by which installers tell older from newer) and the version that windows and journals
/// show.
std::string VersionText(std::string_view program);

}  // namespace brindlemoor
