// MatchResults: how often a player has won and lost against each opponent, in a file beside the
// player file: "Ann_Goblins.results" beside "Ann_Goblins.plr".
#pragma once

#include <string>

namespace brindlemoor {

/// Finished matches against an opponent.
struct MatchResults {
  int Won = 0;
  int Lost = 0;
  int Undecided = 0;  ///< nobody won, or both did

  int Played() const { return Won + Lost + Undecided; }
};

/// Those of the current player; none where nothing is known.
MatchResults ResultsAgainst(int gameIndex, int opponentIndex);

/// Counts the recorded match, which has ended. One in which a turn was taken back does not count,
/// nor do visits. "" or why nothing was counted, a sentence.
std::string CountEndedMatch();
/// Takes that count back with the last turn of the match.
std::string UncountEndedMatch();

}  // namespace brindlemoor
