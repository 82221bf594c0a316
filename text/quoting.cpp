// Writing JSON and HTML.
#include "text/quoting.h"

#include "text/hex_digits.h"

namespace brindlemoor {

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      (json += '\\') += character;
    } else if (byte < ' ') {
      AppendHex(json += "\\u00", byte);
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

bool BeginsTag(std::string_view html) {
  if (html.size() < 2 || html[0] != '<') return false;
  const char next = html[1];
  return next == '/' || next == '!' || (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z');
}

std::string WithoutTags(std::string_view html) {
  std::string text;
  const std::size_t lastEnd = html.rfind('>');
  std::size_t position = 0;
  while (true) {
    const std::size_t open = html.find('<', position);
    if (open == std::string_view::npos || lastEnd == std::string_view::npos || open > lastEnd) {
      return text += html.substr(position);
    }
    const bool isTag = BeginsTag(html.substr(open));
    const std::size_t end = isTag ? html.find('>', open) + 1 : open + 1;
    text += html.substr(position, (isTag ? open : end) - position);
    position = end;
  }
}

}  // namespace brindlemoor
