// What the side view says at the list of games: what comes first, and who is pointed at.
#pragma once

#include <string>

namespace brindlemoor {

/// For a player without cards the way to the first ones, for others what they own.
void ShowFirstSteps();

/// Tells of the opponent of a link in the list; nothing for other links.
void ShowOpponent(const std::string& address);

}  // namespace brindlemoor
