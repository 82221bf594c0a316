// Making and knowing random names.
#include "platform/passing_names.h"

#include <random>

namespace brindlemoor {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr unsigned kDigitsOfWord = 8;
constexpr std::size_t kWords = 4;

}  // namespace

std::string PassingName(std::string_view ending) {
  std::random_device random;
  std::string name(kPassingFile);
  for (std::size_t word = 0; word < kWords; ++word) {
    for (unsigned rest = random(), digit = 0; digit < kDigitsOfWord; ++digit, rest >>= 4U) {
      name += kDigits[rest & 0xFU];
    }
  }
  return name += ending;
}

bool IsPassingName(std::string_view name, std::string_view ending) {
  constexpr std::size_t kRandom = kWords * kDigitsOfWord;
  return name.size() == kPassingFile.size() + kRandom + ending.size() &&
         name.starts_with(kPassingFile) && name.ends_with(ending) &&
         name.substr(kPassingFile.size(), kRandom).find_first_not_of(kDigits) == name.npos;
}

}  // namespace brindlemoor
