// Adding, storing and finding the cards of a file, its templates and trait names, and its text.
#include "editor/edited_lists.h"

#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"

namespace brindlemoor {

namespace {

constexpr double kUniqueNumbers = 10000;

void AddCommonTrait(std::string_view trait) {
  if (trait.empty()) return;
  for (Text& name : State().CommonTraits) {
    if (name == trait) return;
    if (name.empty()) {
      name = trait;
      return;
    }
  }
}

}  // namespace

bool EditedLists::HoldsEdited() const { return State().Collection.Holds(place_); }

int EditedLists::Edit(int place) {
  const Pile& cards = State().Collection;
  if (cards.Holds(place)) storedGlobalId_ = cards[place].GlobalID;
  return std::exchange(place_, place);
}

void EditedLists::Store(Card card) {
  storedGlobalId_ = card.GlobalID;
  State().Collection[place_] = std::move(card);
}

void EditedLists::FindEdited() {
  if (place_ == 0) return;
  const Pile& cards = State().Collection;
  const auto isIt = [&](int place) {
    return cards.Holds(place) && cards[place].GlobalID == storedGlobalId_;
  };
  if (isIt(place_)) return;
  for (place_ = cards.UpperBound(); place_ > 0 && !isIt(place_);) --place_;
}

int EditedLists::AddCard(Card card) {
  Pile& cards = State().Collection;
  if (cards.UpperBound() < limits::kPileCards) return cards.Append(std::move(card));
  Desktop().MessageBox("The list is full: the card is not added.");
  return 0;
}

void EditedLists::KeepTemplate(const Template& kept) {
  for (Template& entry : State().Templates) {
    if (!IsFree(entry.Card) && entry.Card.Name != kept.Card.Name) continue;
    entry = kept;
    return;
  }
  State().Templates.Append(kept);
}

void EditedLists::AddCommonTraits() {
  for (const Card& card : State().Collection) {
    for (const Text& trait : card.Traits) AddCommonTrait(FieldAt(trait, 1, ':'));
  }
}

EditedLists::Names EditedLists::CardNames() {
  Names names;
  for (const Card& card : State().Collection) names.push_back(card.Name.Str());
  return names;
}

EditedLists::Names EditedLists::TemplateNames() {
  Names names = {"Blank Card"};
  for (const Template& entry : State().Templates) names.push_back(entry.Card.Name.Str());
  return names;
}

EditedLists::Names EditedLists::TraitNames() {
  Names names;
  for (const Text& name : State().CommonTraits) {
    if (!name.empty()) names.push_back(name.Str());
  }
  return names;
}

std::string EditedLists::FileText(const std::function<Card()>& makeEdited,
                                  const std::function<std::string()>& write) const {
  Session& state = State();
  const Pile cards = state.Collection;
  const Table<Template> templates = state.Templates;
  const auto traitBits = state.TraitBitNames;
  Card edited = makeEdited();
  if (HoldsEdited()) {
    state.Collection[place_] = std::move(edited);
  } else if (!IsFree(edited) && cards.UpperBound() < limits::kPileCards) {
    state.Collection.Append(std::move(edited));
  }
  std::string text = write();
  state.Collection = cards;
  state.Templates = templates;
  state.TraitBitNames = traitBits;
  return text;
}

Text NewUniqueID(std::string_view name) {
  constexpr int kTries = 50;
  Text id;
  const auto isTaken = [&id] {
    for (const Card& card : State().Collection) {
      if (card.UniqueID == id) return true;
    }
    return false;
  };
  for (int tries = 0; tries < kTries; ++tries) {
    id = Joined(name, RollDie(kUniqueNumbers));
    if (!isTaken()) break;
  }
  return id;
}

}  // namespace brindlemoor
