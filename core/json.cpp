// Writing JSON.
#include "core/json.h"

namespace brindlemoor {

std::string JsonText(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string json = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      (json += '\\') += character;
    } else if (byte < ' ') {
      json += "\\u00";
      (json += kHex[byte / 16]) += kHex[byte % 16];
    } else {
      json += character;
    }
  }
  return json += '"';
}

}  // namespace brindlemoor
