// Making and knowing random names.
#include "platform/passing_names.h"

#include <random>

#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kWords = 4;
constexpr std::size_t kBytesOfWord = 4;

}  // namespace

std::string PassingName(std::string_view ending) {
  std::random_device random;
  std::string name(kPassingFile);
  for (std::size_t word = 0; word < kWords; ++word) {
    unsigned rest = random();
    for (std::size_t byte = 0; byte < kBytesOfWord; ++byte, rest >>= 8U) {
      AppendHex(name, static_cast<unsigned char>(rest));
    }
  }
  return name += ending;
}

bool IsPassingName(std::string_view name, std::string_view ending) {
  constexpr std::size_t kRandom = 2 * kWords * kBytesOfWord;
  return name.size() == kPassingFile.size() + kRandom + ending.size() &&
         name.starts_with(kPassingFile) && name.ends_with(ending) &&
         name.substr(kPassingFile.size(), kRandom).find_first_not_of(kHexDigits) == name.npos;
}

}  // namespace brindlemoor
