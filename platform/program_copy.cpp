// Taking the lowest free number.
#include "platform/program_copy.h"

#include "platform/passing_names.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kMostCopies = 99;

}  // namespace

ProgramCopy::ProgramCopy(const std::string& folder) {
  for (int number = 1; number <= kMostCopies; ++number) {
    const std::string lock = Joined(folder, "/", kPassingFile, number, ".lock");
    if (held_.Take(lock) != HoldResult::kHeld) continue;
    number_ = number;
    return;
  }
}

}  // namespace brindlemoor
