// TurnScenario: a turn of a journal as a test of cards.
#pragma once

#include <string>

#include "journal/session_journal.h"

namespace brindlemoor {

struct TurnScenario {
  std::string Problem;  ///< why there is none, a sentence; "" when there is one
  std::string Match;    ///< the file of the match as it stood when the turn was taken
  std::string Text;     ///< the scenario file: what the turn changed on the table
};

/// The turn of a match of the computer, or of the last match of a session that came so far. turn
/// counts from 1. matchName and folder are how the scenario names the match's file and the
/// program's folder. Plays the journal again; leaves a fresh session.
TurnScenario ScenarioOfTurn(const Journal& journal, const ReplayOptions& options, int turn,
                            const std::string& matchName, const std::string& folder);

}  // namespace brindlemoor
