// Aiming: what waits for the player's click on a table card, and which cards would do.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// A play or a menu action that the next click on a table card aims.
struct AwaitedTarget {
  std::string Name;          ///< of the card and its menu action, as plain text
  std::vector<int> Targets;  ///< slots of the cards that it would do something to
};

/// Nothing when a click on a card only shows it, or aims a card that needs no target. Nothing
/// changes, the random source included.
std::optional<AwaitedTarget> TargetAwaited();

/// The hand card whose play in the queue is one that a target belongs to; nullptr for none.
const Card* AimableCard(int queueEntry);

/// What the card does when it is played goes to the card that the player chooses.
bool NeedsTarget(const Card& card);

/// A test run of one of those actions does something to the card in a slot.
bool SuitsTarget(const Card& card, int slot);

/// Gives a player who is looked at so much that any price of its kinds could be paid.
void GiveMeans();

}  // namespace brindlemoor
