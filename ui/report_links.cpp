// Finding the cards of the table that have no picture to click on.
#include "ui/report_links.h"

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "language/traits.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

std::vector<CellLink> LinksWithoutPicture() {
  std::vector<CellLink> links;
  for (const int side : {1, 2}) {
    for (const Card& card : State().CardTable) {
      if (IsFree(card) || card.Owner != side || HasTrait(card, "INVISIBLE")) continue;
      if (!card.Thumb.empty() && !ResolvePath(card.Thumb.View(), 0).empty()) continue;
      links.push_back({Joined(OneLine(card.Name)), Joined("CARD", card.GlobalID)});
    }
  }
  return links;
}

}  // namespace brindlemoor
