// What a process holds of the machine, for tests of long lives.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <malloc.h>
#include <unistd.h>

#include "text/sanitizers.h"

namespace brindlemoor {

/// Memory in use by the program, in KiB, and open files.
struct ProcessSize {
  std::int64_t Memory = 0;
  std::int64_t Files = 0;
};

inline ProcessSize SizeOfProcess() {
  ::malloc_trim(0);
  std::int64_t pages = 0;
  std::int64_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  const auto files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                                   std::filesystem::directory_iterator());
  return {resident * ::getpagesize() / 1024, files};
}

/// How often a test of a long life does something: so often, or as BRINDLEMOOR_LONG_LIFE times it.
inline int LongLife(int times) {
  const char* factor = std::getenv("BRINDLEMOOR_LONG_LIFE");
  return times * (factor != nullptr ? std::atoi(factor) : 1);
}

/// Does something so often, and holds that the process grows no more after the first quarter.
template <class Action>
void ExpectFlat(const char* what, int times, Action action) {
  constexpr std::int64_t kMostGrowth = 2048;  // KiB
  ProcessSize early;
  for (int done = 0; done < times && !::testing::Test::HasFatalFailure(); ++done) {
    action();
    if (done == times / 4) early = SizeOfProcess();
  }
  const ProcessSize late = SizeOfProcess();
  std::cout << times << " " << what << ": " << early.Memory << " to " << late.Memory
            << " KiB, open files " << early.Files << " to " << late.Files << std::endl;
  if (!kUnderAddressSanitizer) {
    EXPECT_LE(late.Memory, early.Memory + kMostGrowth) << what;
  }
  EXPECT_LE(late.Files, early.Files) << what;
}

}  // namespace brindlemoor
