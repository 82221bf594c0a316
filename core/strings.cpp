// Numbers, colours and blanks in texts.
#include "core/strings.h"

#include <charconv>
#include <cmath>

#include "core/replacing.h"

namespace brindlemoor {

namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// Reads the digits that a text begins with. False when there are too many of them, or when a
/// fraction or an exponent follows.
bool ReadWholeNumber(std::string_view text, double& number) {
  constexpr std::size_t kExactDigits = 15;
  std::int64_t whole = 0;
  std::size_t digits = 0;
  for (; digits < text.size() && IsDigit(text[digits]); ++digits) {
    if (digits == kExactDigits) return false;
    whole = whole * 10 + (text[digits] - '0');
  }
  if (digits < text.size()) {
    const char next = text[digits];
    if (next == '.' || next == 'e' || next == 'E') return false;
  }
  number = static_cast<double>(whole);
  return true;
}

}  // namespace

double NumericPrefix(std::string_view text) noexcept {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  if (text.empty()) return 0;
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  // Only a digit or a point may begin the number: "inf" and "nan" are words here.
  if (text.empty() || (text.front() != '.' && !IsDigit(text.front()))) return 0;
  double number = 0;
  if (!ReadWholeNumber(text, number)) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || !std::isfinite(number)) return 0;
  }
  if (number == 0) return 0;
  return negative ? -number : number;
}

Value Larger(const Value& a, const Value& b) { return b.Number() > a.Number() ? b : a; }

Value Smaller(const Value& a, const Value& b) { return b.Number() < a.Number() ? b : a; }

double Distance(double a, double b) { return std::fabs(a - b); }

std::int32_t ColorValue(std::string_view color) {
  constexpr std::int32_t kWhite = 0xFFFFFF;
  const std::string digits = ReplacedCopy(color, "#", "");
  if (digits.empty()) return 0;
  std::uint32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number, 16);
  if (result.ec != std::errc() || result.ptr != end) return kWhite;
  return static_cast<std::int32_t>(number);
}

void SplitColor(std::int32_t value, int& low, int& middle, int& high) {
  low = value & 0xFF;
  middle = (value & 0xFF00) >> 8;
  high = (value & 0xFF0000) >> 16;
}

std::string_view Trimmed(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::string CountText(int count, std::string_view what) {
  return Joined(count, " ", what, count == 1 ? "" : "s");
}

}  // namespace brindlemoor
