// Comparing what a player owns after a match with what was there before.
#include "game/match_outcome.h"

#include <algorithm>
#include <map>

#include "core/cards.h"
#include "core/state.h"

namespace brindlemoor {

namespace {

void AddNames(const Pile& pile, std::vector<Text>& names) {
  for (const Card& card : pile) {
    if (!IsFree(card)) names.push_back(card.Name);
  }
}

/// The names of all cards of the player, wherever they lie.
std::vector<Text> OwnedNames(const Session& session = State()) {
  std::vector<Text> names;
  AddNames(session.Collection, names);
  for (const DeckRec& deck : session.Decks) AddNames(deck.Cards, names);
  return names;
}

MatchEnd EndOf(const MatchRecord& match) {
  constexpr int kOwnBit = 1;
  constexpr int kEnemyBit = 2;
  if (match.Winners == kOwnBit) return MatchEnd::kWon;
  return match.Winners == kEnemyBit ? MatchEnd::kLost : MatchEnd::kNobodyWon;
}

}  // namespace

void CountOwnedAsOld() {
  State().Match.Tokens = State().Players[1].Tokens;
  State().Match.Owned = OwnedNames();
}

void CountTokensAsOld(int tokens) { State().Match.Tokens += tokens; }

void CountAsOld(const Session& kept) {
  MatchRecord& match = State().Match;
  CountTokensAsOld(State().Players[1].Tokens - kept.Players[1].Tokens);
  std::map<std::string, int> old;
  for (const Text& name : match.Owned) ++old[name.Str()];
  for (const Text& name : OwnedNames()) ++old[name.Str()];
  for (const Text& name : OwnedNames(kept)) --old[name.Str()];
  match.Owned.clear();
  for (const auto& [name, count] : old) {
    for (int left = count; left > 0; --left) match.Owned.emplace_back(name);
  }
}

void WithholdTokens() {
  std::int32_t& tokens = State().Players[1].Tokens;
  if (State().Match.TookBack) tokens = std::min(tokens, State().Match.Tokens);
}

void BeginMatchRecord(int gameIndex, int opponentIndex) {
  const GameRec& game = State().Games[gameIndex];
  State().Match = {.RulesFile = game.RulesFile,
                   .OpponentFile = game.OpponentFiles[opponentIndex],
                   .Opponent = game.Opponents[opponentIndex].Name,
                   .IsVisit = State().StarterDeckFlag == 1};
  CountOwnedAsOld();
}

bool MatchIsRunning() {
  const Session& session = State();
  return !session.Match.RulesFile.empty() && !session.Match.IsVisit && session.GameOver == 0 &&
         session.TestFromEditor == 0;
}

MatchOutcome OutcomeOfMatch() {
  const MatchRecord& match = State().Match;
  std::map<std::string, int> gained;
  for (const Text& name : OwnedNames()) ++gained[name.Str()];
  for (const Text& name : match.Owned) --gained[name.Str()];
  MatchOutcome outcome{EndOf(match), match.Turns, State().Players[1].Tokens - match.Tokens, {}};
  for (const auto& [name, count] : gained) {
    if (count > 0) outcome.NewCards.emplace_back(name, count);
  }
  return outcome;
}

}  // namespace brindlemoor
