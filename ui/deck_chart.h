// The small drawing of a deck: how many cards it has of each cost, or of each value of a trait.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "platform/controls.h"

namespace brindlemoor {

/// What a BarChart shows of a deck.
struct DeckChart {
  std::string Caption;
  std::vector<ChartBar> Bars;  ///< eight at most
};

/// Counts the cards of a deck by the numeric value of a trait, or by cost when trait is "". A card
/// costs the sum of its traits that the game's trait actions turn into a price; in a game without
/// such actions, of its MANA, HEARTS and MONSTERS. There is one bar for each value, or for each
/// range of values where they are many, and a last bar "none" for the cards that have no such
/// trait. A deck without any cost has no bars.
DeckChart ChartOfDeck(const Pile& deck, std::string_view trait);

}  // namespace brindlemoor
