// A simulation: many matches of a game, added up.
#include "simulation/simulation.h"

#include "core/text.h"
#include "simulation/stage.h"

namespace brindlemoor {

namespace {

struct Task {
  int Pairing;
  bool SeatsChanged;
};

/// Plays what the part has of the matches of a pairing with the same seats.
std::string PlaySeat(const SimulationSetup& setup, JobPart part, const Task& task, Stage& stage,
                     Totals& totals, const std::function<void()>& played) {
  const Contender& opponent =
      stage.Opponents()[static_cast<std::size_t>(setup.OpponentOf(task.Pairing))];
  const Contender& deck = stage.Decks()[static_cast<std::size_t>(setup.DeckOf(task.Pairing))];
  bool seated = false;
  Count own = 0;  // matches of the shard with these seats so far: the jobs take turns
  for (Count match = task.SeatsChanged ? 1 : 0; match < setup.Matches; match += 2) {
    if (!setup.Includes(task.Pairing, match) || own++ % part.Jobs != part.Job) continue;
    if (!seated) {
      std::string problem =
          task.SeatsChanged ? stage.Seat(opponent, deck) : stage.Seat(deck, opponent);
      if (!problem.empty()) return problem;
      seated = true;
    }
    const MatchOutcome outcome = stage.Play(MatchSeed(setup.Seed, match), setup.MaximumTurns);
    AddMatch(totals, task.Pairing, task.SeatsChanged, outcome, stage.Log());
    played();
  }
  return "";
}

}  // namespace

std::string PrepareSimulation(const SimulationOptions& options, Stage& stage,
                              SimulationSetup& setup) {
  std::string problem = stage.Open(options.Folder, options.Game, options.Seed);
  if (!problem.empty()) return problem;
  if (options.DecksMeet) stage.LetDecksMeet();
  setup = {};
  setup.Program = kProgramVersion;
  setup.Game = stage.Game();
  setup.FilesHash = stage.FilesHash();
  setup.Seed = options.Seed;
  setup.Matches = options.Matches;
  setup.MaximumTurns = options.MaximumTurns;
  for (const Contender& opponent : stage.Opponents()) setup.Opponents.push_back(opponent.Name);
  for (const Contender& deck : stage.Decks()) setup.Decks.push_back(deck.Name);
  if (setup.Opponents.size() * setup.Decks.size() > kMostPairings) {
    return Joined("The game has more than ", kMostPairings, " pairings of opponents and decks.");
  }
  setup.Shard = options.Shard;
  setup.Shards = options.Shards;
  return "";
}

std::string PlayMatches(const SimulationSetup& setup, JobPart part, Stage& stage, Totals& totals,
                        const std::function<void()>& played) {
  totals.Pairings.resize(static_cast<std::size_t>(setup.Pairings()));
  for (int pairing = 0; pairing < setup.Pairings(); ++pairing) {
    for (const bool seatsChanged : {false, true}) {
      std::string problem = PlaySeat(setup, part, {pairing, seatsChanged}, stage, totals, played);
      if (!problem.empty()) return problem;
    }
  }
  return "";
}

}  // namespace brindlemoor
