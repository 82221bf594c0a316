// What a user does while a handler works for long.
#include <QElapsedTimer>
#include <QPushButton>
#include <string>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

class EventsDuringWorkTest : public DesktopTest {
 protected:
  EventsDuringWorkTest() {
    for (Button* button : {&work_, &first_, &second_}) {
      button->Click = [this, button] { order_ += button->Name + " "; };
    }
    form_.Caption = "Table";
    form_.QueryClose = [this] {
      order_ += "close ";
      return stays_;
    };
    Show(form_, {Cell(work_), Cell(first_), Cell(second_)});
  }
  ~EventsDuringWorkTest() override { desktop_->CloseWindows(); }

  void Press(const Button& button) { Find<QPushButton>(form_, button)->click(); }
  QString Title() const { return Window(form_)->windowTitle(); }

  /// Works for as long as it takes until the user has acted.
  void WorkWhile(std::function<void()> user) {
    work_.Click = [this, user = std::move(user)] {
      bool acted = false;
      Later([&] {
        user();
        acted = true;
      });
      QElapsedTimer time;
      time.start();
      while (!acted && !time.hasExpired(5000)) desktop_->ServeWindows();
      EXPECT_TRUE(acted) << "no events are served in long work";
      order_ += "worked ";
    };
    Press(work_);
    QTest::qWait(50);
  }

  Form form_{"Form"}, dialog_{"Dialog"};
  Button work_{"work"}, first_{"first"}, second_{"second"};
  std::string order_;
  bool stays_ = true;
};

TEST_F(EventsDuringWorkTest, WaitForItsEndInOrder) {
  WorkWhile([this] {
    Press(second_);
    Press(first_);
    Press(second_);
    EXPECT_EQ(order_, "");
  });
  EXPECT_EQ(order_, "worked second first second ");
}

TEST_F(EventsDuringWorkTest, WhatTheHandlerTakesAwayIsNotDoneBehindIt) {
  WorkWhile([this] {
    Press(first_);
    Press(second_);
    first_.Visible = false;  // by the handler, before it is done
  });
  EXPECT_EQ(order_, "worked second ");
}

TEST_F(EventsDuringWorkTest, AWindowThatWillCloseSaysSoAndAsksBehindTheWork) {
  WorkWhile([this] {
    Window(form_)->close();
    Window(form_)->close();
    EXPECT_TRUE(Title().startsWith("Closing: Table")) << Title().toStdString();
    EXPECT_TRUE(Window(form_)->isVisible());
  });
  EXPECT_EQ(order_, "worked close ") << "asked once";
  EXPECT_TRUE(Title().startsWith("Table")) << "it wanted to stay";
  EXPECT_EQ(Window(form_)->cursor().shape(), Qt::ArrowCursor);
  stays_ = false;
  WorkWhile([this] { Window(form_)->close(); });
  EXPECT_FALSE(Window(form_)->isVisible() || form_.Shown);
}

TEST_F(EventsDuringWorkTest, AModalWindowOfTheHandlerGoesFirst) {
  work_.Click = [this] {
    Later([this] { Press(first_); });
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(400)) desktop_->ServeWindows();
    Later([this] {
      EXPECT_EQ(order_, "") << "its window is behind the modal one";
      Window(dialog_)->close();
    });
    desktop_->ShowForm(dialog_, true);
    order_ += "worked ";
  };
  Press(work_);
  QTest::qWait(50);
  EXPECT_EQ(order_, "worked first ");
}

TEST_F(EventsDuringWorkTest, ALateEventDoesNotOvertakeInAPump) {
  work_.Click = [this] {
    Later([this] { Press(first_); });
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(400)) desktop_->ServeWindows();
    QTimer::singleShot(0, QCoreApplication::instance(), [this] { Press(second_); });
    desktop_->PumpEvents();
    order_ += "worked ";
  };
  Press(work_);
  QTest::qWait(50);
  EXPECT_EQ(order_, "worked first second ");
}

}  // namespace
}  // namespace brindlemoor
