// A value for as long as a scope lasts.
#pragma once

namespace brindlemoor {

/// Sets a variable and sets it back.
template <class Value>
class Within {
 public:
  Within(Value& variable, Value value) : variable_(variable), old_(variable) { variable = value; }
  ~Within() { variable_ = old_; }
  Within(const Within&) = delete;
  Within& operator=(const Within&) = delete;

 private:
  Value& variable_;
  const Value old_;
};

}  // namespace brindlemoor
