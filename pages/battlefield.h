// The battlefield table of one side, hit points and trait badges.
#pragma once

#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// The table of one side's visible cards.
std::string PlayerTable(const PlayerState& player);
/// Hit points and their maximum, coloured by their share; with the label "HP:" for withLabel 1.
std::string HPText(const Card& card, int withLabel);
/// All badges of a card; mode 1 for the table, 0 for description pages.
std::string TraitBadges(Card& card, int mode);
/// The badge of one trait, "" when none is to be drawn.
std::string TraitBadge(Card& card, std::string_view traitName, int mode);

}  // namespace brindlemoor
