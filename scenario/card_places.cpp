// The piles of a scenario and its cards in them.
#include "scenario/card_places.h"

#include <algorithm>
#include <array>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "scenario/scene.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

template <Pile PlayerState::*Member>
Pile& OfSide(Scene&, int side) {
  return State().Players[side].*Member;
}
template <Pile Session::*Member>
Pile& OfSession(Scene&, int) {
  return State().*Member;
}
template <int Number>
Pile& OfDeck(Scene&, int) {
  return State().Decks[Number].Cards;
}

// The order in which a card is looked for.
constexpr std::array<PlaceRow, 12> kPlaces = {{
    {"table", false, OfSession<&Session::CardTable>, "in play"},
    {"hand", true, OfSide<&PlayerState::Hand>, "the hand of the card's side, ten places"},
    {"pile", true, OfSide<&PlayerState::Deck>, "the draw pile of the card's side"},
    {"collection", false, OfSession<&Session::Collection>, "the player's collection"},
    {"deck1", false, OfDeck<1>, "the first of the player's decks"},
    {"deck2", false, OfDeck<2>, "the second"},
    {"deck3", false, OfDeck<3>, "the third"},
    {"sideboard", false, OfSession<&Session::Sideboard>, "beside the game"},
    {"waiting", false, OfSession<&Session::PendingCards>, "new cards before they enter play"},
    {"startdeck", true, OfSide<&PlayerState::StartDeck>, "what the draw pile held at the start"},
    {"traitactions", false, OfSession<&Session::TraitActions>, "the actions that traits bring"},
    {"aside", false, [](Scene& scene, int) -> Pile& { return scene.Aside; },
     "nowhere; \"enter\" brings the card into play"},
}};
constexpr int kSides = 3;

/// Where a pile's cards end: what stands behind those that wait is left over.
int LengthOf(const Pile& pile) {
  const bool waits = &pile == &State().PendingCards;
  return waits ? std::min<int>(pile.UpperBound(), State().PendingCount) : pile.UpperBound();
}

template <class Test>
PlacedCard FindIn(Scene& scene, const PlaceRow& place, int side, Test test) {
  Pile& pile = place.Of(scene, side);
  const int length = LengthOf(pile);
  for (int index = 1; index <= length; ++index) {
    if (!IsFree(pile[index]) && test(pile[index])) return {&pile[index], &place, side, index};
  }
  return {};
}

template <class Test>
PlacedCard FindAnywhere(Scene& scene, Test test) {
  for (const PlaceRow& place : kPlaces) {
    for (int side = 1; side <= (place.HasSide ? kSides : 1); ++side) {
      const PlacedCard found = FindIn(scene, place, side, test);
      if (found.Record != nullptr) return found;
    }
  }
  return {};
}

PlacedCard FindHandle(Scene& scene, const CardHandle& handle) {
  const auto test = [&](const Card& card) { return card.GlobalID == handle.GlobalID; };
  if (handle.Place != nullptr) {
    const PlacedCard found = FindIn(scene, *handle.Place, handle.Side, test);
    if (found.Record != nullptr) return found;
  }
  return FindAnywhere(scene, test);
}

PlacedCard Living(Card& card) { return IsFree(card) ? PlacedCard() : PlacedCard{&card}; }

PlacedCard FindCopy(Scene& scene, std::string_view name) {
  if (name == scene.CopiedTargetName) return Living(scene.CopiedTarget);
  return name == scene.CopiedSourceName ? Living(scene.CopiedSource) : PlacedCard();
}

PlacedCard FindInSlot(std::string_view number) {
  Pile& table = State().CardTable;
  const double slot = NumericPrefix(number);
  if (slot < 1 || slot > table.UpperBound()) return {};
  const int index = static_cast<int>(slot);
  if (IsFree(table[index])) return {};
  return {&table[index], &kPlaces[0], 1, index};
}

}  // namespace

std::span<const PlaceRow> PlaceRows() { return kPlaces; }

const PlaceRow* FindPlace(std::string_view word) {
  for (const PlaceRow& row : kPlaces) {
    if (row.Word == word) return &row;
  }
  return nullptr;
}

PlacedCard FindScenarioCard(Scene& scene, std::string_view reference) {
  if (reference.empty()) return {};
  if (const auto handle = scene.Handles.find(reference); handle != scene.Handles.end()) {
    return FindHandle(scene, handle->second);
  }
  if (reference == "rules") return Living(State().RulesCard);
  if (reference == "cost") return Living(State().CostCard);
  const std::string_view kind = FieldAt(reference, 1, ':');
  const std::string_view rest = FieldAt(reference, 2, ':');
  if (!rest.empty()) {
    if (kind == "slot") return FindInSlot(rest);
    if (kind == "copy") return FindCopy(scene, rest);
    if (kind == "gid") {
      const double gid = NumericPrefix(rest);
      return FindAnywhere(scene, [&](const Card& card) { return card.GlobalID == gid; });
    }
  }
  return FindAnywhere(scene, [&](const Card& card) { return card.Name == reference; });
}

Card* PutIntoPlace(Scene& scene, const PlaceRow& place, int side, Card card) {
  Pile& pile = place.Of(scene, side);
  const bool isHand = place.Word == "hand";
  int index = pile.UpperBound() + 1;
  if (place.Word != "pile" && place.Word != "startdeck") {
    index = 1;
    while (pile.Holds(index) && !IsFree(pile[index])) ++index;
  }
  const bool isFull = isHand ? !pile.Holds(index) : index > limits::kTableCards;
  if (isFull) return nullptr;
  if (!pile.Holds(index)) pile.Resize(index);
  if (&pile == &State().CardTable) {
    card.Slot = static_cast<std::int16_t>(index);
    card.InPlay = 1;
  }
  if (&pile == &State().PendingCards) ++State().PendingCount;
  pile[index] = std::move(card);
  return &pile[index];
}

std::string NamesOf(const Pile& pile) {
  std::string names;
  const int length = LengthOf(pile);
  for (int index = 1; index <= length; ++index) {
    if (!IsFree(pile[index])) names += Joined(names.empty() ? "" : " ", pile[index].Name);
  }
  return names;
}

}  // namespace brindlemoor
