// Keeping armed menu actions aimed at the same owned cards.
#include "ui/owned_targets.h"

#include "core/cards.h"
#include "core/state.h"
#include "language/target_types.h"
#include "script/stored_cards.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

bool IsArmedForOwned(const CardEffect& effect) {
  return effect.MenuState == kArmedMenuAction && effect.TargetType == kTargetCollection;
}

/// The owned card that an action aims at, nullptr when there is none.
const Card* TargetOf(const CardEffect& effect) {
  const Session& state = State();
  const bool inDeck = state.Decks.Holds(effect.PickedPile);
  const Pile& pile = inDeck ? state.Decks[effect.PickedPile].Cards : state.Collection;
  return pile.Holds(effect.ChosenTarget) ? &pile[effect.ChosenTarget] : nullptr;
}

}  // namespace

OwnedTargets::OwnedTargets() {
  const Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    const auto& effects = table[slot].Effects;
    for (int index = 1; !IsFree(table[slot]) && index <= effects.UpperBound(); ++index) {
      if (!IsArmedForOwned(effects[index])) continue;
      const Card* target = TargetOf(effects[index]);
      if (target != nullptr) aims_.push_back({slot, index, target->GlobalID});
    }
  }
}

void OwnedTargets::PutBack() const {
  Pile& table = State().CardTable;
  bool lost = false;
  for (const Aim& aim : aims_) {
    if (!table.Holds(aim.Slot) || !table[aim.Slot].Effects.Holds(aim.Effect)) continue;
    CardEffect& effect = table[aim.Slot].Effects.Edit(aim.Effect);
    const OwnedCard found = FindOwnedCard(aim.Target);
    effect.ChosenTarget = found.Index;
    effect.PickedPile = static_cast<std::uint8_t>(found.Pile > 0 ? found.Pile : 0);
    if (found.Record != nullptr) continue;
    effect.MenuState = kMenuAction;
    lost = true;
  }
  if (lost) ShowPlayMenu();
}

}  // namespace brindlemoor
