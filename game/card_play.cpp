// The enemy's menu actions and the end of bonuses.
#include "game/card_play.h"

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "script/parsed_script.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "text/fold.h"

namespace brindlemoor {
namespace {

bool IsBonusTrait(const TraitItem& item) {
  return item.Value() == "BONUS" || FoldStartsWith(item.View(), "BONUS");
}

void ExpireBonusTraits(Card& card) {
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    if (!IsBonusTrait(card.Traits[item])) continue;
    const Text entry = card.Traits[item];  // it goes while its name is still needed
    RemoveTrait(card, FieldAt(entry, 1, ':'));
  }
}

void ExpireBonusActions(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    const ParsedScript& script = ParsedScript::Of(card.Effects[effect].Script);
    if (script.DeclaredTrait("BONUSACTION") == "NONE") continue;
    CardEffect& expired = card.Effects.Edit(effect);
    expired.Script = Text();
    expired.Trigger = Text();
  }
}

void PlanMenuAction(Card& card, int effect) {
  const CardEffect& action = card.Effects[effect];
  if (action.MenuState == kOrdinaryAction) return;
  int quality = kNoTarget;
  PickTarget(card, effect, action.TargetType, Text(), quality);
  const MenuStates state = quality == kCleanTarget ? kArmedMenuAction : kMenuAction;
  if (card.Effects[effect].MenuState != state) card.Effects.Edit(effect).MenuState = state;
}

}  // namespace

void PlanEnemyMenuActions() {
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (IsFree(table[slot]) || table[slot].Owner != 2) continue;
    for (int effect = 1; effect <= table[slot].Effects.UpperBound(); ++effect) {
      PlanMenuAction(table[slot], effect);
    }
  }
}

void ExpireBonuses() {
  for (Card& card : State().CardTable) {
    ExpireBonusTraits(card);
    ExpireBonusActions(card);
  }
}

}  // namespace brindlemoor
