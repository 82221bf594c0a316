// What can be typed at a place of a card file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

class GameTexts;

/// The words, out of the engine's tables and the names of the game, with which the field around a
/// byte of a file's text can go on. Offset and Length are bytes of that text, on one line.
TextSuggestions SuggestionsAt(std::string_view text, std::size_t caret, const GameTexts& game);

}  // namespace brindlemoor
