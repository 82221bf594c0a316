// What rows report beside their time: what they are to reach, and the allocations they make.
#pragma once

#include <benchmark/benchmark.h>
#include <cstdint>
#include <malloc.h>

namespace brindlemoor {

/// Calls of operator new since the program began (measures.cpp counts them).
std::uint64_t AllocationCount() noexcept;
/// Bytes of the heap in use.
inline double BytesInUse() { return static_cast<double>(mallinfo2().uordblks); }

/// What a row is to reach at this size; ./bench/compare prints it beside the row.
inline void Target(benchmark::State& state, std::int64_t size, const char* target) {
  if (state.range(0) == size) state.SetLabel(target);
}

/// The time of one of several pieces of work that an iteration does.
inline void TimeOfEach(benchmark::State& state, std::int64_t pieces) {
  state.counters["each"] = benchmark::Counter(
      static_cast<double>(pieces),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// Counts allocations of the iterations from its making to Report.
class Allocations {
 public:
  Allocations() : before_(AllocationCount()) {}
  void Report(benchmark::State& state) const {
    state.counters["allocations"] =
        static_cast<double>(AllocationCount() - before_) / static_cast<double>(state.iterations());
  }

 private:
  std::uint64_t before_;
};

}  // namespace brindlemoor
