// ShownLinks: which commands the pages in the views offer.
#pragma once

#include <cstdint>
#include <set>

namespace brindlemoor {

/// The texts of cards are HTML, so they can hold links that look like commands. A command is only
/// carried out where the program itself has put its link onto the page.
struct ShownLinks {
  bool Games = false;                 ///< the main view lists the games
  std::set<std::int32_t> Cards{};     ///< GlobalIDs that the report in the main view links to
  std::set<std::int32_t> Composed{};  ///< those of what has been composed for the next report
  std::int32_t DescribedCard = 0;     ///< GlobalID of the card whose menu is shown, 0 for none
};

}  // namespace brindlemoor
