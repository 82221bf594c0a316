// MatchRecord: which match is played, and what the player had when it began.
#pragma once

#include <cstdint>
#include <vector>

#include "text/text.h"

namespace brindlemoor {

/// What the window tells of a match when it ends. Nothing is recorded at the list of games, and a
/// test game of the editor is no match.
struct MatchRecord {
  Text RulesFile;             ///< of its game, "" when no match is recorded
  Text OpponentFile;          ///< as the list of games has it
  Text Opponent;              ///< the name on the portrait
  bool IsVisit = false;       ///< a card store or starter deck: nobody wins
  int Turns = 0;              ///< taken so far
  int Winners = 0;            ///< bit 1 for side 1, bit 2 for side 2
  std::int32_t Tokens = 0;    ///< what the player had
  std::vector<Text> Owned{};  ///< names of the cards that the player had
};

}  // namespace brindlemoor
