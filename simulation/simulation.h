// A simulation: many matches of a game, added up.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulation/totals.h"

namespace brindlemoor {

class Stage;

inline constexpr std::string_view kProgramVersion = "Beta 1.0";

/// What a simulation is asked for.
struct SimulationOptions {
  std::string Folder = ".";
  std::string Game;  ///< "" the first of the folder
  Count Matches = 1000;
  std::uint64_t Seed = 1;
  int MaximumTurns = 200;
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

/// Plays the part's matches and adds them to the totals; calls back after each. "" or what is
/// wrong.
std::string PlayMatches(const SimulationSetup& setup, JobPart part, Stage& stage, Totals& totals,
                        const std::function<void()>& played);

}  // namespace brindlemoor
