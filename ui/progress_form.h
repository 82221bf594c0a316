// ProgressForm: something long, done in small steps behind a bar and a button that ends it.
#pragma once

#include <functional>
#include <string_view>

#include "platform/controls.h"

namespace brindlemoor {

struct ProgressForm : Form {
  ProgressForm();

  Label What{"What"};  ///< what is being done just now; a step may set it
  ProgressBar Bar{"Bar"};
  Button CancelButton{"CancelButton"};
  Timer StepTimer{"StepTimer"};

  /// Shows the form modally and calls step(0) to step(count - 1), one at a time between other
  /// events. Returns how many were done, fewer when the user gave up; none where the form is in use
  /// already.
  int Run(std::string_view caption, int count, std::function<void(int index)> step);

  void StepTimer_Tick();
  void CancelButton_Click();

 private:
  std::function<void(int index)> step_;
  bool inStep_ = false;
};

}  // namespace brindlemoor
