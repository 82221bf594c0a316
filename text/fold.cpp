// Case folding over UTF-8.
#include "text/fold.h"

#include <algorithm>

#include "text/encoding.h"
#include "text/upper_case_table.h"

namespace brindlemoor {

namespace {

char32_t UpperCodePoint(char32_t codePoint) noexcept {
  if (codePoint < 0x80) return static_cast<char32_t>(AsciiUpper(static_cast<char>(codePoint)));
  const auto ranges = UpperCaseRanges();
  const auto range =
      std::partition_point(ranges.begin(), ranges.end(),
                           [codePoint](const UpperCaseRange& row) { return row.Last < codePoint; });
  if (range == ranges.end() || codePoint < range->First) return codePoint;
  if ((codePoint - range->First) % range->Step != 0) return codePoint;
  return static_cast<char32_t>(static_cast<std::int32_t>(codePoint) + range->Delta);
}

/// A folded character. Bytes that are no UTF-8 get numbers that no character has.
struct FoldedCharacter {
  char32_t Key;
  std::size_t Length;
};

FoldedCharacter FoldAt(std::string_view text, std::size_t position) noexcept {
  constexpr char32_t kInvalidBytes = 0x200000;
  const DecodedCharacter character = DecodeAt(text, position);
  return {
      character.Valid ? UpperCodePoint(character.CodePoint) : kInvalidBytes + character.CodePoint,
      static_cast<std::size_t>(character.Length)};
}

/// Where text stands after the part that folds like prefix, npos when it does not begin so.
std::size_t MatchFolded(std::string_view text, std::string_view prefix) noexcept {
  std::size_t inText = 0;
  std::size_t inPrefix = 0;
  while (inPrefix < prefix.size()) {
    if (inText >= text.size()) return std::string_view::npos;
    if (IsAscii(text[inText]) && IsAscii(prefix[inPrefix])) {
      if (AsciiUpper(text[inText++]) != AsciiUpper(prefix[inPrefix++])) {
        return std::string_view::npos;
      }
      continue;
    }
    const FoldedCharacter a = FoldAt(text, inText);
    const FoldedCharacter b = FoldAt(prefix, inPrefix);
    if (a.Key != b.Key) return std::string_view::npos;
    inText += a.Length;
    inPrefix += b.Length;
  }
  return inText;
}

}  // namespace

std::string FoldUpper(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  std::size_t position = 0;
  while (position < text.size()) {
    if (IsAscii(text[position])) {
      upper += AsciiUpper(text[position++]);
      continue;
    }
    const DecodedCharacter character = DecodeAt(text, position);
    if (character.Valid) {
      AppendCodePoint(upper, UpperCodePoint(character.CodePoint));
    } else {
      upper += text[position];
    }
    position += static_cast<std::size_t>(character.Length);
  }
  return upper;
}

bool FoldEquals(std::string_view a, std::string_view b) {
  return a == b || MatchFolded(a, b) == a.size();
}

bool IsFoldOf(std::string_view text, std::string_view other) {
  const std::size_t shorter = std::min(text.size(), other.size());
  for (std::size_t index = 0; index < shorter; ++index) {
    if (!IsAscii(other[index])) return FoldUpper(other) == text;
    if (text[index] != AsciiUpper(other[index])) return false;
  }
  return text.size() == other.size();
}

int FoldPrefixLength(std::string_view text, std::string_view prefix) {
  if (text.starts_with(prefix)) return static_cast<int>(prefix.size());
  const std::size_t end = MatchFolded(text, prefix);
  return end == std::string_view::npos ? -1 : static_cast<int>(end);
}

bool FoldStartsWith(std::string_view text, std::string_view prefix) {
  return MatchFolded(text, prefix) != std::string_view::npos;
}

bool FoldContains(std::string_view text, std::string_view part) {
  if (part.empty()) return true;
  const char32_t first = FoldAt(part, 0).Key;
  std::size_t position = 0;
  while (position < text.size()) {
    FoldedCharacter here{static_cast<unsigned char>(AsciiUpper(text[position])), 1};
    if (!IsAscii(text[position])) here = FoldAt(text, position);
    if (here.Key == first && FoldStartsWith(text.substr(position), part)) return true;
    position += here.Length;
  }
  return false;
}

}  // namespace brindlemoor
