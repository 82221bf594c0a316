// Totals: what matches add up to. All are sums of whole numbers, so that every split and order of
// the matches gives the same.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/match_log.h"

namespace brindlemoor {

using Count = std::int64_t;

/// What was simulated. Totals add up when everything but the shard is the same.
struct SimulationSetup {
  std::string Program;  ///< version
  std::string Game;
  std::string FilesHash;
  std::uint64_t Seed = 1;
  Count Matches = 0;  ///< of each pairing
  int MaximumTurns = 200;
  int DeckMind = 0;      ///< level of who plays the decks (core/mind_levels.h)
  int OpponentMind = 0;  ///< of who plays the opponents
  std::vector<std::string> Opponents;
  std::vector<std::string> Decks;
  int Shard = 1;  ///< which part of the matches, from 1
  int Shards = 1;

  /// A pairing is one opponent and one deck.
  int Pairings() const { return static_cast<int>(Opponents.size() * Decks.size()); }
  int OpponentOf(int pairing) const { return pairing / static_cast<int>(Decks.size()); }
  int DeckOf(int pairing) const { return pairing % static_cast<int>(Decks.size()); }
  /// True for the matches that belong to the shard. Matches are numbered from 0.
  bool Includes(int pairing, Count match) const {
    return (pairing * Matches + match) % Shards == Shard - 1;
  }
  /// True when somebody looks ahead.
  bool HasThinkers() const { return DeckMind != 0 || OpponentMind != 0; }
  /// How many matches the shard has.
  Count OwnMatches() const;
};

inline constexpr int kMostShards = 1'000'000;
inline constexpr std::size_t kMostPairings = 100'000;

/// The seed of a match, a function of the simulation's seed and the number of the match alone.
std::uint64_t MatchSeed(std::uint64_t seed, Count match);
/// Every second match is played with the seats changed: the deck sits on side 2.
inline bool SeatsChanged(Count match) { return match % 2 != 0; }

/// Matches that have been counted, and how they ended for one of the two who played.
struct Score {
  Count Matches = 0;
  Count Wins = 0;
  Count Losses = 0;

  Count Undecided() const { return Matches - Wins - Losses; }
  Score& operator+=(const Score& other);
  bool operator==(const Score&) const = default;
};

/// The matches of a pairing with the same seats, seen from the deck.
struct SeatTotals {
  Score Deck;
  Count Turns = 0;
  Count Tokens = 0;  ///< that side 1 got

  SeatTotals& operator+=(const SeatTotals& other);
  bool operator==(const SeatTotals&) const = default;
};

struct PairingTotals {
  std::array<SeatTotals, 2> Seats;  ///< the deck on side 1, on side 2
  std::map<int, Count> Lengths;     ///< number of matches by their turns

  PairingTotals& operator+=(const PairingTotals& other);
  bool operator==(const PairingTotals&) const = default;
};

/// What became of a card, on whichever side it was.
struct CardTotals {
  std::string Name;
  Count Drawn = 0;         ///< copies
  Count Played = 0;        ///< copies
  Score WhenPlayed;        ///< matches in which a side played it, seen from that side
  Score WhenHeld;          ///< matches in which a side drew it and never played it
  Count TokenMatches = 0;  ///< matches in which side 1 played it
  Count Tokens = 0;        ///< that side 1 got in those
  Count Judged = 0;        ///< how often the computer valued it in a hand
  Count Payable = 0;       ///< how often it could be paid then
  Count Worth = 0;         ///< sum of its worth where it could be paid, each rounded

  CardTotals& operator+=(const CardTotals& other);
  bool operator==(const CardTotals&) const = default;
};

struct Totals {
  std::vector<PairingTotals> Pairings;
  std::map<std::string, CardTotals> Cards;  ///< by unique ID, or by name where there is none

  Count Matches() const;
  Totals& operator+=(const Totals& other);
  bool operator==(const Totals&) const = default;
};

struct PlayedMatch;

/// Adds a match of a pairing.
void AddMatch(Totals& totals, int pairing, bool seatsChanged, const PlayedMatch& outcome,
              const MatchLog& log);

}  // namespace brindlemoor
