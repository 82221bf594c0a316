// Bounds of every loop that data can drive, and the one way of saying that a bound was reached.
#pragma once

#include <cstdint>
#include <string_view>

namespace brindlemoor::limits {

inline constexpr int kTableCards = 32767;               ///< slots are 16-bit
inline constexpr int kTraitBitNames = 240;              ///< 8 words of bits
inline constexpr int kNestedRuns = 10;                  ///< script runs in progress
inline constexpr std::int64_t kStepsOfTurn = 4000000;   ///< see core/work_budget.h
inline constexpr int kTwinFolders = 1000;               ///< in which a second file is looked for
inline constexpr int kNestedReads = 50;                 ///< files that include one another
inline constexpr int kCustomStringValues = 255;         ///< values of one custom string
inline constexpr int kCustomStrings = 10000;            ///< custom strings of a game
inline constexpr int kFilesOfRead = 1000;               ///< files that one read takes in
inline constexpr int kReplacements = 100000;            ///< rescans of one ReplaceAll
inline constexpr int kExpansions = 1000;                ///< "#...#" fields of one message
inline constexpr int kTextBytes = 4 << 20;              ///< one text that replacing or scripts grow
inline constexpr int kExpansionBytes = 8 * kTextBytes;  ///< text searched to fill one message
inline constexpr int kNestedTextBytes = 64 << 10;  ///< growth of a message by fields inside fields
inline constexpr int kValueFields = 255;           ///< fields of one value expression
inline constexpr int kPageBytes = 32 << 20;        ///< the page and its banner
inline constexpr int kDice = 1000000;              ///< dice of one roll
inline constexpr int kDiceOfTurn = 20000000;       ///< dice of all such rolls of a turn
inline constexpr int kChangedTraitBytes = 65536;   ///< pending TRAITCHANGE names of a card
inline constexpr int kTraitChanges = 100;          ///< changes that TRAITCHANGE brings
inline constexpr int kRepeats = 1000;              ///< repeats of one run
inline constexpr int kNewCards = 1000;             ///< cards that one command makes
inline constexpr int kBoosterCards = 1000;         ///< cards of one booster
inline constexpr int kBoosterAttempts = 1000;      ///< draws for one booster card
inline constexpr int kBoosterDraws = 100000;       ///< draws for one booster
inline constexpr int kPileCards = 200000;          ///< cards of one pile that a file fills
inline constexpr int kCardItems = 10000;           ///< traits, or actions, of one card
inline constexpr int kTraitNameBytes = 4096;       ///< longer names get no base for their bonus
inline constexpr int kHits = 10000;                ///< actions in play that one trigger has
inline constexpr int kRedirects = 32;         ///< times that one action is turned to another card
inline constexpr int kTraitRedirects = 16;    ///< traits that pass one change on to one another
inline constexpr int kNestedBonuses = 16;     ///< bonus expressions that read one another
inline constexpr int kBonuses = 1000;         ///< bonus expressions behind one reading of a trait
inline constexpr int kInternedTexts = 8192;   ///< scripts that are kept for sharing
inline constexpr int kInternedBytes = 16384;  ///< longer scripts are not shared
inline constexpr int kProblems = 1000;        ///< reader problems that are kept
inline constexpr int kGames = 1000;           ///< games of one folder, and opponents of one game

/// Says on the report page, once a turn for each text, that work was stopped at a bound.
void ReportLimit(std::string_view what);

}  // namespace brindlemoor::limits
