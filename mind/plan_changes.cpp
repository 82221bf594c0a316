// The plans beside a plan.
#include "mind/plan_changes.h"

#include <algorithm>
#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "game/aiming.h"
#include "game/planned_turn.h"

namespace brindlemoor {
namespace {

bool Plays(const TurnPlan& plan, int position) {
  return std::ranges::find(plan.Plays, position, &PlannedPlay::Position) != plan.Plays.end();
}

/// The slots of the cards that a hand card could be aimed at.
std::vector<int> AimsOf(const Card& card) {
  std::vector<int> aims;
  if (!NeedsTarget(card)) return aims;
  const Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    if (!IsFree(table[slot]) && SuitsTarget(card, slot)) aims.push_back(slot);
  }
  return aims;
}

void AddAims(const TurnPlan& plan, const Pile& hand, std::vector<TurnPlan>& plans) {
  for (std::size_t index = 0; index < plan.Plays.size(); ++index) {
    for (const int slot : AimsOf(hand[plan.Plays[index].Position])) {
      if (slot == plan.Plays[index].Target) continue;
      plans.push_back(plan);
      plans.back().Plays[index].Target = slot;
    }
  }
}

void AddOrders(const TurnPlan& plan, std::vector<TurnPlan>& plans) {
  for (std::size_t index = 0; index < plan.Plays.size(); ++index) {
    plans.push_back(plan);
    auto& left = plans.back().Plays;
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(index));
    if (index == 0) continue;
    plans.push_back(plan);
    auto& plays = plans.back().Plays;
    std::rotate(plays.begin(), plays.begin() + static_cast<std::ptrdiff_t>(index),
                plays.begin() + static_cast<std::ptrdiff_t>(index) + 1);
  }
}

void AddCards(const TurnPlan& plan, const Pile& hand, std::vector<TurnPlan>& plans) {
  for (int position = 1; position <= hand.UpperBound(); ++position) {
    if (IsFree(hand[position]) || Plays(plan, position)) continue;
    plans.push_back(plan);
    plans.back().Plays.insert(plans.back().Plays.begin(), {position});
    if (plan.Plays.empty()) continue;
    plans.push_back(plan);
    plans.back().Plays.push_back({position});
  }
}

void AddActions(const TurnPlan& plan, int side, std::vector<TurnPlan>& plans) {
  for (std::size_t index = 0; index < plan.Actions.size(); ++index) {
    plans.push_back(plan);
    auto& left = plans.back().Actions;
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(index));
  }
  for (const PlannedAction& open : OpenActions(side)) {
    const bool isUsed = std::ranges::any_of(plan.Actions, [&](const PlannedAction& action) {
      return action.Slot == open.Slot && action.Effect == open.Effect;
    });
    if (isUsed) continue;
    plans.push_back(plan);
    plans.back().Actions.push_back(open);
  }
}

}  // namespace

std::vector<TurnPlan> ChangedPlans(const TurnPlan& plan, int side) {
  const WorkAccount account;
  const Pile& hand = State().Players[side].Hand;
  std::vector<TurnPlan> plans;
  AddOrders(plan, plans);
  AddCards(plan, hand, plans);
  AddAims(plan, hand, plans);
  AddActions(plan, side, plans);
  return plans;
}

}  // namespace brindlemoor
