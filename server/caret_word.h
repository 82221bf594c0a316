// CaretWord: the word at a place of a card file, and what kind of word it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "server/caret_field.h"

namespace brindlemoor {

struct Command;

enum class CaretWordKind : std::uint8_t {
  kNone,
  kDirective,
  kLocation,
  kTarget,
  kTrigger,
  kCommand,
  kValue,     ///< keyword, operator or dice of a value expression
  kTrait,     ///< the name of one
  kCard,      ///< name or unique ID of one
  kFile,      ///< card file or help page
  kGame,      ///< the name of one
  kArgument,  ///< of a command, anything else
};

struct CaretWord {
  CaretWordKind Kind = CaretWordKind::kNone;
  std::string Text{};
  std::size_t Offset = 0;        ///< byte of the file's text
  const Command* Row = nullptr;  ///< the command that it is or belongs to
  CaretField Field{};
};

/// The word around a byte of a file's text.
CaretWord WordAtCaret(std::string_view text, std::size_t caret);

}  // namespace brindlemoor
