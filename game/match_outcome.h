// How a match ended, in what the player sees of it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/state.h"

namespace brindlemoor {

/// Begins to record the match against an opponent of the list, with what the player owns now.
void BeginMatchRecord(int gameIndex, int opponentIndex);

/// What the player owns now counts as owned from the beginning: it came from elsewhere.
void CountOwnedAsOld();

/// Tokens that did not come out of the match (a sale) do not count as earned in it.
void CountTokensAsOld(int tokens);

/// What was bought or sold beside the match, since it was kept, is not of it.
void CountAsOld(const Session& kept);

/// A match in which a turn was taken back pays no tokens: takes away what it has paid.
void WithholdTokens();

/// True from the first report of a match to its end; visits of stores are no matches.
bool MatchIsRunning();

enum class MatchEnd { kWon, kLost, kNobodyWon };

struct MatchOutcome {
  MatchEnd End = MatchEnd::kNobodyWon;
  int Turns = 0;
  int Tokens = 0;                                     ///< earned; negative where they were lost
  std::vector<std::pair<std::string, int>> NewCards;  ///< names and how many, in order of names
};

/// The outcome of the recorded match as things stand.
MatchOutcome OutcomeOfMatch();

}  // namespace brindlemoor
