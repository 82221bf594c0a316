// Playing a card from a hand, the enemy's menu actions and the end of bonuses.
#include "game/card_play.h"

#include "core/cards.h"
#include "core/match_log.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "pages/card_pages.h"
#include "pages/unread_texts.h"
#include "script/action_trace.h"
#include "script/card_entry.h"
#include "script/parsed_script.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "text/joined.h"

namespace brindlemoor {
namespace {

constexpr int kPlaysPerRow = 5;

/// A bonus, or what it gave the card for its base, whose value reads as 0.
bool IsBonusTrait(const TraitItem& item) {
  const bool mayBeBase = !item.IsWholeNumber() && item.Number() == 0;
  return item.IsBonus() || (mayBeBase && item.Value() == "BONUS");
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
  const MenuStates state = ChooseMenuAction(card, effect) ? kArmedMenuAction : kMenuAction;
  if (card.Effects[effect].MenuState != state) card.Effects.Edit(effect).MenuState = state;
}

}  // namespace

std::optional<int> ChooseMenuAction(Card& card, int effect) {
  const TracedAction asking(card, effect);
  if (asking) [[unlikely]]
    asking->AskForChoice();
  const int type = card.Effects[effect].TargetType;
  int quality = kNoTarget;
  const int slot = PickTarget(card, effect, type, Text(), quality);
  const bool chosen = quality == kCleanTarget;
  if (asking) [[unlikely]] {
    asking->Choose(chosen, quality == kPartialTarget
                               ? "none on which all of it works"
                               : Joined("none is looked for with ", TargetTypeName(type)));
  }
  return chosen ? std::optional(slot) : std::nullopt;
}

void PlayCells::AddCard(std::string_view picture) {
  html_ += Joined("<td><center>", picture, "</td>");
  if (++column_ < kPlaysPerRow) return;
  column_ = 0;
  html_ += "</tr><tr>";
}

void PlayCard(int side, Card& card, PlayCells& cells) {
  LogMatchEvent(MatchEvent::kPlayed, side, card);
  if (!LeavesOutPicture(card)) cells.AddCard(CardPictureHtml(card, 1, 0));
  AddToTable(card);
  FreeCard(card);  // only now: its entry scripts still find it in the hand
}

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
