// The whole state of a match as text, for tests that prove that nothing was changed.
#pragma once

#include <string>

#include "tests/support/action_cards.h"

namespace brindlemoor {

/// Everything that a match consists of: not the random source, not the counters of the debug mode,
/// nor what one script run leaves for the next.
inline std::string StateDigest() {
  const Session& session = State();
  std::string text = Dump(session.RulesCard) + Dump(session.CostCard);
  const auto add = [&text](const Pile& pile) {
    text += Dump(pile);
    for (const Card& card : pile) {
      text += Joined(card.AuxText, "|", int{card.Initialised}, "|", int{card.Rarity}, "|",
                     card.SourceFile, "|", card.UniqueID, "\n");
    }
  };
  for (const Pile* pile : {&session.CardTable, &session.Sideboard, &session.TraitActions,
                           &session.Collection, &session.PendingCards}) {
    add(*pile);
  }
  for (const DeckRec& deck : session.Decks) add(deck.Cards);
  for (int side = 1; side <= 4; ++side) {
    const PlayerState& player = side < 4 ? session.Players[side] : session.GameDeck;
    for (const Pile* pile : {&player.Deck, &player.StartDeck, &player.Hand, &player.SparePile}) {
      add(*pile);
    }
    text += Joined("player ", player.PlayerCard, "|", player.Color, "|", player.Tokens, "\n");
  }
  for (const auto& hits : session.HitTable) {
    for (const Hit& hit : hits) text += Joined(hit.Slot, "-", hit.Effect, " ");
    text += "\n";
  }
  for (const std::int16_t slot : session.WaitingSlots) text += Joined("waits ", slot, "\n");
  for (int entry = 1; entry <= session.PlayQueue.UpperBound(); ++entry) {
    text += Joined("queue ", int{session.PlayQueue[entry]}, " ", session.PlayTarget[entry], "\n");
  }
  return text + Joined(session.PendingCount, "|", session.PendingEffectText, "|",
                       session.LastEntered, "|", int{session.GameOver}, "|", session.RunDepth, "|",
                       int{session.TraitChangeBusy}, "|", int{session.TraitActionsPaused}, "\n",
                       session.PageText, "\n", session.PhaseBanner);
}

}  // namespace brindlemoor
