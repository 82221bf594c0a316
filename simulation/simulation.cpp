// A simulation: many matches of a game, added up.
#include "simulation/simulation.h"

#include <utility>

#include "core/program_version.h"
#include "simulation/stage.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// What PlayMatches is asked for.
struct Order {
  const SimulationSetup& Setup;
  JobPart Part;
  Stage& Theatre;
  Totals& Sums;
  const std::function<void()>& Played;
  MatchObserver* Observer;
};

/// Plays what the part has of the matches of a pairing with the same seats.
std::string PlaySeat(const Order& order, MatchKey key) {
  const SimulationSetup& setup = order.Setup;
  bool seated = false;
  Count own = 0;  // matches of the shard with these seats so far: the jobs take turns
  for (key.Match = key.SeatsChanged ? 1 : 0; key.Match < setup.Matches; key.Match += 2) {
    if (!setup.Includes(key.Pairing, key.Match)) continue;
    if (own++ % order.Part.Jobs != order.Part.Job) continue;
    if (order.Observer != nullptr) order.Observer->MatchBegins(key);
    if (!seated) {
      std::string problem = SeatMatch(setup, key, order.Theatre);
      if (!problem.empty()) return problem;
      seated = true;
    }
    const PlayedMatch outcome = PlayMatch(setup, key, order.Theatre);
    AddMatch(order.Sums, key.Pairing, key.SeatsChanged, outcome, order.Theatre.Log());
    if (order.Observer != nullptr) order.Observer->MatchEnds(key, outcome, order.Theatre);
    order.Played();
  }
  return "";
}

}  // namespace

std::string SeatMatch(const SimulationSetup& setup, const MatchKey& key, Stage& stage) {
  const Contender& opponent =
      stage.Opponents()[static_cast<std::size_t>(setup.OpponentOf(key.Pairing))];
  const Contender& deck = stage.Decks()[static_cast<std::size_t>(setup.DeckOf(key.Pairing))];
  const auto [deckMind, opponentMind] = std::pair(setup.DeckMind, setup.OpponentMind);
  if (key.SeatsChanged) {
    stage.GiveMinds(opponentMind, deckMind);
    return stage.Seat(opponent, deck);
  }
  stage.GiveMinds(deckMind, opponentMind);
  return stage.Seat(deck, opponent);
}

PlayedMatch PlayMatch(const SimulationSetup& setup, const MatchKey& key, Stage& stage) {
  return stage.Play(MatchSeed(setup.Seed, key.Match), setup.MaximumTurns);
}

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
  setup.DeckMind = options.DeckMind;
  setup.OpponentMind = options.OpponentMind;
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
                        const std::function<void()>& played, MatchObserver* observer) {
  totals.Pairings.resize(static_cast<std::size_t>(setup.Pairings()));
  const Order order{setup, part, stage, totals, played, observer};
  for (int pairing = 0; pairing < setup.Pairings(); ++pairing) {
    for (const bool seatsChanged : {false, true}) {
      std::string problem = PlaySeat(order, {pairing, seatsChanged});
      if (!problem.empty()) return problem;
    }
  }
  return "";
}

}  // namespace brindlemoor
