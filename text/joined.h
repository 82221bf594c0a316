// Joined: builds a std::string from pieces, for everything that composes pages and messages.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

namespace brindlemoor {

/// The shortest plain decimal printing of a number: no trailing zeros, no exponent for the sizes
/// that games use; infinities and NaN print as "0".
std::string NumberText(double number);

namespace detail {
inline void AppendPiece(std::string& out, std::string_view piece) { out += piece; }
template <class Number>
requires(std::is_arithmetic_v<Number>) void AppendPiece(std::string& out, Number piece) {
  if constexpr (std::is_same_v<Number, char>) {
    out += piece;
  } else if constexpr (std::is_integral_v<Number>) {
    out += std::to_string(piece);
  } else {
    out += NumberText(piece);
  }
}

/// About as many characters as a piece will have.
inline std::size_t RoomFor(std::string_view piece) { return piece.size(); }
template <class Number>
requires(std::is_arithmetic_v<Number>) std::size_t RoomFor(Number) {
  constexpr std::size_t kDigits = 4;
  return kDigits;
}
}  // namespace detail

/// The pieces (texts, numbers, characters) one after the other.
template <class... Pieces>
std::string Joined(const Pieces&... pieces) {
  std::string out;
  out.reserve((detail::RoomFor(pieces) + ...));
  (detail::AppendPiece(out, pieces), ...);
  return out;
}

}  // namespace brindlemoor
