// What the list of games asks of those who can play matches by themselves.
#pragma once

#include <string>

namespace brindlemoor {

/// How matches went that the computer played for the player.
struct TrialMatches {
  std::string Deck;   ///< whose cards were played: a deck of the player, or a starter deck
  bool IsOwn = true;  ///< the player's deck
  int Matches = 0;    ///< 0 when none could be played, or they take too much work
  int Won = 0;
};

}  // namespace brindlemoor
