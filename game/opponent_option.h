// OpponentOption: how hard a player wants the opponents to think, in a file beside the player
// files: "Ann_Opponent.settings".
#pragma once

#include <string>

namespace brindlemoor {

/// Lets the opponents think as the current player has chosen (Session::Minds), plainly where
/// nothing is known.
void TakeChosenMind();

/// From now on, and whenever the current player comes back, the opponents think at that level
/// (core/mind_levels.h). "" or why that could not be kept, a sentence; it holds until the end then.
std::string ChooseMind(int level);

}  // namespace brindlemoor
