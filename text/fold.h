// Case folding: Unicode simple upper case over UTF-8, with a fast road for ASCII.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

inline bool IsAscii(char character) noexcept {
  return static_cast<unsigned char>(character) < 0x80;
}
inline char AsciiUpper(char character) noexcept {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                              : character;
}

/// The text in upper case, character by character (simple mappings only, so lengths in characters
/// never change). Bytes that are no UTF-8 stay as they are.
std::string FoldUpper(std::string_view text);

/// True when both texts fold to the same; allocates nothing for ASCII.
bool FoldEquals(std::string_view a, std::string_view b);

/// True when text is exactly the other one in upper case; allocates nothing for ASCII.
bool IsFoldOf(std::string_view text, std::string_view other);

/// How many bytes of text fold to the prefix, folded; -1 when text does not begin with it.
int FoldPrefixLength(std::string_view text, std::string_view prefix);

/// True when text, folded, begins with the prefix, folded.
bool FoldStartsWith(std::string_view text, std::string_view prefix);

/// True when the part occurs in text, both folded; allocates nothing. The empty part always does.
bool FoldContains(std::string_view text, std::string_view part);

}  // namespace brindlemoor
