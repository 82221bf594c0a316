// Texts as JSON and HTML write them.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A text (UTF-8) in double quotes, with escapes where JSON needs them.
std::string JsonText(std::string_view text);

/// A text as HTML shows it, in attributes too: what would be markup is escaped, control characters
/// but line feeds are left out.
std::string HtmlText(std::string_view text);

}  // namespace brindlemoor
