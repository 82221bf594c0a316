// Text encodings of files: UTF-8 with or without a byte order mark, else Windows-1252.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

/// True for well-formed UTF-8 (no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes) noexcept;

/// The text of a file's bytes as UTF-8: a byte order mark is dropped; bytes that are no UTF-8 are
/// read as Windows-1252 (its five unassigned bytes give U+FFFD). A character of UTF-8 text that the
/// end of the file cuts off is dropped.
std::string DecodeFileText(std::string bytes);

/// A text as bytes of Windows-1252; nothing when it has characters that are not in there.
std::optional<std::string> EncodedAsWindows1252(std::string_view text);

/// One character of a text and how many bytes it takes. A byte that begins no well-formed UTF-8
/// character is one of its own, with Valid false.
struct DecodedCharacter {
  char32_t CodePoint = 0;
  int Length = 1;
  bool Valid = false;
};
/// The character at a position inside the text.
DecodedCharacter DecodeAt(std::string_view text, std::size_t position) noexcept;

/// The code point that begins at position, which moves behind it; an invalid byte gives itself.
char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept;
void AppendCodePoint(std::string& out, char32_t codePoint);

}  // namespace brindlemoor
