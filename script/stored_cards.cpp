// The player's own cards and piles: stored twins, drawing, hands, collection and created cards.
#include "script/stored_cards.h"

#include "core/cards.h"
#include "core/limits.h"
#include "core/match_log.h"
#include "core/random.h"
#include "core/state.h"
#include "script/card_setup.h"
#include "script/run_epilogue.h"
#include "script/run_services.h"
#include "script/trait_actions.h"
#include "text/one_line.h"

namespace brindlemoor {
namespace {

int FirstFree(const Pile& pile) {
  SpendWorkOnSearch(static_cast<std::size_t>(pile.UpperBound()));
  for (int index = 1; index <= pile.UpperBound(); ++index) {
    if (IsFree(pile[index])) return index;
  }
  return 0;
}

void AddToPile(Pile& pile, const Card& card) {
  if (const int index = FirstFree(pile); index != 0) {
    pile[index] = card;
  } else if (pile.UpperBound() < limits::kPileCards) {
    pile.Append(card);
  } else {
    limits::ReportLimit("A pile has too many cards: one was left out.");
  }
}

/// The first card of a pile with that UniqueID or name, 0 if there is none.
int FindModel(const Pile& pile, std::string_view name) {
  for (int index = 1; index <= pile.UpperBound(); ++index) {
    const Card& card = pile[index];
    if (!IsFree(card) && (card.UniqueID == name || card.Name == name)) return index;
  }
  return 0;
}

}  // namespace

OwnedCard FindOwnedCard(int globalId) {
  Session& session = State();
  if (const int index = FindById(session.Collection, globalId); index != 0) {
    return {-1, index, &session.Collection[index]};
  }
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    Pile& cards = session.Decks[deck].Cards;
    if (const int index = FindById(cards, globalId); index != 0) {
      return {deck, index, &cards[index]};
    }
  }
  return {};
}

void DrawCards(PlayerState& player, double count) {
  while (count > 0 && player.Deck.UpperBound() >= 2) {
    const int place = FirstFree(player.Hand);
    if (place == 0) return;
    const int top = player.Deck.UpperBound();
    player.Hand[place] = player.Deck[top];
    player.Deck.Resize(top - 1);
    if (IsFree(player.Hand[place])) continue;
    LogMatchEvent(MatchEvent::kDrawn, player.PlayerNo, player.Hand[place]);
    --count;
  }
}

void ReturnToHand(PlayerState& player, Card& card) {
  if (!IsFree(card)) {
    if (const int place = FirstFree(player.Hand); place != 0) player.Hand[place] = card;
  }
  FreeCard(card);
}

void AddToCollection(Card card) {
  card.GlobalID = RollDie(kDuplicateId);  // the store may give another copy of the same card
  AddToPile(State().Collection, card);
}

void AddToDeck(const Card& card, int deckNo) {
  if (State().Decks.Holds(deckNo)) AddToPile(State().Decks[deckNo].Cards, card);
}

void CreateCards(std::string_view name, std::string_view path, int owner, double count) {
  Session& session = State();
  InitPlayer(session.GameDeck, kGameDeckState);
  Services().TakeCardsOut(path, session.GameDeck, "INDECK");
  if (WorkIsSpent()) return;  // the card may lack lines
  const int index = FindModel(session.GameDeck.Deck, name);
  if (index == 0) {
    AddToBanner(
        Joined("<br>Card \"", OneLine(name), "\" not found in \"", OneLine(path), "\".<br>"));
    return;
  }
  Card model = session.GameDeck.Deck[index];
  SetOwner(model, owner);
  model.GlobalID = 0;  // each becomes a card of its own when it enters the table
  ApplyTraitActions(model, "");
  CountActionsAsOld(model);
  for (int made = 0; made + 1 <= count; ++made) {
    if (made == limits::kNewCards) {
      limits::ReportLimit("A command made too many cards: the rest was left out.");
      return;
    }
    QueuePending(model);
  }
}

}  // namespace brindlemoor
