// Sorting and compacting piles of cards.
#include "game/card_sorting.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"

namespace brindlemoor {
namespace {

/// A card with this key goes behind all others.
constexpr std::string_view kLast = "LASTSORT";
constexpr std::string_view kByName = "NAME";

/// What one card of the pile is sorted by.
struct SortKey {
  Value Key;
  int Position;
  bool IsLast() const { return Key.IsText(kLast); }
};

Value KeyOf(const Card& card, std::string_view kind, std::string_view trait) {
  if (kind == kByName) return IsFree(card) ? Value(kLast) : Value(card.Name);
  if (kind == "EMPTY") return IsFree(card) ? 0 : 1;
  const bool unchanged = kind == "TRAIT";
  const std::string_view name = unchanged ? trait : kind;
  if (name.empty() || !HasTrait(card, name)) return kLast;
  const Value value = GetTrait(card, name);
  return unchanged ? value : Value(value.Number());
}

/// A text that reads as a positive number compares as that number; one that reads as 0 or a
/// negative number stays a text, except "0" itself.
Value Comparable(const Value& key) {
  const double number = key.Number();
  return number > 0 || key.IsText("0") ? Value(number) : key;
}

/// Numbers stand below all texts.
bool Greater(const Value& a, const Value& b) {
  if (a.IsNumber() != b.IsNumber()) return b.IsNumber();
  return a.IsNumber() ? a.Number() > b.Number() : a.Print().View() > b.Print().View();
}

void Permute(Pile& pile, const std::vector<SortKey>& keys) {
  std::vector<Card> sorted;
  sorted.reserve(keys.size());
  for (const SortKey& key : keys) sorted.push_back(std::move(pile[key.Position]));
  for (std::size_t index = 0; index < sorted.size(); ++index) {
    pile[static_cast<int>(index) + 1] = std::move(sorted[index]);
  }
}

}  // namespace

void SortCards(Pile& pile, std::string_view spec) {
  const std::string_view kind = FieldAt(spec, 1, ':');
  const std::string_view trait = FieldAt(spec, 2, ':');
  std::vector<SortKey> keys;
  keys.reserve(static_cast<std::size_t>(pile.UpperBound()));
  for (int position = 1; position <= pile.UpperBound(); ++position) {
    keys.push_back({Comparable(KeyOf(pile[position], kind, trait)), position});
  }
  const bool upwards = spec == kByName;
  std::stable_sort(keys.begin(), keys.end(), [upwards](const SortKey& a, const SortKey& b) {
    if (a.IsLast() || b.IsLast()) return !a.IsLast();
    return upwards ? Greater(b.Key, a.Key) : Greater(a.Key, b.Key);
  });
  Permute(pile, keys);
}

void CompactCollection() {
  Pile& collection = State().Collection;
  int kept = 0;
  for (int position = 1; position <= collection.UpperBound(); ++position) {
    if (IsFree(collection[position])) continue;
    if (++kept != position) collection[kept] = std::move(collection[position]);
  }
  if (kept > 0) collection.Resize(kept);
}

namespace {

/// One pass that moves each card into a free place before it.
void CloseGaps(Pile& pile) {
  for (int position = 2; position <= pile.UpperBound(); ++position) {
    if (!IsFree(pile[position - 1])) continue;
    pile[position - 1] = std::move(pile[position]);
    pile[position] = Card();
  }
}

}  // namespace

void TidyDecks() {
  for (DeckRec& deck : State().Decks) {
    SortCards(deck.Cards, kByName);
    CloseGaps(deck.Cards);
    int last = 1;
    while (last < deck.Cards.UpperBound() && !IsFree(deck.Cards[last + 1])) ++last;
    if (last < deck.Cards.UpperBound()) deck.Cards.Resize(last);
  }
  CloseGaps(State().Collection);
}

void SortDeck(int deckNumber) {
  if (State().Decks.Holds(deckNumber)) SortCards(State().Decks[deckNumber].Cards, kByName);
}

void SortCollection() {
  SortCards(State().Collection, kByName);
  CompactCollection();
}

void SortCollectionByTrait(std::string_view trait) {
  SortCards(State().Collection, kByName);
  SortCards(State().Collection, Joined("TRAIT:", trait));
}

}  // namespace brindlemoor
