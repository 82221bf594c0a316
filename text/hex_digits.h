// Hexadecimal digits.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

inline constexpr std::string_view kHexDigits = "0123456789abcdef";
inline constexpr std::string_view kLargeHexDigits = "0123456789ABCDEF";

/// Adds the two digits of a byte, the higher one first.
inline void AppendHex(std::string& text, unsigned char byte, std::string_view digits = kHexDigits) {
  (text += digits[byte >> 4U]) += digits[byte & 15U];
}

}  // namespace brindlemoor
