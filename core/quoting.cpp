// Writing JSON and HTML.
#include "core/quoting.h"

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

std::string HtmlText(std::string_view text) {
  std::string out;
  for (const char character : text) {
    switch (character) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(character) >= 0x20 || character == '\n') out += character;
    }
  }
  return out;
}

}  // namespace brindlemoor
