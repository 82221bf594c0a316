// The steps of something long, taken by a timer.
#include "ui/progress_form.h"

#include <utility>

#include "core/desktop.h"

namespace brindlemoor {

ProgressForm::ProgressForm() : Form("ProgressForm") {
  Width = 420;
  CancelButton.Caption = "Cancel";
  Bar.Spoken = "How much is done";
  CancelButton.Click = [this] { CancelButton_Click(); };
  StepTimer.Interval = 1;
  StepTimer.Tick = [this] { StepTimer_Tick(); };
  Timers = {&StepTimer};
  Layout buttons{
      .Direction = Layout::Kind::kRow,
      .Children = {{.Stretch = 1},
                   {.Direction = Layout::Kind::kControl, .Leaf = &CancelButton, .Width = 110}}};
  Arrangement = {.Direction = Layout::Kind::kColumn,
                 .Children = {{.Direction = Layout::Kind::kControl, .Leaf = &What, .Height = 44},
                              {.Direction = Layout::Kind::kControl, .Leaf = &Bar, .Height = 18},
                              {.Height = 6},
                              std::move(buttons)}};
}

int ProgressForm::Run(std::string_view caption, int count, std::function<void(int index)> step) {
  if (count <= 0 || step_ || Desktop().Ending()) return 0;
  Caption = std::string(caption);
  What.Caption = "";
  Bar.Maximum = count;
  Bar.Value = 0;
  step_ = std::move(step);
  StepTimer.Enabled = true;
  Desktop().ShowForm(*this, true);
  StepTimer.Enabled = false;
  step_ = nullptr;
  return Bar.Value;
}

void ProgressForm::StepTimer_Tick() {
  // A step that asks something lets events run.
  if (!step_ || inStep_ || !Shown || Bar.Value >= Bar.Maximum) return;
  inStep_ = true;
  step_(Bar.Value);
  inStep_ = false;
  Bar.Value = Bar.Value + 1;
  if (Bar.Value == Bar.Maximum) Desktop().HideForm(*this);
}

void ProgressForm::CancelButton_Click() { Desktop().HideForm(*this); }

}  // namespace brindlemoor
