// Keys that are held down act once, and repeat where one types or moves.
#include "platform/qt/held_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

class PressCounter : public QWidget {
 public:
  int Presses = 0;

 protected:
  void keyPressEvent(QKeyEvent*) override { ++Presses; }
};

void Press(QWidget& widget, int key, bool repeats) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Return ? "\r" : "",
                  repeats);
  QApplication::sendEvent(&widget, &press);
}

TEST(HeldKeys, ActOnceAndRepeatInTexts) {
  const HeldKeys held;
  PressCounter counter;
  for (const int key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Delete}) {
    counter.Presses = 0;
    Press(counter, key, false);
    Press(counter, key, true);
    EXPECT_EQ(counter.Presses, 1) << key;
  }
  counter.Presses = 0;
  Press(counter, Qt::Key_Right, true);
  EXPECT_EQ(counter.Presses, 1);
  QPlainTextEdit text;
  Press(text, Qt::Key_Return, false);
  Press(text, Qt::Key_Return, true);
  EXPECT_EQ(text.toPlainText(), "\n\n");
}

}  // namespace
}  // namespace brindlemoor
