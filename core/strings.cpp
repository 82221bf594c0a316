// Delimited strings, replacing, numbers and colours in texts.
#include "core/strings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/limits.h"

namespace brindlemoor {

namespace {

/// A field of a text whose delimiter has several characters. The walk moves one character behind
/// the start of each delimiter, so the rest of the delimiter is taken out of the field afterwards.
std::string LongDelimiterField(std::string_view text, int n, std::string_view delimiter) {
  const std::string closed = std::string(text) + std::string(delimiter);
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    const std::size_t found = closed.find(delimiter, position);
    if (found == std::string::npos) return "";
    position = found + 1;
  }
  const std::size_t end = closed.find(delimiter, position);
  std::string field = closed.substr(position, end == std::string::npos ? end : end - position);
  ReplaceAll(field, delimiter.substr(1), "");
  return field;
}

/// Replaces from left to right; what was written is not searched again.
std::string ReplacedInOnePass(std::string_view text, std::string_view search,
                              std::string_view replacement, std::size_t longest) {
  std::string out;
  out.reserve(text.size() + replacement.size());
  std::size_t position = 0;
  while (true) {
    const std::size_t found = text.find(search, position);
    if (found == std::string_view::npos) break;
    if (out.size() + (found - position) + replacement.size() > longest) {
      limits::ReportLimit("A text grew too long and was not replaced further.");
      break;
    }
    out.append(text.substr(position, found - position)).append(replacement);
    position = found + search.size();
  }
  return out.append(text.substr(position));
}

/// True when no replacement can be part of another place that holds the search text, so that one
/// pass does what starting again does.
bool NeverMeetsAgain(std::string_view search, std::string_view replacement) {
  if (search.size() == 1) return replacement.find(search.front()) == std::string_view::npos;
  return !replacement.empty() && search.find(replacement.front()) == std::string_view::npos &&
         replacement.find(search.front()) == std::string_view::npos;
}

/// Replaces as if the search began anew after each replacement. Characters pass one by one into the
/// result; when its end is the search text, the replacement goes back in front of what is left.
std::string ReplacedWithRescan(std::string_view text, std::string_view search,
                               std::string_view replacement, std::size_t longest) {
  const std::size_t mostReplacements = limits::kReplacements + text.size() / search.size();
  std::size_t replacements = 0;
  std::string out(text.substr(0, text.find(search)));
  std::string_view rest = text.substr(out.size());
  std::string again;  // what stands before rest, last character first
  while (!again.empty() || !rest.empty()) {
    // The search text can only end where its last character stands.
    if (again.empty()) {
      const std::size_t passed = std::min(rest.find(search.back()), rest.size() - 1) + 1;
      out += rest.substr(0, passed);
      rest.remove_prefix(passed);
    } else {
      auto passed = std::find(again.rbegin(), again.rend(), search.back());
      if (passed != again.rend()) ++passed;
      out.append(again.rbegin(), passed);
      again.erase(passed.base(), again.end());
    }
    if (out.back() != search.back() || !out.ends_with(search)) continue;
    out.resize(out.size() - search.size());
    again.append(replacement.rbegin(), replacement.rend());
    if (++replacements < mostReplacements && out.size() + again.size() + rest.size() <= longest) {
      continue;
    }
    limits::ReportLimit("A replacement in a text had no end and was stopped.");
    out.append(again.rbegin(), again.rend());
    return out.append(ReplacedInOnePass(rest, search, replacement, longest));
  }
  return out;
}

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

std::string GetDS(std::string_view text, int n, std::string_view delimiter) {
  if (n < 1) return "";
  if (delimiter.size() == 1) return std::string(FieldAt(text, n, delimiter.front()));
  if (delimiter.empty() || text.find(delimiter) == std::string_view::npos) {
    return n == 1 ? std::string(text) : std::string();
  }
  return LongDelimiterField(text, n, delimiter);
}

std::string RestDS(std::string_view text, int n, std::string_view delimiter) {
  if (n < 1) return "";
  std::size_t position = 0;
  for (int count = 1; count < n; ++count) {
    const std::size_t found =
        delimiter.empty() ? std::string_view::npos : text.find(delimiter, position);
    if (found == std::string_view::npos) return "";
    position = found + 1;
  }
  return std::string(text.substr(position));
}

std::string_view FieldAt(std::string_view text, int n, char delimiter) noexcept {
  if (n < 1) return {};
  for (int count = 1; count < n; ++count) {
    const std::size_t found = text.find(delimiter);
    if (found == std::string_view::npos) return {};
    text.remove_prefix(found + 1);
  }
  return text.substr(0, text.find(delimiter));
}

std::string_view FieldWalker::Next() noexcept {
  if (!more_) return {};
  const std::size_t found = rest_.find(delimiter_);
  const std::string_view field = rest_.substr(0, found);
  if (found == std::string_view::npos) {
    more_ = false;
  } else {
    rest_.remove_prefix(found + 1);
  }
  return field;
}

std::string& ReplaceAll(std::string& text, std::string_view search, std::string_view replacement) {
  if (search.empty() || text.find(search) == std::string::npos) return text;
  const std::size_t longest = std::max<std::size_t>(limits::kTextBytes, text.size() * 4);
  const std::size_t mostReplacements = text.size() / search.size();
  if (mostReplacements < limits::kReplacements && NeverMeetsAgain(search, replacement) &&
      text.size() + mostReplacements * replacement.size() <= longest) {
    return text = ReplacedInOnePass(text, search, replacement, longest);
  }
  text = replacement.find(search) == std::string_view::npos
             ? ReplacedWithRescan(text, search, replacement, longest)
             : ReplacedInOnePass(text, search, replacement, longest);
  return text;
}

std::string ReplacedCopy(std::string_view text, std::string_view search,
                         std::string_view replacement) {
  std::string copy(text);
  return ReplaceAll(copy, search, replacement);
}

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

}  // namespace brindlemoor
