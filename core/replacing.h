// Replacing in a text until there is nothing left to replace.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Replaces every occurrence and starts again at the beginning after each replacement, so that
/// "aab" with "ab" replaced by "b" gives "b". An empty search text changes nothing. Where the
/// replacement holds the search text, or the bound of limits.h is reached, one pass from left to
/// right is made and what it wrote is not searched again. Returns the changed text.
std::string& ReplaceAll(std::string& text, std::string_view search, std::string_view replacement);

/// ReplaceAll on a copy.
std::string ReplacedCopy(std::string_view text, std::string_view search,
                         std::string_view replacement);

}  // namespace brindlemoor
