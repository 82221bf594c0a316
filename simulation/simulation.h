// A simulation: many matches of a game, added up.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <tuple>

#include "simulation/totals.h"

namespace brindlemoor {

class Stage;
struct PlayedMatch;

/// What a simulation is asked for.
struct SimulationOptions {
  std::string Folder = ".";
  std::string Game;  ///< "" the first of the folder
  Count Matches = 1000;
  std::uint64_t Seed = 1;
  int MaximumTurns = 200;
  int DeckMind = 0;      ///< level of who plays the decks (core/mind_levels.h)
  int OpponentMind = 0;  ///< of who plays the opponents
  int Shard = 1;
  int Shards = 1;
  bool DecksMeet = false;  ///< decks play decks, themselves too, and no opponent takes part
};

/// Opens the game on a stage and says what will be played. "" or why there is nothing to play.
std::string PrepareSimulation(const SimulationOptions& options, Stage& stage,
                              SimulationSetup& setup);

/// The piece that one of several jobs does of a shard.
struct JobPart {
  int Job = 0;  ///< from 0
  int Jobs = 1;
};

/// A match of a simulation.
struct MatchKey {
  int Pairing = 0;  ///< from 0
  bool SeatsChanged = false;
  Count Match = 0;  ///< from 0; the seed is a function of this
  bool operator<(const MatchKey& other) const {
    return std::tie(Pairing, SeatsChanged, Match) <
           std::tie(other.Pairing, other.SeatsChanged, other.Match);
  }
};

/// Is told of each match before it is played and when it has been; the stage has its log.
class MatchObserver {
 public:
  virtual ~MatchObserver() = default;
  virtual void MatchBegins(const MatchKey& key) = 0;
  virtual void MatchEnds(const MatchKey& key, const PlayedMatch& outcome, const Stage& stage) = 0;
};

/// Sits those of a match down on the stage. "" or why they can't play.
std::string SeatMatch(const SimulationSetup& setup, const MatchKey& key, Stage& stage);
/// Plays a match of those who sit.
PlayedMatch PlayMatch(const SimulationSetup& setup, const MatchKey& key, Stage& stage);

/// Plays the part's matches and adds them to the totals; calls back after each. "" or what is
/// wrong.
std::string PlayMatches(const SimulationSetup& setup, JobPart part, Stage& stage, Totals& totals,
                        const std::function<void()>& played, MatchObserver* observer = nullptr);

}  // namespace brindlemoor
