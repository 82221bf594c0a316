// PlanPanel: what the player has lined up for the coming turn, and what that leaves.
#pragma once

#include <vector>

#include "platform/passing_label.h"

namespace brindlemoor {

/// Stands below the report while a match goes on. The hand's badges say the same.
struct PlanPanel {
  PlanPanel();

  Frame Panel{"PlanPanel"};
  PassingLabel Left{"PlanLeft"};  ///< what is left after the plan
  /// What of the plan will not work; hidden where all does.
  PassingLabel Warning{"PlanWarning"};
  ListBox Lines{"PlanLines"};   ///< a line for each thing that is planned
  Button TakeBack{"TakeBack"};  ///< the chosen line
  Button AimAnew{"AimAnew"};    ///< its target

  Layout Arrangement();
  /// Forecasts the plan, and shows the outcome here and on the hand.
  void Update();
  void TakeBack_Click();
  void AimAnew_Click();

 private:
  struct Step {
    int Entry = 0;  // of the queue, else a menu action:
    int Slot = 0;
    int Effect = 0;
    bool IsAimed = false;
  };
  /// What the chosen line stands for; nullptr for no plan.
  const Step* Chosen() const;
  void ShowChoice();

  std::vector<Step> steps_;  // parallel to Lines
};

/// Shows the plan as it is now.
void ShowPlan();

}  // namespace brindlemoor
