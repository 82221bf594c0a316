// The numeric reading and the printing of values.
#include "core/value.h"

#include "core/strings.h"

namespace brindlemoor {

double Value::TextNumber() const noexcept { return NumericPrefix(text_); }

Text Value::Print() const { return isNumber_ ? Text(NumberText(number_)) : text_; }

std::string Value::Str() const { return isNumber_ ? NumberText(number_) : text_.Str(); }

}  // namespace brindlemoor
