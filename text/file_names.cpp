// Encoding names for file names.
#include "text/file_names.h"

#include "text/encoding.h"
#include "text/hash.h"
#include "text/hex_digits.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Begins no encoded byte.
constexpr std::string_view kCutMark = "%~";
constexpr std::size_t kCutBytes = 18;  // the mark and a hash

bool IsPlain(char character, std::string_view alsoEncoded) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= 0x20 && byte != 0x7F && character != '%' &&
         kNotInFileNames.find(character) == std::string_view::npos &&
         alsoEncoded.find(character) == std::string_view::npos;
}

}  // namespace

std::string EncodedForFileName(std::string_view name, std::string_view alsoEncoded) {
  std::string encoded;
  encoded.reserve(name.size());
  for (const char character : name) {
    if (IsPlain(character, alsoEncoded)) {
      encoded += character;
      continue;
    }
    AppendHex(encoded += '%', static_cast<unsigned char>(character), kLargeHexDigits);
  }
  return encoded;
}

std::string BoundedForFileName(std::string_view name, std::size_t bytes,
                               std::string_view alsoEncoded) {
  std::string encoded;
  std::size_t cut = 0;
  for (std::size_t position = 0; position < name.size();) {
    const std::size_t begin = position;
    NextCodePoint(name, position);
    encoded += EncodedForFileName(name.substr(begin, position - begin), alsoEncoded);
    if (encoded.size() > bytes) {
      return Joined(std::string_view(encoded).substr(0, cut), kCutMark, HashOf(name));
    }
    if (encoded.size() + kCutBytes <= bytes) cut = encoded.size();
  }
  return encoded;
}

}  // namespace brindlemoor
