// Push buttons, option buttons and check boxes.
#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

/// A push button that the Enter key presses as well as the blank.
class KeyButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      // A key that is held down does not press what comes up under it.
      if (!event->isAutoRepeat()) click();
    } else {
      QPushButton::keyPressEvent(event);
    }
  }
};

template <class Model>
void ShareMnemonic(Model& model, QAbstractButton& button, FormWindow& window) {
  window.AddMnemonic(
      [&model] { return model.Visible ? QString::fromStdString(model.Caption) : QString(); },
      [&model, &button](const QString& marked) {
        const QString text = model.Visible ? marked : QString::fromStdString(model.Caption);
        if (button.text() != text) button.setText(text);
      });
}

/// Follows a check mark and hands the user's change of it on.
template <class Model>
QWidget* BindMark(Model& model, QAbstractButton& button, FormWindow& window) {
  ShareMnemonic(model, button, window);
  BindCommon(model, button, window, [&model, &button, &window] {
    if (button.isChecked() != model.Value) {
      const QSignalBlocker quiet(button);
      button.setChecked(model.Value);
    }
    window.RefreshMnemonics();
  });
  QObject::connect(&button, &QAbstractButton::toggled, &window, [&model, &window](bool marked) {
    // An option that gives way to another follows the logic, not the user.
    if (model.Value == marked) return;
    window.Deliver({.Kind = UserEventKind::kMark, .Control = model.Name, .Number = marked ? 1 : 0});
  });
  QObject::connect(&button, &QAbstractButton::clicked, &window, [&model, &window] {
    if (model.Click) window.Deliver({.Kind = UserEventKind::kClick, .Control = model.Name});
  });
  return &button;
}

}  // namespace

QWidget* BindButton(Button& model, FormWindow& window) {
  auto* button = new KeyButton(&window);
  ShareMnemonic(model, *button, window);
  BindCommon(model, *button, window, [&window] { window.RefreshMnemonics(); });
  QObject::connect(button, &QPushButton::clicked, &window, [&model, &window] {
    if (model.Click) window.Deliver({.Kind = UserEventKind::kClick, .Control = model.Name});
  });
  if (model.Cancel) {
    auto* escape = new QShortcut(Qt::Key_Escape, &window);
    QObject::connect(escape, &QShortcut::activated, button, [button] {
      if (button->isVisible()) button->click();
    });
  }
  return button;
}

QWidget* BindOptionButton(OptionButton& model, FormWindow& window) {
  auto* button = new QRadioButton(&window);
  window.OptionGroup(QString::fromStdString(model.Name)).addButton(button);
  return BindMark(model, *button, window);
}

QWidget* BindCheckBox(CheckBox& model, FormWindow& window) {
  return BindMark(model, *new QCheckBox(&window), window);
}

}  // namespace brindlemoor
