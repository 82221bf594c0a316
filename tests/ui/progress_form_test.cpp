// The form behind which something long is done.
#include "ui/progress_form.h"

#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class ProgressFormTest : public SessionTest {
 protected:
  /// Runs four steps while the user does something before each tick. Returns what happened.
  std::string Run(std::function<void(ProgressForm&)> user,
                  std::function<void(ProgressForm&, int)> step = {}) {
    ProgressForm& form = TheProgressForm();
    std::string steps;
    desktop_->ModalForms.push_back([&](Form& shown) {
      EXPECT_EQ(shown.Caption.Get(), "Exporting");
      EXPECT_TRUE(form.StepTimer.Enabled && form.StepTimer.Interval > 0);
      for (int tick = 0; tick < 10; ++tick) {
        if (shown.Shown) user(form);
        form.StepTimer.Tick();  // a last tick may be on its way when the form goes
      }
      EXPECT_FALSE(shown.Shown);
    });
    const int done = form.Run("Exporting", 4, [&](int index) {
      steps += Joined(index, " of ", form.Bar.Maximum.Get(), ", bar ", form.Bar.Value.Get(), "; ");
      if (step) step(form, index);
    });
    EXPECT_FALSE(form.StepTimer.Enabled);
    return Joined(steps, "done ", done);
  }
};

TEST_F(ProgressFormTest, TakesOneStepPerTickUntilTheLast) {
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(Run([](ProgressForm&) {}),
              "0 of 4, bar 0; 1 of 4, bar 1; 2 of 4, bar 2; 3 of 4, bar 3; done 4");
  }
}

TEST_F(ProgressFormTest, GivingUpLeavesTheOtherStepsOut) {
  const auto giveUpAt = [](int done) {
    return [done](ProgressForm& form) {
      if (form.Bar.Value == done) form.CancelButton.Click();
    };
  };
  EXPECT_EQ(Run(giveUpAt(0)), "done 0");
  EXPECT_EQ(Run(giveUpAt(2)), "0 of 4, bar 0; 1 of 4, bar 1; done 2");
  // While a step lets events run: that step counts, and no other begins within it.
  const auto midway = [](ProgressForm& form, int index) {
    form.StepTimer.Tick();
    if (index == 1) form.CancelButton.Click();
  };
  EXPECT_EQ(Run([](ProgressForm&) {}, midway), "0 of 4, bar 0; 1 of 4, bar 1; done 2");
}

TEST_F(ProgressFormTest, NothingToDoShowsNoForm) {
  EXPECT_EQ(TheProgressForm().Run("Exporting", 0, [](int) { ADD_FAILURE(); }), 0);
}

}  // namespace
}  // namespace brindlemoor
