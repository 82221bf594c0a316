// Trying an opponent of the list of games.
#include "simulation/opponent_trial.h"

#include "core/session_aside.h"
#include "core/state.h"
#include "game/game_list.h"
#include "simulation/stage.h"

namespace brindlemoor {

namespace {

constexpr std::uint64_t kFirstSeed = 1;
constexpr int kMatches = 20;
/// A match that nobody wins in so many turns is not waited for.
constexpr int kMaximumTurns = 100;
/// Steps of all matches together: about a fifth of a second.
constexpr std::int64_t kSteps = 1000000;
constexpr std::int64_t kStepsOfTurn = 100000;
constexpr std::int64_t kStepsOfReading = 50000;  ///< of one file with those that it includes

void PlayTrial(Stage& stage, TrialMatches& result) {
  stage.BoundWork(kSteps, kStepsOfTurn);
  for (int match = 0; match < kMatches; ++match) {
    const PlayedMatch played =
        stage.Play(kFirstSeed + static_cast<std::uint64_t>(match), kMaximumTurns);
    if (!stage.WorkIsLeft()) return;
    ++result.Matches;
    if (played.Winner == 1) ++result.Won;
  }
}

}  // namespace

TrialMatches TryOpponent(int gameIndex, int opponentIndex) {
  const Table<GameRec>& games = State().Games;
  if (!games.Holds(gameIndex) || !games[gameIndex].OpponentFiles.Holds(opponentIndex)) return {};
  const std::string file = games[gameIndex].OpponentFiles[opponentIndex].Str();
  const Contender opponent{games[gameIndex].Opponents[opponentIndex].Name.Str(), file};
  const SessionAside nothingLasts;
  TrialMatches result;
  Stage stage;
  if (IsStarterDeck(file)) return result;
  if (!stage.OpenInSession(gameIndex, opponentIndex, kFirstSeed, kStepsOfReading).empty())
    return result;
  const Contender& deck = stage.Decks().front();
  result.Deck = deck.Name;
  result.IsOwn = stage.HasOwnDeck();
  if (stage.Seat(deck, opponent).empty()) PlayTrial(stage, result);
  return result;
}

}  // namespace brindlemoor
