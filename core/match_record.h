// MatchRecord: which match is played, and what the player had when it began.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/text.h"

namespace brindlemoor {

/// A file that the cards of a match come from.
struct MatchFile {
  std::string Name;  ///< as it lies below the program's folder: "goblins/Cards.txt"
  std::string Hash;  ///< of its bytes when it was noted, "" when it was not there
};

/// What the window tells of a match when it ends. Nothing is recorded at the list of games, and a
/// test game of the editor is no match.
struct MatchRecord {
  Text RulesFile;                  ///< of its game, "" when no match is recorded
  Text OpponentFile;               ///< as the list of games has it
  Text Opponent;                   ///< the name on the portrait
  bool IsVisit = false;            ///< a card store or starter deck: nobody wins
  int Turns = 0;                   ///< taken so far
  int Winners = 0;                 ///< bit 1 for side 1, bit 2 for side 2
  bool TookBack = false;           ///< a turn was taken back: it pays no tokens
  std::int32_t Tokens = 0;         ///< what the player had
  std::vector<Text> Owned{};       ///< names of the cards that the player had
  std::vector<MatchFile> Files{};  ///< noted when the match was first saved
  std::uint8_t EasiestMind = 0;    ///< the least that the opponent has thought (core/mind_levels.h)
};

}  // namespace brindlemoor
