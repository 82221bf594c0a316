// Bringing stored cards up to date with their source files.
#pragma once

#include <string_view>

namespace brindlemoor {

/// Refreshes the draw piles of both sides.
void RefreshPlayers();
/// Refreshes the collection and the decks.
void RefreshCollection();

/// The place of a key in MasterCards: where it is, or the free element where it would go; 0 when
/// the table is full of other keys.
int MasterSlot(std::string_view uniqueId);

}  // namespace brindlemoor
