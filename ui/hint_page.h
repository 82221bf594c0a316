// The hint: which cards of the hand are worth playing now.
#pragma once

#include <string>

namespace brindlemoor {

/// The hand with values and trials, best first, as HTML. Nothing changes.
std::string HintPage();

/// Shows the hint in the view beside the battlefield, in place of a card's description.
void ShowHint();

}  // namespace brindlemoor
