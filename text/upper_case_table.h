// The table of simple upper-case mappings that case folding uses.
#pragma once

#include <cstdint>
#include <span>

namespace brindlemoor {

/// Every Step-th character from First to Last has the upper case that lies Delta further on.
struct UpperCaseRange {
  char32_t First;
  char32_t Last;
  std::int32_t Delta;
  std::uint8_t Step;
};

/// The ranges in ascending order, without overlap and without ASCII.
std::span<const UpperCaseRange> UpperCaseRanges() noexcept;

}  // namespace brindlemoor
