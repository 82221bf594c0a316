// Fields as they are written, so that the reader gives back the same text.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What ends a line of the files that the program writes.
inline constexpr std::string_view kLineEnd = "\r\n";

/// A free text: in double quotes, each double quote in it as "&quot".
std::string QuotedField(std::string_view text);

/// A field that is written as it stands; in quotes when a comma, a line end, or a blank at its
/// beginning would change it. A double quote that such a field holds, or begins with, becomes
/// "&quot".
std::string PlainField(std::string_view text);

/// Any text at all, as QuotedField; what the format has no way to tell ("#", line ends, "&") stands
/// in it as "&num" and the like.
std::string FreeTextField(std::string_view text);
/// The text of a field that FreeTextField has written.
std::string FreeTextOf(std::string_view field);

/// A name: in double quotes as it stands. The format has no double quote between quotes, so a name
/// that holds one goes without quotes where it can, else its own become "&quot".
std::string NameField(std::string_view name);
/// The name that comes back from NameField.
std::string NameAsRead(std::string_view name);

}  // namespace brindlemoor
