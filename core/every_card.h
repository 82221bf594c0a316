// The walk over every card record that a session holds.
#pragma once

#include "core/state.h"

namespace brindlemoor {

/// Calls visit(Card&) for every record of the session, free ones too, but for the master
/// definitions and the cache of referenced files: both are made ready when they are used.
template <class Visit>
void ForEveryCard(Session& session, Visit visit) {
  for (Card* card : {&session.RulesCard, &session.CostCard, &session.EditCard}) visit(*card);
  const auto visitPile = [&visit](Pile& pile) {
    for (Card& card : pile) visit(card);
  };
  for (Pile* pile : {&session.CardTable, &session.Sideboard, &session.TraitActions,
                     &session.PendingCards, &session.Collection}) {
    visitPile(*pile);
  }
  const auto visitPlayer = [&visitPile](PlayerState& player) {
    for (Pile* pile : {&player.Deck, &player.StartDeck, &player.Hand, &player.SparePile}) {
      visitPile(*pile);
    }
  };
  for (PlayerState& player : session.Players) visitPlayer(player);
  visitPlayer(session.GameDeck);
  for (DeckRec& deck : session.Decks) {
    visit(deck.Header);
    visitPile(deck.Cards);
  }
  for (Template& record : session.Templates) visit(record.Card);
}

}  // namespace brindlemoor
