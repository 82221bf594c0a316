// Escaping in file URLs and picture addresses, and taking it back.
#include "text/addresses.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/fold.h"
#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

std::string Escaped(char character) {
  std::string escaped = "%";
  AppendHex(escaped, static_cast<unsigned char>(character), kLargeHexDigits);
  return escaped;
}

/// The characters that a browser takes as they stand, in quotes and whatever encoding it reads the
/// page in. "&" is one where no letter follows: "&copy" is another character. A value with a "<"
/// would look like one that has lost its closing quote.
constexpr auto kPlainOnPage = [] {
  std::array<bool, 256> plain{};
  for (unsigned byte = ' '; byte < 0x7F; ++byte) {
    plain[byte] =
        std::string_view("%#?\"\\&<").find(static_cast<char>(byte)) == std::string_view::npos;
  }
  return plain;
}();

/// Position of the first character from there on that does not stand as it is; the end if all do.
std::size_t EndOfPlain(std::string_view text, std::size_t from) {
  for (; from < text.size(); ++from) {
    if (kPlainOnPage[static_cast<unsigned char>(text[from])]) continue;
    const char letter = from + 1 < text.size() ? AsciiUpper(text[from + 1]) : ' ';
    if (text[from] != '&' || (letter >= 'A' && letter <= 'Z')) break;
  }
  return from;
}

}  // namespace

std::string FileUrl(std::string_view path, std::string_view anchor) {
  static constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/!$&'()*+,;=:@";
  std::string url(kFileScheme);
  const auto add = [&url](std::string_view text) {
    for (const char character : text) {
      if (kPlain.find(character) != std::string_view::npos) {
        url += character;
      } else {
        url += Escaped(character);
      }
    }
  };
  add(path);
  if (!anchor.empty()) url += '#';
  add(anchor);
  return url;
}

std::string PathOfUrl(std::string_view url) {
  if (!url.starts_with(kFileScheme)) return "";
  std::string path;
  for (url.remove_prefix(kFileScheme.size()); !url.empty();) path += TakeUrlCharacter(url);
  return path;
}

char TakeUrlCharacter(std::string_view& url) {
  unsigned byte = 0;
  const char* const end = url.data() + std::min<std::size_t>(url.size(), 3);
  const bool escaped =
      url.size() >= 3 && url[0] == '%' && std::from_chars(url.data() + 1, end, byte, 16).ptr == end;
  const char character = escaped ? static_cast<char>(byte) : url[0];
  url.remove_prefix(escaped ? 3 : 1);
  return character;
}

std::string PageAddress(std::string path) {
  std::size_t end = EndOfPlain(path, 0);
  if (end == path.size()) return path;
  std::string address;
  std::size_t start = 0;
  for (; end < path.size(); end = EndOfPlain(path, start)) {
    address += path.substr(start, end - start);
    address += Escaped(path[end]);
    start = end + 1;
  }
  return address += path.substr(start);
}

}  // namespace brindlemoor
