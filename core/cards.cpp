// Card and player records and the card table.
#include "core/cards.h"

#include <utility>

#include "core/limits.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"
#include "script/effect_masks.h"
#include "script/run_action.h"
#include "script/triggers.h"

namespace brindlemoor {

namespace {

/// The first free slot, made at the end of the table if there is none; 0 when the table is full.
int TakeFreeSlot(Pile& table) {
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (IsFree(table[slot])) return slot;
  }
  if (table.UpperBound() >= limits::kTableCards) {
    limits::ReportLimit("The table is full: a card was left out.");
    return 0;
  }
  return table.Append(Card());
}

void WaitForTrigger(int slot) {
  Table<std::int16_t>& waiting = State().WaitingSlots;
  int entry = 1;
  while (waiting.Holds(entry) && waiting[entry] != 0) ++entry;
  if (!waiting.Holds(entry)) waiting.Resize(entry);
  waiting[entry] = static_cast<std::int16_t>(slot);
}

/// Puts the cards of a list that begin at a position before those that wait.
void WaitAgain(const Pile& cards, int first) {
  if (!cards.Holds(first)) return;
  const Pile behind = std::exchange(State().PendingCards, Pile(1));
  const int count = std::exchange(State().PendingCount, std::int16_t{0});
  for (int index = first; cards.Holds(index); ++index) QueuePending(cards[index]);
  for (int index = 1; index <= count; ++index) QueuePending(behind[index]);
}

/// Index of the first named card with a GlobalID, 0 if there is none.
int FindById(const Pile& pile, double globalId) {
  for (int index = 1; index <= pile.UpperBound(); ++index) {
    if (pile[index].GlobalID == globalId && !IsFree(pile[index])) return index;
  }
  return 0;
}

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
  player.Hand.Reset(10);
  player.PlayerNo = static_cast<std::uint8_t>(number);
}

int AddToTable(const Card& card) {
  if (IsFree(card)) return 0;
  Pile& table = State().CardTable;
  SpendWorkOnSearch(static_cast<std::size_t>(table.UpperBound()));
  const int slot = TakeFreeSlot(table);
  if (slot == 0) return 0;
  Card& entering = table[slot];
  entering = card;
  State().LastEntered = slot;
  entering.Slot = static_cast<std::int16_t>(slot);
  if (entering.GlobalID == 0) entering.GlobalID = RollDie(kDuplicateId);
  SetOwner(entering, entering.Owner);

  const std::int32_t globalId = entering.GlobalID;
  RunEntryScripts(entering);
  // An entry script may have destroyed the card, and another one may have taken the slot.
  if (IsFree(entering) || entering.GlobalID != globalId) return slot;
  entering.InPlay = 0;
  if (entering.ActivateOn.empty()) {
    EnterPlay(entering);
  } else {
    WaitForTrigger(slot);
  }
  return slot;
}

int FindSlot(std::string_view globalId) { return FindSlot(NumericPrefix(globalId)); }

int FindSlot(double globalId) {
  SpendWorkOnSearch(static_cast<std::size_t>(State().CardTable.UpperBound()));
  return FindById(State().CardTable, globalId);
}

int FindInCollection(double globalId) { return FindById(State().Collection, globalId); }

Card FindInStartDeck(const PlayerState& player, std::string_view name) {
  for (int index = 1; index <= player.Deck.UpperBound(); ++index) {
    if (!player.StartDeck.Holds(index)) break;
    if (player.StartDeck[index].Name == name) return player.StartDeck[index];
  }
  return {};
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
  if (index > limits::kCardItems) {
    limits::ReportLimit("A card has too many actions: one was left out.");
    return;
  }
  if (!card.Effects.Holds(index)) card.Effects.Resize(index);
  effect.AddedAt = ++State().ActionsAdded;
  card.Effects.Edit(index) = std::move(effect);
  BuildEffectMasks(card, index);
}

void CountActionsAsOld(Card& card) {
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (card.Effects[effect].AddedAt != 0) card.Effects.Edit(effect).AddedAt = 0;
  }
}

void QueuePending(const Card& card) {
  Session& state = State();
  if (state.PendingCount >= limits::kTableCards) {
    limits::ReportLimit("Too many cards wait for the table: one was left out.");
    return;
  }
  SpendWork(1);
  ++state.PendingCount;
  if (!state.PendingCards.Holds(state.PendingCount)) state.PendingCards.Resize(state.PendingCount);
  state.PendingCards[state.PendingCount] = card;
}

void FlushPending() {
  Session& state = State();
  // Those that the turn has no steps left for enter in the next one.
  if (state.PendingCount <= 0 || WorkIsSpent()) return;
  // Cards that entry scripts queue meanwhile go into the fresh list and wait for the next flush.
  const Pile entering = std::move(state.PendingCards);
  state.PendingCards.Reset(1);
  state.PendingCount = 0;
  int next = 1;
  while (entering.Holds(next) && !WorkIsSpent()) AddToTable(entering[next++]);
  WaitAgain(entering, next);
}

bool HoldsCards(const Pile& pile) {
  for (const Card& card : pile) {
    if (!IsFree(card)) return true;
  }
  return false;
}

void ShuffleCards(Pile& pile) {
  for (int position = 1; position <= pile.UpperBound(); ++position) {
    const int other = RollDie(pile.UpperBound());
    if (other != position) std::swap(pile[position], pile[other]);
  }
}

void PutFreeElementFirst(Pile& pile) {
  int free = 1;
  while (pile.Holds(free) && !IsFree(pile[free])) ++free;
  if (!pile.Holds(free)) pile.Append(Card());
  if (free != 1) std::swap(pile[1], pile[free]);
}

int SellValue(const Card& card) { return card.Rarity / 10 + 1; }

Card* OwnerCard(const Card& card) {
  Session& state = State();
  if (!state.Players.Holds(card.Owner)) return nullptr;
  const int slot = state.Players[card.Owner].PlayerCard;
  if (!state.CardTable.Holds(slot) || IsFree(state.CardTable[slot])) return nullptr;
  return &state.CardTable[slot];
}

}  // namespace brindlemoor
