// What matches add up to.
#include "simulation/totals.h"

#include <algorithm>
#include <cmath>

#include "simulation/stage.h"

namespace brindlemoor {

namespace {

/// What one side did with a card in one match.
struct CardUse {
  std::string Name;
  Count Drawn = 0;
  Count Played = 0;
};

std::map<std::string, CardUse> UsesOf(const MatchLog& log, int side) {
  std::map<std::string, CardUse> uses;
  for (const LoggedEvent& event : log.Events) {
    if (event.Side != side || event.Kind == MatchEvent::kWon) continue;
    CardUse& use = uses[(event.UniqueID.empty() ? event.Name : event.UniqueID).Str()];
    if (use.Name.empty()) use.Name = event.Name.Str();
    ++(event.Kind == MatchEvent::kDrawn ? use.Drawn : use.Played);
  }
  return uses;
}

Score ScoreOf(int side, int winner) {
  return {1, winner == side ? 1 : 0, winner != 0 && winner != side ? 1 : 0};
}

/// Of several names that cards with one unique ID have, the same is taken in whichever order.
void TakeName(std::string& name, const std::string& other) {
  if (name.empty() || (!other.empty() && other < name)) name = other;
}

void AddUses(Totals& totals, int side, const PlayedMatch& outcome, const MatchLog& log) {
  for (const auto& [id, use] : UsesOf(log, side)) {
    CardTotals& card = totals.Cards[id];
    TakeName(card.Name, use.Name);
    card.Drawn += use.Drawn;
    card.Played += use.Played;
    (use.Played > 0 ? card.WhenPlayed : card.WhenHeld) += ScoreOf(side, outcome.Winner);
    if (side != 1 || use.Played == 0) continue;
    ++card.TokenMatches;
    card.Tokens += outcome.Tokens;
  }
}

/// A PRIORITY may be any number; beyond this it says no more.
constexpr double kLargestWorth = 1'000'000;

void AddWorths(Totals& totals, const MatchLog& log) {
  for (const LoggedWorth& worth : log.Worths) {
    CardTotals& card = totals.Cards[(worth.UniqueID.empty() ? worth.Name : worth.UniqueID).Str()];
    TakeName(card.Name, worth.Name.Str());
    ++card.Judged;
    if (!worth.Payable) continue;
    ++card.Payable;
    card.Worth += std::llround(std::clamp(worth.Worth, -kLargestWorth, kLargestWorth));
  }
}

}  // namespace

Count SimulationSetup::OwnMatches() const {
  const Count all = Pairings() * Matches;
  return all / Shards + (Shard - 1 < all % Shards ? 1 : 0);
}

std::uint64_t MatchSeed(std::uint64_t seed, Count match) {
  const auto mix = [](std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
    return value ^ (value >> 31);
  };
  return mix(mix(seed + 0x9E3779B97F4A7C15) + static_cast<std::uint64_t>(match));
}

Score& Score::operator+=(const Score& other) {
  Matches += other.Matches;
  Wins += other.Wins;
  Losses += other.Losses;
  return *this;
}

SeatTotals& SeatTotals::operator+=(const SeatTotals& other) {
  Deck += other.Deck;
  Turns += other.Turns;
  Tokens += other.Tokens;
  return *this;
}

PairingTotals& PairingTotals::operator+=(const PairingTotals& other) {
  for (std::size_t seat = 0; seat < Seats.size(); ++seat) Seats[seat] += other.Seats[seat];
  for (const auto& [turns, count] : other.Lengths) Lengths[turns] += count;
  return *this;
}

CardTotals& CardTotals::operator+=(const CardTotals& other) {
  TakeName(Name, other.Name);
  Drawn += other.Drawn;
  Played += other.Played;
  WhenPlayed += other.WhenPlayed;
  WhenHeld += other.WhenHeld;
  TokenMatches += other.TokenMatches;
  Tokens += other.Tokens;
  Judged += other.Judged;
  Payable += other.Payable;
  Worth += other.Worth;
  return *this;
}

Count Totals::Matches() const {
  Count matches = 0;
  for (const PairingTotals& pairing : Pairings) {
    for (const SeatTotals& seat : pairing.Seats) matches += seat.Deck.Matches;
  }
  return matches;
}

Totals& Totals::operator+=(const Totals& other) {
  Pairings.resize(std::max(Pairings.size(), other.Pairings.size()));
  for (std::size_t pairing = 0; pairing < other.Pairings.size(); ++pairing) {
    Pairings[pairing] += other.Pairings[pairing];
  }
  for (const auto& [id, card] : other.Cards) Cards[id] += card;
  return *this;
}

void AddMatch(Totals& totals, int pairing, bool seatsChanged, const PlayedMatch& outcome,
              const MatchLog& log) {
  const auto index = static_cast<std::size_t>(pairing);
  if (totals.Pairings.size() <= index) totals.Pairings.resize(index + 1);
  const int deckSide = seatsChanged ? 2 : 1;
  totals.Pairings[index].Seats[seatsChanged ? 1 : 0] +=
      {ScoreOf(deckSide, outcome.Winner), outcome.Turns, outcome.Tokens};
  ++totals.Pairings[index].Lengths[outcome.Turns];
  for (int side = 1; side <= 2; ++side) AddUses(totals, side, outcome, log);
  AddWorths(totals, log);
}

}  // namespace brindlemoor
