// Taking the repeated presses of keys that act.
#include "platform/qt/held_keys.h"

#include <QApplication>
#include <QKeyEvent>

namespace brindlemoor {

namespace {

bool Acts(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Delete:
      return true;
    default:
      return false;
  }
}

bool IsText(const QObject& receiver) {
  return receiver.inherits("QLineEdit") || receiver.inherits("QPlainTextEdit") ||
         receiver.inherits("QTextEdit") || receiver.inherits("QAbstractSpinBox");
}

}  // namespace

HeldKeys::HeldKeys() { qApp->installEventFilter(this); }

bool HeldKeys::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !receiver->isWidgetType()) return false;
  const auto& press = static_cast<const QKeyEvent&>(*event);
  return press.isAutoRepeat() && Acts(press.key()) && !IsText(*receiver);
}

}  // namespace brindlemoor
