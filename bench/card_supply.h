// Supply: cards of the match in progress for tables with many of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "script/card_entry.h"
#include "script/parsed_script.h"

namespace brindlemoor {

/// Cards of the side's deck that stay in the table, one after the other and over again.
class Supply {
 public:
  explicit Supply(int side) {
    for (const Card& card : State().Decks[1].Cards) Take(card, side);
    for (const Card& card : State().Players[side].Deck) Take(card, side);
    if (cards_.empty()) throw std::runtime_error("no cards");
  }
  Card Next() {
    Card card = cards_[next_++ % cards_.size()];
    card.GlobalID = 0;
    return card;
  }

 private:
  void Take(Card card, int side) {
    if (IsFree(card) || card.Owner != side) return;
    if (!HasTrait(card, "HP", "") || HasTrait(card, "PLAYER", "")) return;
    card.ActivateOn = Text();  // it is in play at once
    cards_.push_back(std::move(card));
  }
  std::vector<Card> cards_;
  std::size_t next_ = 0;
};

inline int CardsInPlay() {
  int count = 0;
  for (const Card& card : State().CardTable) count += !IsFree(card) && card.InPlay == 1 ? 1 : 0;
  return count;
}

/// Brings cards of both sides in turn into the table until there are so many, and fills the hand of
/// the enemy.
inline void FillUpTable(std::int64_t cards) {
  Supply supplies[] = {Supply(1), Supply(2)};
  for (int side = 1; CardsInPlay() < cards; side = 3 - side) AddToTable(supplies[side - 1].Next());
  for (Card& card : State().Players[2].Hand) card = supplies[1].Next();
}

}  // namespace brindlemoor
