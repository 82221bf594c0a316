// Composing and comparing digests.
#include "scenario/state_digest.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void AddCard(std::string& text, std::string_view place, int index, const Card& card) {
  text += Joined(place, " ", index, ": ", card.Name, ", owner ", int{card.Owner}, ", in play ",
                 int{card.InPlay}, ", traits");
  for (const Text& trait : card.Traits) text += Joined(" [", trait, "]");
  text += ", captions";
  for (const Text& caption : card.TraitCaptions) text += Joined(" (", caption, ")");
  text += Joined(", changed ", card.ChangedTraits, ", bits");
  for (int word = 1; word <= TraitWords::kWords; ++word) text += Joined(" ", card.TraitBits[word]);
  for (const CardEffect& effect : card.Effects) {
    text += Joined(", action ", effect.TargetText, " ", effect.Trigger, " ", effect.Script, " (",
                   effect.TargetType, " ", int{effect.MenuState}, " ", effect.MenuCaption, " ",
                   effect.ChosenTarget, " ", effect.OwnerMask, " ", int{effect.PickedPile}, ")");
  }
  text += Joined(", ", card.Picture, "|", card.Thumb, "|", card.AuxText, "|", card.Description, "|",
                 card.NameColor, "|", card.ActivateOn, "|", card.EntryScripts, "|", card.SourceFile,
                 "|", card.UniqueID, "|", card.TargetSlot, "|", card.StoredTarget, "|",
                 card.GlobalID, "|", int{card.TraitActionsApplied}, "|", card.OwnerBit, "|",
                 card.Slot, "|", int{card.Initialised}, "|", int{card.Rarity}, "\n");
}

void AddPile(std::string& text, std::string_view name, const Pile& pile) {
  text += Joined(name, ": ", pile.UpperBound(), " places\n");
  for (int index = 1; index <= pile.UpperBound(); ++index) AddCard(text, name, index, pile[index]);
}

void AddPlayer(std::string& text, int number, const PlayerState& player) {
  const std::array<std::pair<std::string_view, const Pile*>, 4> piles = {
      {{"pile", &player.Deck},
       {"start deck", &player.StartDeck},
       {"hand", &player.Hand},
       {"spare pile", &player.SparePile}}};
  for (const auto& [name, pile] : piles) AddPile(text, Joined(name, " of ", number), *pile);
  text += Joined("player ", number, ": card ", player.PlayerCard, ", colour ", player.Color,
                 ", tokens ", player.Tokens, "\n");
}

/// The next piece before a divider, which text moves behind.
std::string_view TakePiece(std::string_view& text, std::string_view divider) {
  const std::size_t end = text.find(divider);
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + divider.size());
  return piece;
}

/// Where two lines part, behind the name of what the line describes.
std::string PartDifference(std::string_view before, std::string_view after) {
  const std::string_view name = before.substr(0, before.find(": "));
  if (after.starts_with(name)) {
    before.remove_prefix(std::min(before.size(), name.size() + 2));
    after.remove_prefix(std::min(after.size(), name.size() + 2));
  }
  while (true) {
    const bool ended = before.empty() && after.empty();
    const std::string_view was = TakePiece(before, ", ");
    const std::string_view is = TakePiece(after, ", ");
    if (ended || was != is) return Joined(name, " was \"", was, "\", is \"", is, "\"");
  }
}

}  // namespace

std::string StateDigest() {
  const Session& session = State();
  std::string text;
  AddCard(text, "rules card", 1, session.RulesCard);
  AddCard(text, "cost card", 1, session.CostCard);
  AddPile(text, "table", session.CardTable);
  AddPile(text, "sideboard", session.Sideboard);
  AddPile(text, "trait actions", session.TraitActions);
  AddPile(text, "collection", session.Collection);
  AddPile(text, "waiting", session.PendingCards);
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    AddPile(text, Joined("deck", deck), session.Decks[deck].Cards);
  }
  for (int side = 1; side <= 3; ++side) AddPlayer(text, side, session.Players[side]);
  AddPlayer(text, 4, session.GameDeck);
  for (const auto& hits : session.HitTable) {
    text += "hits";
    for (const Hit& hit : hits) text += Joined(" ", hit.Slot, "-", hit.Effect);
    text += "\n";
  }
  for (const std::int16_t slot : session.WaitingSlots) text += Joined("waits ", slot, "\n");
  for (int entry = 1; entry <= session.PlayQueue.UpperBound(); ++entry) {
    text += Joined("queue ", entry, ": ", int{session.PlayQueue[entry]}, " at ",
                   session.PlayTarget[entry], "\n");
  }
  return text + Joined("waiting cards ", session.PendingCount, "\nwaiting action ",
                       session.PendingEffectText, "\nentered last ", session.LastEntered,
                       "\ngame over ", int{session.GameOver}, "\nruns ", session.RunDepth,
                       "\nchanges served ", int{session.TraitChangeBusy}, "\ntrait actions paused ",
                       int{session.TraitActionsPaused}, "\npage ", session.PageText, "\nbanner ",
                       session.PhaseBanner);
}

std::string FirstDifference(std::string_view before, std::string_view after) {
  if (before == after) return "";
  while (true) {
    const bool ended = before.empty() && after.empty();
    const std::string_view was = TakePiece(before, "\n");
    const std::string_view is = TakePiece(after, "\n");
    if (ended || was != is) return PartDifference(was, is);
  }
}

}  // namespace brindlemoor
