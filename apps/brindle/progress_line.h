// A progress bar with an estimate, on terminals only.
#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

namespace brindlemoor {

/// Drawn on the standard error output while that is a terminal; gone at the end of its scope.
class ProgressLine {
 public:
  ProgressLine(std::int64_t all, std::string_view what);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  void Add(std::int64_t more);

 private:
  using Clock = std::chrono::steady_clock;
  void Draw(double seconds) const;

  const std::int64_t all_;
  const std::string_view what_;
  const bool shows_;
  const Clock::time_point start_ = Clock::now();
  Clock::time_point drawn_{};
  std::int64_t done_ = 0;
};

}  // namespace brindlemoor
