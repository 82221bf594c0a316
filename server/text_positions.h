// TextPositions: places of a text as the Language Server Protocol counts them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// What the characters of a line are counted in.
enum class PositionUnits : std::uint8_t { kUtf8, kUtf16 };

/// Both count from 0.
struct TextPosition {
  std::size_t Line = 0;
  std::size_t Character = 0;
  bool operator==(const TextPosition&) const = default;
};

/// Of a text, UTF-8, that stays where it is. LF, CR LF and CR end lines.
class TextPositions {
 public:
  TextPositions(std::string_view text, PositionUnits units);

  /// The byte of a position: behind the end of a line that of the end, behind the last line that of
  /// the text; in the middle of a character its first.
  std::size_t ByteAt(const TextPosition& position) const;
  /// The position of a byte; behind the end of the text that of the end.
  TextPosition PositionOf(std::size_t byte) const;
  /// The byte at which a line, from 0, begins, and the one of its end. The text's behind the last.
  std::size_t LineBegin(std::size_t line) const;
  std::size_t LineEnd(std::size_t line) const;
  /// The byte of a place that is told by its line and character, both from 1 and counted in code
  /// points.
  std::size_t ByteOfCharacter(int line, int character) const;

 private:
  /// Characters before a byte of the text: code points, and units of UTF-16.
  struct Counts {
    std::size_t CodePoints = 0;
    std::size_t Units = 0;
  };
  using Count = std::size_t Counts::*;
  static void Add(Counts& counts, char firstByte);
  Counts Before(std::size_t byte) const;
  std::size_t ByteBehind(std::size_t begin, std::size_t end, std::size_t characters,
                         Count count) const;

  std::string_view text_;
  PositionUnits units_;
  std::vector<std::size_t> lines_;
  std::vector<Counts> blocks_;  ///< before each block, so that long lines cost no more than short
};

}  // namespace brindlemoor
