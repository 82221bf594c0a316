// One program for all targets under libFuzzer: fuzz --target=NAME [libFuzzer's options] CORPUS...
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/fuzz_targets.h"

namespace {
const brindlemoor::FuzzTarget* target = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  constexpr std::string_view kOption = "--target=";
  for (int index = 1; index < *count; ++index) {
    const std::string_view argument = (*arguments)[index];
    if (argument.starts_with(kOption)) {
      target = brindlemoor::FindFuzzTarget(argument.substr(kOption.size()));
    }
  }
  if (target != nullptr) return 0;
  std::fputs("--target=NAME is missing. The targets:\n", stderr);
  for (const auto& row : brindlemoor::FuzzTargets()) {
    std::fprintf(stderr, "  %.*s\n", static_cast<int>(row.Name.size()), row.Name.data());
  }
  std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  target->Run({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
