// The page that describes a card in the view beside the report, and the card's picture above it.
#pragma once

#include <string>

#include "core/records.h"

namespace brindlemoor {

/// Shows the card's picture and its description page with menu links.
void ShowCardDescription(Card& card, int withBadges);
/// Paints the card's picture; none where it has none.
void PaintPicture(const Card& card);
/// The description page of this card has links of a menu.
bool HasMenu(const Card& card);
/// The description as a fragment, for previews.
std::string CardSummary(Card& card, int withBadges);

}  // namespace brindlemoor
