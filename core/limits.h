// Bounds of every loop that data can drive, and the one way of saying that a bound was reached.
#pragma once

#include <string_view>

namespace brindlemoor::limits {

inline constexpr int kTableCards = 32767;       ///< slots are 16-bit
inline constexpr int kTraitBitNames = 240;      ///< 8 words of bits
inline constexpr int kNestedRuns = 10;          ///< script runs in progress
inline constexpr int kNestedReads = 50;         ///< files that include one another
inline constexpr int kCustomStringValues = 255; ///< values of one custom string
inline constexpr int kReplacements = 100000;    ///< rescans of one ReplaceAll
inline constexpr int kExpansions = 1000;        ///< "#...#" fields of one message
inline constexpr int kTextBytes = 4 << 20;      ///< one text that replacing or scripts grow
inline constexpr int kPageBytes = 32 << 20;     ///< the page and its banner
inline constexpr int kDice = 1000000;           ///< dice of one roll
inline constexpr int kRepeats = 1000;           ///< repeats of one run
inline constexpr int kNewCards = 1000;          ///< cards that one command makes
inline constexpr int kBoosterCards = 1000;      ///< cards of one booster
inline constexpr int kBoosterAttempts = 1000;   ///< draws for one booster card
inline constexpr int kPileCards = 200000;       ///< cards of one pile that a file fills
inline constexpr int kCardItems = 10000;        ///< traits, or actions, of one card
inline constexpr int kProblems = 1000;          ///< reader problems that are kept
inline constexpr int kGames = 1000;             ///< games of one folder, and opponents of one game

/// Says on the report page, once a turn for each text, that work was stopped at a bound.
void ReportLimit(std::string_view what);

}  // namespace brindlemoor::limits
