// Opponents' decks and the rules of their game.
#include "check/deck_check.h"

#include "core/cards.h"
#include "core/state.h"
#include "game/card_refresh.h"
#include "game/deck_rules.h"
#include "game/match_start.h"
#include "game/program_start.h"
#include "script/card_setup.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kCheckedDeck = 1;

/// The first complaint about a deck that grows card by card; "" when there is none.
std::string Complaint(const Pile& deck) {
  const std::string rules = State().DeckRules.Str();
  Pile& built = State().Decks[kCheckedDeck].Cards;
  built.Reset(1);
  std::string message;
  for (const Card& card : deck) {
    if (IsFree(card)) continue;
    if (CheckDeckRules(card, kCheckedDeck, rules, message) == kLimitBroken) return message;
    built.Append(card);
  }
  return CheckDeckRules(Card{}, kCheckedDeck, rules, message) == kNoComplaint ? "" : message;
}

void CheckOpponent(int game, int opponent, const std::string& shown,
                   std::vector<Finding>& findings) {
  Session& session = State();
  InitPlayer(session.Players[2], 2);
  if (!ReadMatchFiles(game, opponent)) return;
  if (session.StarterDeckFlag != 0 || session.DeckRules.empty()) return;
  RefreshPlayers();
  const std::string complaint = Complaint(session.Players[2].Deck);
  if (complaint.empty()) return;
  const std::string sentence =
      Joined("This deck would be refused by ", session.Games[game].Name.View(), ": ", complaint);
  findings.push_back({shown, {}, FindingCode::kDeckRule, sentence, ""});
}

}  // namespace

void CheckDecks(const std::string& folder, const std::string& shownFolder,
                std::vector<Finding>& findings) {
  NewGame();
  const Table<GameRec>& games = State().Games;
  for (int game = 1; game <= games.UpperBound(); ++game) {
    const GameRec record = games[game];
    for (int opponent = 1; opponent <= record.OpponentFiles.UpperBound(); ++opponent) {
      const std::string path = record.OpponentFiles[opponent].Str();
      if (path.empty()) continue;
      CheckOpponent(game, opponent, Joined(shownFolder, path.substr(folder.size())), findings);
    }
  }
}

}  // namespace brindlemoor
