// Counting lines and the characters of a line.
#include "server/text_positions.h"

#include <algorithm>

namespace brindlemoor {

namespace {

constexpr std::size_t kBlock = 1024;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

/// Counts a character by its first byte: those of four bytes take two units.
void TextPositions::Add(Counts& counts, char firstByte) {
  ++counts.CodePoints;
  counts.Units += static_cast<unsigned char>(firstByte) >= 0xF0 ? 2 : 1;
}

TextPositions::TextPositions(std::string_view text, PositionUnits units)
    : text_(text), units_(units), lines_{0} {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool ends =
        text[at] == '\n' || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'));
    if (ends) lines_.push_back(at + 1);
  }
  blocks_.emplace_back();
  for (std::size_t at = kBlock; at <= text.size(); at += kBlock) blocks_.push_back(Before(at));
}

/// Of a byte of the last block that is counted, or of the end of that block.
TextPositions::Counts TextPositions::Before(std::size_t byte) const {
  const std::size_t block = std::min(byte / kBlock, blocks_.size() - 1);
  Counts counts = blocks_[block];
  for (std::size_t at = block * kBlock; at < byte; ++at) {
    if (!IsContinuation(text_[at])) Add(counts, text_[at]);
  }
  return counts;
}

/// The first byte of the character that stands behind so many others, in a stretch of the text.
std::size_t TextPositions::ByteBehind(std::size_t begin, std::size_t end, std::size_t characters,
                                      Count count) const {
  const std::size_t before = Before(begin).*count;
  if (characters >= Before(end).*count - before) return end;
  const std::size_t wanted = before + characters;
  const auto behind = std::ranges::upper_bound(blocks_, wanted, {}, count);
  const auto block = static_cast<std::size_t>(behind - blocks_.begin()) - 1;
  const std::size_t start = std::max(begin, block * kBlock);
  Counts counts = Before(start);
  std::size_t first = begin;
  for (std::size_t at = start; at < end && counts.*count <= wanted; ++at) {
    if (IsContinuation(text_[at])) continue;
    first = at;
    Add(counts, text_[at]);
  }
  return first;
}

std::size_t TextPositions::LineBegin(std::size_t line) const {
  return line < lines_.size() ? lines_[line] : text_.size();
}

std::size_t TextPositions::LineEnd(std::size_t line) const {
  const std::size_t begin = LineBegin(line);
  std::size_t end = line < lines_.size() ? LineBegin(line + 1) : text_.size();
  while (end > begin && (text_[end - 1] == '\n' || text_[end - 1] == '\r')) --end;
  return end;
}

std::size_t TextPositions::ByteAt(const TextPosition& position) const {
  const std::size_t begin = LineBegin(position.Line);
  const std::size_t end = LineEnd(position.Line);
  if (units_ == PositionUnits::kUtf16) {
    return ByteBehind(begin, end, position.Character, &Counts::Units);
  }
  std::size_t at = begin + std::min(position.Character, end - begin);
  while (at > begin && at < end && IsContinuation(text_[at])) --at;
  return at;
}

TextPosition TextPositions::PositionOf(std::size_t byte) const {
  byte = std::min(byte, text_.size());
  const auto behind = std::ranges::upper_bound(lines_, byte);
  const std::size_t begin = *(behind - 1);
  const std::size_t characters =
      units_ == PositionUnits::kUtf16 ? Before(byte).Units - Before(begin).Units : byte - begin;
  return {static_cast<std::size_t>(behind - lines_.begin()) - 1, characters};
}

std::size_t TextPositions::ByteOfCharacter(int line, int character) const {
  const std::size_t number = static_cast<std::size_t>(std::max(line, 1)) - 1;
  const std::size_t before = static_cast<std::size_t>(std::max(character, 1)) - 1;
  return ByteBehind(LineBegin(number), LineEnd(number), before, &Counts::CodePoints);
}

}  // namespace brindlemoor
