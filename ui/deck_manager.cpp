// Choosing the deck of a match: deck 1, filled from the collection when it is empty.
#include "ui/deck_manager.h"

#include "core/cards.h"
#include "core/state.h"
#include "data/player_files.h"

namespace brindlemoor {

void ShowDeckManager() {
  Session& state = State();
  state.CurrentDeck = 1;
  Pile& deck = state.Decks[1].Cards;
  if (HoldsCards(deck) || !HoldsCards(state.Collection)) return;
  deck.Resize(0);
  for (Card& card : state.Collection) {
    if (IsFree(card)) continue;
    deck.Append(card);
    FreeCard(card);
  }
  WritePlayerFile(PlayerFileName(state.CurrentGame));
}

}  // namespace brindlemoor
