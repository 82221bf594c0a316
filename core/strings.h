// Delimited strings and the small text, number and colour helpers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/value.h"
#include "text/text.h"

namespace brindlemoor {

/// Field number n (1-based) of a delimited text. A text without the delimiter has one field,
/// itself; a missing field is the empty text. With a delimiter of several characters, what follows
/// its first character is taken out of the field wherever it stands ("one$|$two" has the second
/// field "two").
std::string GetDS(std::string_view text, int n, std::string_view delimiter);

/// Field number n and everything behind it, delimiters included; "" when there are fewer fields.
/// The delimiter is a single character.
std::string RestDS(std::string_view text, int n, std::string_view delimiter);

/// Field n of a text split at one character, without a copy; the same answer as GetDS.
std::string_view FieldAt(std::string_view text, int n, char delimiter) noexcept;

/// Walks the fields of a text split at one character, from the first; the same fields as GetDS
/// yields for 1, 2, 3 and so on. A list walk of the system ends at the first empty field.
class FieldWalker {
 public:
  FieldWalker(std::string_view text, char delimiter) noexcept
      : rest_(text), delimiter_(delimiter), more_(true) {}
  /// The next field; "" when there is none (or when it is empty).
  std::string_view Next() noexcept;
  /// True when no further field exists.
  bool AtEnd() const noexcept { return !more_; }
  /// What stands behind the field given last, without the delimiter between.
  std::string_view Rest() const noexcept { return more_ ? rest_ : std::string_view(); }

 private:
  std::string_view rest_;
  char delimiter_;
  bool more_;
};

/// The number that a text begins with, leading blanks skipped: sign, digits, point, exponent.
/// 0 when there is none. Does not depend on the locale; never infinite or NaN.
double NumericPrefix(std::string_view text) noexcept;

/// A text without the blanks, tabs and line ends around it.
std::string_view Trimmed(std::string_view text) noexcept;

/// The two numeric choices; each returns one of its arguments (the first when they are equal).
Value Larger(const Value& a, const Value& b);
Value Smaller(const Value& a, const Value& b);
/// Absolute difference.
double Distance(double a, double b);

/// The number of a colour text "#RRGGBB": red is the high byte. "" and "#" give 0; a text that is
/// no hexadecimal number gives white.
std::int32_t ColorValue(std::string_view color);
/// Takes a colour value apart: for "#RRGGBB", high is RR, middle is GG, low is BB.
void SplitColor(std::int32_t value, int& low, int& middle, int& high);

/// "1 image", "3 images".
std::string CountText(int count, std::string_view what);

}  // namespace brindlemoor
