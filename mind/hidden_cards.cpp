// Forgetting and dealing hidden cards.
#include "mind/hidden_cards.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/random.h"
#include "core/state.h"
#include "game/plans.h"
#include "language/traits.h"
#include "script/trait_changes.h"
#include "text/joined.h"

namespace brindlemoor {
namespace {

/// What a judgement of the hand has left on a card.
constexpr std::string_view kJudgement = "AILOVE";

/// All that tells a card of another one, without its identity.
std::string Description(const Card& card) {
  std::string text = Joined(card.Name, "\n", card.UniqueID, "\n", card.EntryScripts);
  for (const TraitItem& item : card.Traits) {
    if (!item.empty() && item.Name() != kJudgement) text += Joined("\n", item.View());
  }
  return text;
}

void ForgetJudgement(Card& card) {
  if (HasTrait(card, kJudgement)) {
    const auto applied = card.TraitActionsApplied;
    RemoveTrait(card, kJudgement);
    card.TraitActionsApplied = applied;
    while (card.Traits.UpperBound() > 1 && card.Traits[card.Traits.UpperBound()].empty()) {
      card.Traits.Resize(card.Traits.UpperBound() - 1);
      card.TraitCaptions.Resize(card.Traits.UpperBound());
    }
  }
  card.ChangedTraits = Text();
  card.TargetSlot = card.StoredTarget = 0;
  card.GlobalID = 0;  // each gets one when it is dealt
}

/// Brings the free records of a pile to its bottom, without what cards have left in them.
void GatherCards(Pile& pile) {
  int place = pile.UpperBound();
  for (int index = place; index >= 1; --index) {
    if (IsFree(pile[index])) continue;
    if (index != place) std::swap(pile[index], pile[place]);
    --place;
  }
  for (; place >= 1; --place) pile[place] = Card();
}

/// The records of a pile that hold cards, in order.
void AddCards(Pile& pile, std::vector<Card*>& cards) {
  for (Card& card : pile) {
    if (!IsFree(card)) cards.push_back(&card);
  }
}

/// The places of the cards that a side can't tell from one another.
std::vector<std::vector<Card*>> HiddenPlaces(int side) {
  FixedTable<PlayerState, 3>& players = State().Players;
  std::vector<std::vector<Card*>> places(2);
  AddCards(players[side].Deck, places[0]);
  AddCards(players[3 - side].Hand, places[1]);
  AddCards(players[3 - side].Deck, places[1]);
  return places;
}

void Sort(std::vector<Card*>& places) {
  std::vector<std::pair<std::string, Card>> cards;
  for (Card* card : places) {
    ForgetJudgement(*card);
    cards.emplace_back(Description(*card), std::move(*card));
  }
  std::ranges::stable_sort(cards, {}, &std::pair<std::string, Card>::first);
  for (std::size_t index = 0; index < places.size(); ++index) {
    *places[index] = std::move(cards[index].second);
  }
}

}  // namespace

void ForgetHiddenCards(int side) {
  for (PlayerState& player : State().Players) GatherCards(player.Deck);
  for (std::vector<Card*>& places : HiddenPlaces(side)) Sort(places);
  if (side == 2) ForgetPlans();
}

void DealHiddenCards(int side) {
  for (std::vector<Card*>& places : HiddenPlaces(side)) {
    for (std::size_t count = places.size(); count > 0; --count) {
      const auto drawn = static_cast<std::size_t>(RollDie(static_cast<double>(count))) - 1;
      std::swap(*places[drawn], *places[count - 1]);
      places[count - 1]->GlobalID = RollDie(kDuplicateId);
    }
  }
}

}  // namespace brindlemoor
