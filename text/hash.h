// Hash: tells whether bytes are the same as before.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/hex_digits.h"

namespace brindlemoor {

/// A 64-bit FNV-1a hash of pieces of bytes; where one piece ends counts. It guards against
/// accidents, not against those who want two files to look alike.
class Hash {
 public:
  void Add(std::string_view bytes) {
    for (const char byte : bytes) Mix(static_cast<unsigned char>(byte));
    Mix(kEnd);
  }
  /// 16 hexadecimal digits.
  std::string Text() const {
    std::string text;
    for (int shift = 56; shift >= 0; shift -= 8) {
      AppendHex(text, static_cast<unsigned char>(state_ >> shift));
    }
    return text;
  }

 private:
  static constexpr unsigned kEnd = 256;
  void Mix(unsigned value) { state_ = (state_ ^ value) * 0x100000001B3; }
  std::uint64_t state_ = 0xCBF29CE484222325;
};

inline std::string HashOf(std::string_view bytes) {
  Hash hash;
  hash.Add(bytes);
  return hash.Text();
}

}  // namespace brindlemoor
