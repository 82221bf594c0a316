// Records and piles of cards.
#include "core/cards.h"

#include <utility>

#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"

namespace brindlemoor {

int FindById(const Pile& pile, double globalId) {
  SpendWorkOnSearch(static_cast<std::size_t>(pile.UpperBound()));
  for (int index = 1; index <= pile.UpperBound(); ++index) {
    if (pile[index].GlobalID == globalId && !IsFree(pile[index])) return index;
  }
  return 0;
}

int FindSlot(std::string_view globalId) { return FindSlot(NumericPrefix(globalId)); }

int FindSlot(double globalId) { return FindById(State().CardTable, globalId); }

int FindInCollection(double globalId) { return FindById(State().Collection, globalId); }

Card FindInStartDeck(const PlayerState& player, std::string_view name) {
  for (int index = 1; index <= player.Deck.UpperBound(); ++index) {
    if (!player.StartDeck.Holds(index)) break;
    if (player.StartDeck[index].Name == name) return player.StartDeck[index];
  }
  return {};
}

void CountActionsAsOld(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].AddedAt != 0) card.Effects.Edit(effect).AddedAt = 0;
  }
}

void QueuePending(const Card& card) {
  Session& state = State();
  if (state.PendingCount >= limits::kTableCards) {
    limits::ReportLimit("Too many cards wait for the table: one was left out.");
    return;
  }
  SpendWork(1);
  ++state.PendingCount;
  if (!state.PendingCards.Holds(state.PendingCount)) state.PendingCards.Resize(state.PendingCount);
  state.PendingCards[state.PendingCount] = card;
}

bool HoldsCards(const Pile& pile) {
  for (const Card& card : pile) {
    if (!IsFree(card)) return true;
  }
  return false;
}

void ShuffleCards(Pile& pile) {
  for (int position = 1; position <= pile.UpperBound(); ++position) {
    const int other = RollDie(pile.UpperBound());
    if (other != position) std::swap(pile[position], pile[other]);
  }
}

void PutFreeElementFirst(Pile& pile) {
  int free = 1;
  while (pile.Holds(free) && !IsFree(pile[free])) ++free;
  if (!pile.Holds(free)) pile.Append(Card());
  if (free != 1) std::swap(pile[1], pile[free]);
}

std::string DefaultDeckName(int deck) { return Joined("Deck #", deck); }

int SellValue(const Card& card) { return card.Rarity / 10 + 1; }

Card* OwnerCard(const Card& card) {
  Session& state = State();
  if (!state.Players.Holds(card.Owner)) return nullptr;
  const int slot = state.Players[card.Owner].PlayerCard;
  if (!state.CardTable.Holds(slot) || IsFree(state.CardTable[slot])) return nullptr;
  return &state.CardTable[slot];
}

}  // namespace brindlemoor
