// Writing three bytes as four characters.
#include "text/base64.h"

#include <algorithm>

namespace brindlemoor {

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kAlphabet =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  constexpr std::size_t kGroup = 3;
  std::string out;
  out.reserve((bytes.size() + kGroup - 1) / kGroup * 4);
  for (std::size_t at = 0; at < bytes.size(); at += kGroup) {
    const std::size_t count = std::min(kGroup, bytes.size() - at);
    unsigned bits = 0;
    for (std::size_t index = 0; index < kGroup; ++index) {
      bits = bits << 8U | (index < count ? static_cast<unsigned char>(bytes[at + index]) : 0U);
    }
    for (std::size_t digit = 0; digit <= kGroup; ++digit) {
      out += digit <= count ? kAlphabet[bits >> (18U - 6U * digit) & 63U] : '=';
    }
  }
  return out;
}

}  // namespace brindlemoor
