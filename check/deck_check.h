// Checking the decks of a game's opponents against the game's deck rules.
#pragma once

#include <string>
#include <vector>

#include "check/finding.h"

namespace brindlemoor {

/// Reads every game of the program's folder (which findings call shownFolder) and each of its
/// opponents, as a match would, and adds what their decks break. Stores and starter decks have
/// none.
void CheckDecks(const std::string& folder, const std::string& shownFolder,
                std::vector<Finding>& findings);

}  // namespace brindlemoor
