// Comparing table, hand and tokens before and after a turn.
#include "game/turn_changes.h"

#include <map>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"

namespace brindlemoor {

namespace {

double HitPointsOf(const Card& card) {
  const double points = TraitNumber(card, "HP");
  return points > 0 ? points : 0;
}

/// The card lies in a hand or a deck of the match.
bool IsInAPile(std::int32_t globalId) {
  for (const PlayerState& player : State().Players) {
    if (FindById(player.Hand, globalId) != 0 || FindById(player.Deck, globalId) != 0) return true;
  }
  return false;
}

}  // namespace

std::vector<TurnChanges::Seen> TurnChanges::TableNow() {
  Session& session = State();
  const WorkAccount account;
  const auto random = session.Random;  // a bonus may be an expression with dice
  const auto dice = session.DiceRolled;
  std::vector<Seen> table;
  for (const Card& card : session.CardTable) {
    if (IsFree(card) || HasTrait(card, "INVISIBLE")) continue;
    table.push_back({card.GlobalID, card.Name, card.Owner, HitPointsOf(card)});
  }
  session.Random = random;
  session.DiceRolled = dice;
  return table;
}

std::set<std::int32_t> TurnChanges::HandNow() {
  std::set<std::int32_t> hand;
  for (const Card& card : State().Players[1].Hand) {
    if (!IsFree(card)) hand.insert(card.GlobalID);
  }
  return hand;
}

TurnChanges::TurnChanges()
    : table_(TableNow()), hand_(HandNow()), tokens_(State().Players[1].Tokens) {}

void TurnChanges::RecordCard(const Seen& before, const Seen* after) {
  std::vector<CardNews>& news = State().LastTurn.News;
  if (after == nullptr) {
    const bool dies = before.HitPoints > 0 && !IsInAPile(before.GlobalID);
    news.push_back({dies ? CardFate::kDied : CardFate::kWent, before.Side, before.Name});
    return;
  }
  if (after->Side != before.Side) {
    news.push_back({CardFate::kChangedSides, after->Side, after->Name});
  }
  if (after->HitPoints != before.HitPoints) {
    news.push_back({CardFate::kHitPoints, after->Side, after->Name,
                    after->HitPoints - before.HitPoints, after->HitPoints});
  }
}

void TurnChanges::Record() const {
  TurnRecord& record = State().LastTurn;
  const std::vector<Seen> table = TableNow();
  std::map<std::int32_t, const Seen*> now;
  for (const Seen& card : table) now.emplace(card.GlobalID, &card);
  std::set<std::int32_t> known;
  for (const Seen& before : table_) {
    known.insert(before.GlobalID);
    const auto found = now.find(before.GlobalID);
    RecordCard(before, found == now.end() ? nullptr : found->second);
  }
  for (const Seen& card : table) {
    if (!known.contains(card.GlobalID)) {
      record.News.push_back({CardFate::kCame, card.Side, card.Name});
    }
  }
  for (const Card& card : State().Players[1].Hand) {
    if (!IsFree(card) && !hand_.contains(card.GlobalID)) {
      record.News.push_back({CardFate::kDrawn, 1, card.Name});
    }
  }
  record.Tokens = State().Players[1].Tokens - tokens_;
}

}  // namespace brindlemoor
