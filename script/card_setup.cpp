// Making card and player records.
#include "script/card_setup.h"

#include <utility>

#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/effect_masks.h"

namespace brindlemoor {

namespace {

std::int32_t OwnerBitFor(int owner, std::int32_t present) {
  switch (owner) {
    case 0:
      return 4;
    case 1:
      return 1;
    case 2:
      return 2;
    default:
      return present;
  }
}

}  // namespace

void SetOwner(Card& card, int owner) {
  card.OwnerBit = OwnerBitFor(owner, card.OwnerBit);
  if (card.Owner == owner) return;
  card.Owner = static_cast<std::uint8_t>(owner);
  BuildEffectMasks(card, 0);
}

void InitCard(Card& card, int owner, int inPlay) {
  card.Slot = 0;
  card.Effects = SharedArray<CardEffect>(1);
  card.Traits.Reset(1);
  card.TraitCaptions = SharedArray<Text>(1);
  card.Initialised = 1;
  SetOwner(card, owner);
  card.GlobalID = RollDie(100000000);
  card.TraitBits = TraitWords();
  card.NameColor = "#FFFFFF";
  card.InPlay = static_cast<std::uint8_t>(inPlay);
}

void InitPlayer(PlayerState& player, int number) {
  player.Deck.Reset(1);
  player.SparePile.Reset(1);
  player.Hand.Reset(kHandPositions);
  player.PlayerNo = static_cast<std::uint8_t>(number);
}

void AddEffect(Card& card, const Text& script, int targetType, const Text& trigger, int keepTrigger,
               const Text& targetText) {
  if (card.Initialised == 0) InitCard(card, 1, 0);
  CardEffect effect;
  effect.Script = InternText(script);
  effect.TargetType = targetType;
  effect.TargetText = targetText;
  effect.Trigger = trigger;
  if (keepTrigger == 0 && FieldAt(trigger, 1, ':') == "MENU") {
    effect.MenuState = kMenuAction;
    effect.Trigger = FieldAt(trigger, 2, ':');
    effect.MenuCaption = FieldAt(trigger, 3, ':');
  }
  int index = 1;
  while (card.Effects.Holds(index) && !card.Effects[index].Script.empty()) ++index;
  SpendWorkOnSearch(static_cast<std::size_t>(index));
  if (index > limits::kCardItems) {
    limits::ReportLimit("A card has too many actions: one was left out.");
    return;
  }
  if (!card.Effects.Holds(index)) card.Effects.Resize(index);
  effect.AddedAt = ++State().ActionsAdded;
  card.Effects.Edit(index) = std::move(effect);
  BuildEffectMasks(card, index);
}

}  // namespace brindlemoor
