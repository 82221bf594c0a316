// Printing of numbers.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "text/joined.h"

namespace brindlemoor {

namespace {

constexpr double kExactIntegers = 1e15;
constexpr double kLongestPlain = 1e21;    // from here on numbers print with an exponent
constexpr double kSmallestPlain = 1e-15;  // and below this
constexpr int kSignificantDigits = 15;

/// The number in plain decimal form with so many digits behind the point, trailing zeros cut.
std::string PlainDecimal(double number, int decimals) {
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, decimals).ptr;
  std::string text(buffer, end);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

}  // namespace

std::string NumberText(double number) {
  if (!std::isfinite(number) || number == 0) return "0";
  const double size = std::fabs(number);
  char buffer[64];
  if (size < kExactIntegers && number == std::trunc(number)) {
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(number)).ptr;
    return {buffer, end};
  }
  if (size >= kLongestPlain || size < kSmallestPlain) {
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
  }
  if (number == std::trunc(number)) return PlainDecimal(number, 0);
  // Sums such as 0.1 + 0.2 carry noise behind the 15th digit, which nobody wants to read.
  const int digitsBeforePoint = static_cast<int>(std::floor(std::log10(size))) + 1;
  return PlainDecimal(number, std::max(0, kSignificantDigits - digitsBeforePoint));
}

}  // namespace brindlemoor
