// Trait actions: merging the actions that a trait brings into a card, and taking them out again.
#include "script/trait_actions.h"

#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "script/parsed_script.h"
#include "script/triggers.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kNone = "NONE";
constexpr std::string_view kEveryCard = "#ALL#";

std::string_view BringerOf(const CardEffect& effect) {
  return ParsedScript::Of(effect.Script).Bringer();
}

bool AlreadyMerged(const Card& card, const Card& giver) {
  for (const CardEffect& effect : card.Effects) {
    if (giver.Name == BringerOf(effect)) return true;
  }
  return false;
}

bool SwitchedOff(const Card& card, const Card& giver) {
  return card.TraitCaptions[TraitSlot(card, giver.Name)] == "OVERRIDE";
}

/// True when the card got actions.
bool Merge(Card& card, const Card& giver) {
  const bool forAll = giver.Name == kEveryCard;
  if (!forAll && !HasTrait(card, giver.Name)) return false;
  SpendWorkOnSearch(static_cast<std::size_t>(card.Effects.UpperBound()));
  if (AlreadyMerged(card, giver)) return false;
  if (!forAll && SwitchedOff(card, giver)) return false;
  for (const CardEffect& effect : giver.Effects) {
    if (effect.Script.empty()) continue;
    const Text script = ParsedScript::Of(effect.Script).BroughtBy(giver.Name);
    AddEffect(card, script, effect.TargetType, effect.Trigger, 0, effect.TargetText);
  }
  return true;
}

/// Whole record but for the trigger: a menu action's caption and state go with its script.
void Blank(Card& card, int effect) {
  card.Effects.Edit(effect) = CardEffect{};
  card.Effects.Edit(effect).Trigger = "0";
}

void ReapplyOverPile(Pile& pile, int force) {
  for (int index = 1; index <= pile.UpperBound() && !WorkIsSpent(); ++index) {
    if (force == 1) pile[index].TraitActionsApplied = 0;
    ApplyTraitActions(pile[index], "");
  }
}

/// The places of what brings actions. In a turn their names change only with a read.
const auto& GiverPlaces(Session& session) {
  auto& places = session.GiverPlaces;
  if (places.empty()) {
    for (const Card& giver : session.TraitActions) {
      places.emplace_back(TraitKey(giver.Name), static_cast<int>(places.size()) + 1);
    }
    std::ranges::sort(places);
  }
  return places;
}

[[maybe_unused]] bool AreRight(const std::vector<std::pair<std::uint32_t, int>>& places,
                               const Pile& givers) {
  return static_cast<int>(places.size()) == givers.UpperBound() &&
         std::ranges::all_of(places, [&givers](const auto& place) {
           return place.first == TraitKey(givers[place.second].Name);
         });
}

/// True when the card got actions that this trait brings.
bool MergeOf(Card& card, const TraitName& trait) {
  Session& session = State();
  const Pile& givers = session.TraitActions;
  bool added = false;
  const auto merge = [&](int place) {
    const Card& giver = givers[place];
    if (!IsFree(giver) && giver.Name == trait.View()) added = Merge(card, giver) || added;
  };
  if (session.TurnRunning == 0 || session.ReadDepth > 0) {
    for (int place = 1; place <= givers.UpperBound(); ++place) merge(place);
    return added;
  }
  const auto& places = GiverPlaces(session);
  assert(AreRight(places, givers));
  auto entry = std::ranges::lower_bound(places, std::pair(trait.Key(), 0));
  for (; entry != places.end() && entry->first == trait.Key(); ++entry) merge(entry->second);
  return added;
}

/// The same for all traits.
bool MergeAll(Card& card) {
  bool added = false;
  for (const Card& giver : State().TraitActions) {
    if (!IsFree(giver)) added = Merge(card, giver) || added;
  }
  return added;
}

}  // namespace

void ApplyTraitActions(Card& card, const TraitName& only) {
  if (IsFree(card) || card.TraitActionsApplied == 1) return;
  SpendWorkOnSearch(static_cast<std::size_t>(State().TraitActions.UpperBound()));
  const bool added = only.View().empty() ? MergeAll(card) : MergeOf(card, only);
  card.TraitActionsApplied = 1;
  // A scratch copy has the slot of its model, whose lists a test must not change. The actions of a
  // card in play are registered already, unless some are new: most changes of a trait bring none.
  if ((added || card.InPlay == 0) && IsTableRecord(card)) RegisterAllHits(card);
}

void RemoveTraitEffects(Card& card, std::string_view name) {
  // "NONE" is the answer for an action that no trait brought.
  if (name.empty() || name == kNone) return;
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (BringerOf(card.Effects[effect]) == name) Blank(card, effect);
  }
}

void StripTraitEffects(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (BringerOf(card.Effects[effect]) != kNone) Blank(card, effect);
  }
}

void ReapplyTraitActions(int force) {
  Session& session = State();
  ReapplyOverPile(session.CardTable, force);
  ReapplyOverPile(session.Players[1].Deck, force);
  ReapplyOverPile(session.Players[2].Deck, force);
  RebuildHitTable();
}

}  // namespace brindlemoor
