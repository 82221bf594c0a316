// AimBanner: the line above the report that says what waits for a target.
#pragma once

#include "platform/passing_label.h"

namespace brindlemoor {

/// Takes the place of something else, so that the page does not move when it speaks. What can be
/// aimed at is outlined on the page then.
struct AimBanner {
  AimBanner();

  PassingLabel Words{"AimWords"};
  Button Stop{"AimStop"};  ///< the Escape key presses it

  Layout Arrangement(Control& otherwise);
  void Update();
  /// The next update tells of a play that has just been aimed at the card that was clicked before.
  void TellAimOf(int queueEntry) { told_ = queueEntry; }
  void Stop_Click();

 private:
  void Show(std::string words, const std::vector<int>& slots);

  int told_ = 0;   // entry of the queue that the next update tells of
  int aimed_ = 0;  // the one that the present words are about
};

}  // namespace brindlemoor
