// MatchResults: how often a player has won and lost against each opponent, in a file beside the
// player file: "Ann_Goblins.results" beside "Ann_Goblins.plr".
#pragma once

#include <string>
#include <vector>

#include "core/mind_levels.h"

namespace brindlemoor {

/// Finished matches against an opponent.
struct MatchResults {
  int Won = 0;
  int Lost = 0;
  int Undecided = 0;  ///< nobody won, or both did

  int Played() const { return Won + Lost + Undecided; }
};

/// Those of the current player, where the opponent thought so hard in all of the match
/// (core/mind_levels.h); none where nothing is known.
MatchResults ResultsAgainst(int gameIndex, int opponentIndex, int mind = kPlainMind);

/// An opponent that the current player has beaten, and how hard that one thought at most.
struct BeatenOpponent {
  int Opponent = 0;
  int Mind = kPlainMind;
};
/// Those of a game, in the order of the list.
std::vector<BeatenOpponent> BeatenOpponents(int gameIndex);

/// Counts the recorded match, which has ended. One in which a turn was taken back does not count,
/// nor do visits. "" or why nothing was counted, a sentence.
std::string CountEndedMatch();
/// Takes that count back with the last turn of the match.
std::string UncountEndedMatch();

}  // namespace brindlemoor
