// TrialForm: the window that tries a card on a small table.
#pragma once

#include <string>
#include <vector>

#include "editor/card_trial.h"
#include "platform/controls.h"

namespace brindlemoor {

struct TrialForm : Form {
  TrialForm();

  Label WhatLabel{"WhatLabel"};
  ComboBox WhatCombo{"WhatCombo"};  ///< playing the card, and its actions
  Label AimLabel{"AimLabel"};
  ComboBox AimCombo{"AimCombo"};  ///< the card that is chosen as a target
  Label Outcome{"Outcome"};
  Grid Changes{"Changes"};
  Label SaidLabel{"SaidLabel"};
  TextBox SaidText{"SaidText"};
  Button KeepButton{"KeepButton"};
  Button CloseButton{"CloseButton"};

  /// Tries the card: plays it first.
  void Begin(const Card& card);

  void Combo_Click();
  void KeepButton_Click();

 private:
  std::string CellText(int row, int column) const;
  std::string NameOf(const std::string& word) const;

  Card tried_;
  std::vector<int> actions_;  // row of each item of WhatCombo, 0 for playing
  std::vector<TrialCard> cards_;
  TrialResult result_;
};

}  // namespace brindlemoor
