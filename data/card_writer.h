// The card data writer: cards as text that the reader gives back.
#pragma once

#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// The text of a card with a location word. Actions that traits brought are blanked in the card.
std::string CardToText(Card& card, std::string_view location);

}  // namespace brindlemoor
