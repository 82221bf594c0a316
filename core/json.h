// Texts as JSON writes them.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A text (UTF-8) in double quotes, with escapes where JSON needs them.
std::string JsonText(std::string_view text);

}  // namespace brindlemoor
