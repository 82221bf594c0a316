// What a word of a card file means, for an editor that shows it beside the word.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class GameTexts;

/// A paragraph, or lines of a card file.
struct HoverBlock {
  std::string Text;
  bool IsCode = false;
};

struct HoverText {
  std::size_t Offset = 0;  ///< of the word that it speaks of, in bytes of the file's text
  std::size_t Length = 0;
  std::vector<HoverBlock> Blocks{};  ///< none where there is nothing to say
};

/// What the reference says of the word around a byte of a file's text, or what card or trait of the
/// game it names.
HoverText HoverAt(std::string_view text, std::size_t caret, const GameTexts& game);

/// The blocks as Markdown, or as plain text with empty lines between.
std::string MarkdownOf(const std::vector<HoverBlock>& blocks);
std::string PlainTextOf(const std::vector<HoverBlock>& blocks);

}  // namespace brindlemoor
