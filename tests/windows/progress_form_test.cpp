// The progress form in its real window: its timer, its bar and its ends.
#include "ui/progress_form.h"

#include <QProgressBar>
#include <QPushButton>

#include "core/state.h"
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

class ProgressWindowTest : public DesktopTest {
 protected:
  ProgressWindowTest() {
    State() = Session{};
    // The fixture keeps the desktop.
    State().Desktop = std::shared_ptr<Platform>(desktop_.get(), [](Platform*) {});
  }
  ~ProgressWindowTest() override {
    desktop_->CloseWindows();
    State() = Session{};
  }

  ProgressForm form_;
};

TEST_F(ProgressWindowTest, StepsRunBehindABarThatFollows) {
  std::vector<int> shown;
  const int done = form_.Run("Exporting", 5, [&](int) {
    auto* bar = Find<QProgressBar>(form_, form_.Bar);
    EXPECT_EQ(bar->maximum(), 5);
    EXPECT_TRUE(Window(form_)->isModal());
    shown.push_back(bar->value());
  });
  EXPECT_EQ(done, 5);
  EXPECT_EQ(shown, (std::vector<int>{0, 1, 2, 3, 4}));
  EXPECT_FALSE(Window(form_)->isVisible());
}

TEST_F(ProgressWindowTest, TheButtonAndTheWindowsCrossGiveUp) {
  const std::function<void()> ends[] = {
      [&] { Find<QPushButton>(form_, form_.CancelButton)->click(); },
      [&] { Window(form_)->close(); },
  };
  for (const auto& end : ends) {
    const int done = form_.Run("Exporting", 1000, [&](int index) {
      if (index == 2) Later(end);
      QTest::qSleep(1);
    });
    EXPECT_GE(done, 3);
    EXPECT_LT(done, 1000);
  }
}

TEST_F(ProgressWindowTest, NoStepBeginsWhileOneAsksSomething) {
  int running = 0;
  const int done = form_.Run("Exporting", 3, [&](int index) {
    EXPECT_EQ(++running, 1);
    if (index == 1) {
      Later([] { QApplication::activeModalWidget()->close(); });
      desktop_->MessageBox("The file could not be written.");
    }
    --running;
  });
  EXPECT_EQ(done, 3);
}

}  // namespace
}  // namespace brindlemoor
