// Writing, changing and removing a card's traits, and what that sets going.
#pragma once

#include <string_view>

#include "core/records.h"
#include "core/trait_item.h"
#include "core/value.h"

namespace brindlemoor {

/// Writes a trait; with keepActions 0 the trait's actions come with it. Writing the value that is
/// there does nothing at all.
void SetTrait(Card& card, const TraitName& name, const Value& value, int keepActions);

/// Changes a trait by amount, after BEFORETRAITCHANGE reactions, which may alter the amount, cancel
/// the change or name another trait for it. other is the card that causes the change. With paying
/// the change is part of a price: reactions run though the card that is paid for is not in play.
void ModTrait(Card& card, const TraitName& name, double& amount, Card& other, int testRun,
              const Text& script, bool paying = false);

/// Removes every item of exactly this name, its captions and the actions that it brought.
void RemoveTrait(Card& card, std::string_view name);

}  // namespace brindlemoor
