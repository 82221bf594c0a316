// Cutting lists.
#include "sharing/first_lines.h"

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostTold = 4;

}  // namespace

std::string FirstLines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t index = 0; index < lines.size() && index < kMostTold; ++index) {
    text += Joined(index == 0 ? "" : "\n", lines[index]);
  }
  if (lines.size() > kMostTold) text += Joined("\nand ", lines.size() - kMostTold, " more.");
  return text;
}

}  // namespace brindlemoor
