// Deck construction rules: what a game lets a deck hold, and what a deck must hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// What CheckDeckRules answers.
enum DeckVerdict : std::uint8_t { kLimitBroken = 0, kMinimumMissed = 1, kNoComplaint = 2 };

/// The sum of a trait's values over the cards of a deck, 1 to 3; "#ANY#" counts the cards. With a
/// uniqueId only the cards of that master definition count. Any other deck number gives 0.
double DeckTraitSum(std::string_view trait, int deckNo, std::string_view uniqueId);

/// Tests a deck, 1 to 3, with one card more, against rules such as
/// "SAMENAMELIMIT:#ANY#:4:TRAITMINIMUM:#ANY#:40". With an empty record as the card only the
/// minimums are tested. The first broken limit ends the test; of several missed minimums the last
/// one speaks. message is written only when a rule speaks. Returns a DeckVerdict.
std::uint8_t CheckDeckRules(const Card& card, int deckNo, std::string_view rules,
                            std::string& message);

/// The keywords of deck rules, each followed by a trait and a number.
std::vector<std::string_view> DeckRuleWords();

/// The minimums that a deck misses, a sentence each, with what it has: "You must have at least 20
/// cards in your play deck.  It has 12."
std::vector<std::string> MissedMinimums(int deckNo, std::string_view rules);

}  // namespace brindlemoor
