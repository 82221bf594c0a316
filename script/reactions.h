// Reactions: what cards answer to an action before it happens.
#pragma once

namespace brindlemoor {

struct Run;

/// Offers an action to the MYACTION actions of its card and the TARGETED actions of its target.
/// False when it is not to go on: a reaction has cancelled it, or has turned it to another card, on
/// which it has been run already. Reactions are never answered themselves, nor are tests.
bool OfferAction(Run& run);

}  // namespace brindlemoor
