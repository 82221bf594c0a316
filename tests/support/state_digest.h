// The whole state of a match as text, for tests that prove that nothing was changed.
#pragma once

#include <string>

#include "tests/support/action_cards.h"

namespace brindlemoor {

/// Every field of a card.
inline std::string CardDigest(const Card& card) {
  std::string text = Dump(card);
  text += Joined("more ", card.AuxText, "|", int{card.Initialised}, "|", int{card.Rarity}, "|",
                 card.SourceFile, "|", card.UniqueID);
  for (const CardEffect& effect : card.Effects) {
    text += " masks";
    for (const TraitWords* words : {&effect.NeedTargetBits, &effect.NeedMyBits,
                                    &effect.ForbidTargetBits, &effect.ForbidMyBits}) {
      for (int word = 1; word <= TraitWords::kWords; ++word) text += Joined(" ", (*words)[word]);
    }
  }
  return text + "\n";
}

inline std::string PileDigest(std::string_view name, const Pile& pile) {
  std::string text = Joined(name, ": ", pile.UpperBound(), "\n");
  for (const Card& card : pile) text += CardDigest(card);
  return text;
}

inline std::string PlayerDigest(const PlayerState& player) {
  return Joined("player ", int{player.PlayerNo}, "|", player.PlayerCard, "|", player.Color, "|",
                player.Tokens, "\n", PileDigest("deck", player.Deck),
                PileDigest("start deck", player.StartDeck), PileDigest("hand", player.Hand),
                PileDigest("spare", player.SparePile));
}

/// Everything that a match consists of: not the random source, not the counters of the debug mode,
/// nor what one script run leaves for the next.
inline std::string StateDigest() {
  const Session& session = State();
  std::string text = PileDigest("table", session.CardTable);
  for (const PlayerState& player : session.Players) text += PlayerDigest(player);
  text += PlayerDigest(session.GameDeck) + "rules\n" + CardDigest(session.RulesCard) + "cost\n" +
          CardDigest(session.CostCard);
  text += PileDigest("sideboard", session.Sideboard);
  text += PileDigest("trait actions", session.TraitActions);
  text += PileDigest("collection", session.Collection);
  for (const DeckRec& deck : session.Decks) text += PileDigest("deck", deck.Cards);
  text += PileDigest("pending", session.PendingCards);
  text += Joined("pending ", session.PendingCount, "|", session.PendingEffectText, "|",
                 session.LastEntered, "\n");
  for (const auto& hits : session.HitTable) {
    for (const Hit& hit : hits) text += Joined(hit.Slot, "-", hit.Effect, " ");
    text += "\n";
  }
  for (const std::int16_t slot : session.WaitingSlots) text += Joined("waits ", slot, "\n");
  for (int entry = 1; entry <= session.PlayQueue.UpperBound(); ++entry) {
    text += Joined("queue ", int{session.PlayQueue[entry]}, " ", session.PlayTarget[entry], "\n");
  }
  text += Joined("game ", int{session.GameOver}, "|", session.RunDepth, "|",
                 int{session.TraitChangeBusy}, "|", int{session.TraitActionsPaused}, "\npage ",
                 session.PageText, "\nbanner ", session.PhaseBanner);
  return text;
}

/// "" for equal texts, else the first line that differs in both.
inline std::string FirstDifference(std::string_view before, std::string_view after) {
  if (before == after) return "";
  std::size_t start = 0;
  for (std::size_t index = 0; index < std::min(before.size(), after.size()); ++index) {
    if (before[index] != after[index]) break;
    if (before[index] == '\n') start = index + 1;
  }
  const auto line = [start](std::string_view text) {
    return text.substr(start, text.find('\n', start) - start);
  };
  return Joined("before: ", line(before), "\nafter:  ", line(after));
}

}  // namespace brindlemoor
