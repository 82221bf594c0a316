// The page on which the editor shows a card as its player will see it.
#pragma once

#include <string>

#include "core/records.h"

namespace brindlemoor {

struct BrowserView;

/// Shows a card in a view as the deck manager shows it. Nothing else that is seen changes. A page
/// that the view shows already is not read again, unless afresh is set.
void ShowCardPreview(Card card, BrowserView& view, std::string& shown, bool afresh);

}  // namespace brindlemoor
