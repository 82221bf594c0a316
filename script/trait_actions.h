// Trait actions: the actions that a card gets from having a trait.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Merges the actions of the trait action cards into a card; only those of one trait when only is
/// not empty. A caption "OVERRIDE" keeps a trait's actions away.
void ApplyTraitActions(Card& card, const TraitName& only);
/// Blanks the actions that one trait brought, or any trait.
void RemoveTraitEffects(Card& card, std::string_view name);
void StripTraitEffects(Card& card);
/// ApplyTraitActions over the table and both draw piles, afresh when force is 1, and the HitTable.
void ReapplyTraitActions(int force);

}  // namespace brindlemoor
