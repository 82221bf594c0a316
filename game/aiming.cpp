// Finding out what waits for a target, and trying it on the cards of the table.
#include "game/aiming.h"

#include <algorithm>

#include "core/cards.h"
#include "core/state.h"
#include "core/value.h"
#include "game/looking.h"
#include "language/target_types.h"
#include "script/run_action.h"
#include "script/triggers.h"
#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

namespace {

bool IsChosenByPlayer(const CardEffect& action) {
  if (action.TargetType != kTargetCard || action.MenuState != kOrdinaryAction) return false;
  const std::string_view trigger = action.Trigger.View();
  return trigger == "ENTERPLAY" || trigger == "ENTERSPLAY" || trigger == "TURNSTART" ||
         trigger == "TURNEND" || trigger.starts_with("PHASE");
}

/// Whether an action does something to a table card, tried on copies.
bool Suits(const Card& source, int effect, int slot) {
  Card actor = source;
  actor.InPlay = 1;
  Card target = State().CardTable[slot];
  const int result = RunAction(actor, target, effect, {.TestRun = 1});
  return result == kRunClean || result == kRunMixed;
}

/// Slots of the cards in play that at least one of the actions suits.
std::vector<int> TargetsOf(const Card& source, const std::vector<int>& effects) {
  const Pile& table = State().CardTable;
  std::vector<int> slots;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (IsFree(table[slot]) || table[slot].InPlay == 0) continue;
    const auto suits = [&](int effect) { return Suits(source, effect, slot); };
    if (std::ranges::any_of(effects, suits)) slots.push_back(slot);
  }
  return slots;
}

std::vector<int> AimedActions(const Card& card) {
  std::vector<int> effects;
  for (int effect = 1; effect <= card.Effects.UpperBound(); ++effect) {
    if (IsChosenByPlayer(card.Effects[effect])) effects.push_back(effect);
  }
  return effects;
}

/// The menu action that waits for a click on its target.
bool IsMenuActionAwaiting() {
  const Session& state = State();
  return state.AwaitingMenuTarget != 0 && state.CardTable.Holds(state.SelectedSlot) &&
         state.CardTable[state.SelectedSlot].Effects.Holds(state.MenuEffect);
}

}  // namespace

bool NeedsTarget(const Card& card) { return !AimedActions(card).empty(); }

bool SuitsTarget(const Card& card, int slot) {
  return std::ranges::any_of(AimedActions(card),
                             [&](int effect) { return Suits(card, effect, slot); });
}

const Card* AimableCard(int queueEntry) {
  const Session& state = State();
  if (!state.PlayQueue.Holds(queueEntry) || state.PlayTarget[queueEntry] < 0) return nullptr;
  const Pile& hand = state.Players[1].Hand;
  const int position = state.PlayQueue[queueEntry];
  if (!hand.Holds(position) || IsFree(hand[position])) return nullptr;
  return NeedsTarget(hand[position]) ? &hand[position] : nullptr;
}

std::optional<AwaitedTarget> TargetAwaited() {
  const Session& state = State();
  const int slot = state.SelectedSlot;
  const int effect = state.MenuEffect;
  const bool isMenu = IsMenuActionAwaiting();
  const int entry = state.AwaitingPlayTarget;
  const Card* play = AimableCard(entry);
  if (!isMenu && (play == nullptr || state.PlayTarget[entry] != 0)) return std::nullopt;
  const Card shown = isMenu ? state.CardTable[slot] : *play;
  AwaitedTarget awaited;
  awaited.Name = OneLine(shown.Name);
  if (isMenu) awaited.Name += Joined(": ", OneLine(shown.Effects[effect].MenuCaption));

  const Looking looking;
  const WorkAccount account;
  State().Random = {};
  GiveMeans();  // what it costs is told elsewhere
  awaited.Targets =
      isMenu ? TargetsOf(State().CardTable[slot], {effect}) : TargetsOf(shown, AimedActions(shown));
  return awaited;
}

void GiveMeans() {
  constexpr double kPlenty = 1000;
  Pile& table = State().CardTable;
  const int slot = PlayerCardOf(1);
  if (!table.Holds(slot)) return;
  Card& card = table[slot];
  for (int index = 1; index <= card.Traits.UpperBound(); ++index) {
    const TraitItem item = card.Traits[index];
    if (item.empty() || item.Value().empty() || item.Name() == "HP") continue;
    const double means = Value(item.Value()).Number() + kPlenty;
    card.Traits.Edit(index) = Text(Joined(item.Name(), ":", means));
  }
}

}  // namespace brindlemoor
