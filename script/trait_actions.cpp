// Trait actions: merging the actions that a trait brings into a card, and taking them out again.
#include "script/trait_actions.h"

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
    const Text script = InternText(Joined("TRAIT:TRAITEFFECT:", giver.Name, ":", effect.Script));
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

}  // namespace

void ApplyTraitActions(Card& card, std::string_view only) {
  if (IsFree(card) || card.TraitActionsApplied == 1) return;
  const Pile& givers = State().TraitActions;
  SpendWorkOnSearch(static_cast<std::size_t>(givers.UpperBound()));
  bool added = false;
  for (int index = 1; index <= givers.UpperBound(); ++index) {
    const Card& giver = givers[index];
    if (IsFree(giver) || (!only.empty() && giver.Name != only)) continue;
    added = Merge(card, giver) || added;
  }
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
