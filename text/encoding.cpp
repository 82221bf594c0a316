// Reading and writing of UTF-8, and the reading of Windows-1252.
#include "text/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace brindlemoor {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The Windows-1252 characters of the bytes 0x80 to 0x9F; the other bytes are their own code.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178};

unsigned char ByteAt(std::string_view text, std::size_t position) noexcept {
  return static_cast<unsigned char>(text[position]);
}

/// Position of the first byte at or behind position that is not ASCII. Card files are nearly all
/// ASCII, and this walk is half of what reading one costs: so eight bytes at a time.
std::size_t SkipAscii(std::string_view text, std::size_t position) noexcept {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  for (; text.size() - position >= sizeof(std::uint64_t); position += sizeof(std::uint64_t)) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, text.data() + position, sizeof(eight));
    if ((eight & kHighBits) != 0) break;
  }
  while (position < text.size() && ByteAt(text, position) < 0x80) ++position;
  return position;
}

}  // namespace

DecodedCharacter DecodeAt(std::string_view text, std::size_t position) noexcept {
  const unsigned char lead = ByteAt(text, position);
  if (lead < 0x80) return {lead, 1, true};
  const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  const DecodedCharacter invalid{lead, 1, false};
  if (lead < 0xC2 || lead > 0xF4 || text.size() - position < static_cast<std::size_t>(length)) {
    return invalid;
  }
  char32_t codePoint = lead & (0xFFU >> (length + 1));
  for (int i = 1; i < length; ++i) {
    const unsigned char next = ByteAt(text, position + static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) return invalid;
    codePoint = (codePoint << 6) | (next & 0x3F);
  }
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool overlong = codePoint < kSmallest[static_cast<std::size_t>(length)];
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (overlong || surrogate || codePoint > 0x10FFFF) return invalid;
  return {codePoint, length, true};
}

bool IsUtf8(std::string_view bytes) noexcept {
  std::size_t position = SkipAscii(bytes, 0);
  while (position < bytes.size()) {
    const DecodedCharacter character = DecodeAt(bytes, position);
    if (!character.Valid) return false;
    position = SkipAscii(bytes, position + static_cast<std::size_t>(character.Length));
  }
  return true;
}

namespace {

/// The bytes before a character that the end of the file cuts off; all bytes when there is none.
/// That the file is UTF-8 must show before: a single byte at the end may be a whole character of
/// another encoding.
std::size_t WholeUtf8Length(std::string_view bytes) noexcept {
  constexpr std::size_t kLongest = 4;
  for (std::size_t cut = 1; cut < kLongest && cut <= bytes.size(); ++cut) {
    const unsigned char lead = ByteAt(bytes, bytes.size() - cut);
    if ((lead & 0xC0) == 0x80) continue;  // a byte inside a character
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    const std::string_view whole = bytes.substr(0, bytes.size() - cut);
    const std::size_t text = whole.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const bool cutOff = length > cut && SkipAscii(whole, text) < whole.size() && IsUtf8(whole);
    return cutOff ? whole.size() : bytes.size();
  }
  return bytes.size();
}

}  // namespace

std::string DecodeFileText(std::string bytes) {
  bytes.resize(WholeUtf8Length(bytes));
  if (IsUtf8(bytes)) {
    if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
    return bytes;
  }
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    AppendCodePoint(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte);
  }
  return text;
}

std::optional<std::string> EncodedAsWindows1252(std::string_view text) {
  constexpr char32_t kFirstOther = 0x80;
  constexpr char32_t kFirstSame = 0xA0;
  std::string out;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = NextCodePoint(text, position);
    const auto* other = std::find(kWindows1252.begin(), kWindows1252.end(), character);
    if (character < kFirstOther || (character >= kFirstSame && character <= 0xFF)) {
      out += static_cast<char>(character);
    } else if (other != kWindows1252.end() && character != kReplacement) {
      out += static_cast<char>(kFirstOther + static_cast<char32_t>(other - kWindows1252.begin()));
    } else {
      return std::nullopt;
    }
  }
  return out;
}

char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept {
  const DecodedCharacter character = DecodeAt(text, position);
  position += static_cast<std::size_t>(character.Length);
  return character.CodePoint;
}

void AppendCodePoint(std::string& out, char32_t codePoint) {
  const auto append = [&out](char32_t byte) { out += static_cast<char>(byte); };
  const auto tail = [&](int shift) { append(0x80 | ((codePoint >> shift) & 0x3F)); };
  if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
    codePoint = kReplacement;
  }
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0 | (codePoint >> 6));
    tail(0);
  } else if (codePoint < 0x10000) {
    append(0xE0 | (codePoint >> 12));
    tail(6);
    tail(0);
  } else {
    append(0xF0 | (codePoint >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace brindlemoor
