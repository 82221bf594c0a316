// Running the cost card's actions on a card of the editor.
#include "editor/cost_calculator.h"

#include "core/state.h"
#include "script/run_action.h"

namespace brindlemoor {

void CalculateCost(Card& card) {
  Card& costCard = State().CostCard;
  // Neither card is in play: only a test run takes them, and the card itself is changed by it.
  const RunOptions options{
      .CostMode = -1, .TestRun = 1, .NoCounters = 1, .Nested = 1, .KeepsActions = true};
  for (int effect = 1; effect <= costCard.Effects.UpperBound(); ++effect) {
    RunAction(costCard, card, effect, options);
  }
}

}  // namespace brindlemoor
