// What can stand at a place of a script, for the box in which it is typed.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

/// The names that the cards in the editor have, and those of card files.
struct KnownNames {
  std::span<const std::string> Traits{};
  std::span<const std::string> Cards{};
  std::span<const std::string> Files{};
};

/// The words, out of the engine's tables and those names, with which the part of the script around
/// the caret can go on; those that begin with what stands before the caret, in any case, in the
/// order of the alphabet. A word that takes arguments comes with its ":".
TextSuggestions SuggestForScript(std::string_view script, std::size_t caret,
                                 const KnownNames& names);
/// The same in a text that is one argument by itself, see FieldsOfArgument.
TextSuggestions SuggestForArgument(std::string_view name, std::string_view text, std::size_t caret,
                                   const KnownNames& names);

}  // namespace brindlemoor
