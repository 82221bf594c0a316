// The search for a card to aim an action at.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Tries an action, or the given script, on copies of every card in play and returns the slot of
/// one that it fits, at random; 0 for none. Quality becomes one of TargetQualities then, and stays
/// as it is otherwise.
int SearchTarget(const Card& source, int effectIndex, int targetType, const Text& script,
                 int& quality);

/// True for a card that the target type leaves out because of its owner.
bool IsOnWrongSide(int targetType, const Card& source, const Card& candidate);

}  // namespace brindlemoor
