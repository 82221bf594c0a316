// Value: what traits and value expressions yield, a number or a text.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace brindlemoor {

/// A number or a text, with one numeric reading and one printing.
class Value {
 public:
  Value() = default;                                          ///< the empty text
  Value(double number) : number_(number), isNumber_(true) {}  // NOLINT: meant to convert
  Value(int number) : Value(static_cast<double>(number)) {}   // NOLINT: meant to convert
  Value(Text text) : text_(std::move(text)) {}                // NOLINT: meant to convert
  Value(std::string_view text) : text_(text) {}               // NOLINT: meant to convert
  Value(const char* text) : text_(text) {}                    // NOLINT: meant to convert

  bool IsNumber() const noexcept { return isNumber_; }
  /// True for the text given, never for a number.
  bool IsText(std::string_view text) const noexcept { return !isNumber_ && text_ == text; }
  /// The number, or the numeric prefix of the text (see NumericPrefix).
  double Number() const noexcept { return isNumber_ ? number_ : TextNumber(); }
  /// The text, or the shortest printing of the number (see NumberText).
  Text Print() const;
  std::string Str() const;

 private:
  double TextNumber() const noexcept;

  Text text_;
  double number_ = 0;
  bool isNumber_ = false;
};

}  // namespace brindlemoor
