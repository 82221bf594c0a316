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

/// True for HTML that begins with the "<" of a tag.
bool BeginsTag(std::string_view html);

/// A piece of HTML without its tags; all else stays as it is. A "<" that opens none stays, too.
std::string WithoutTags(std::string_view html);

}  // namespace brindlemoor
