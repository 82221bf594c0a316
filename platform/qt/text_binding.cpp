// Text boxes of one line and of many.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

void ServeRightClick(const TextBox& model, QWidget& edit, FormWindow& window) {
  if (!model.RightClick) return;
  edit.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&edit, &QWidget::customContextMenuRequested, &window,
                   [&model] { model.RightClick(); });
}

void Take(TextBox& model, const QString& text) {
  model.Text = text.toStdString();
  if (model.Change) model.Change();
}

QWidget* BindLine(TextBox& model, FormWindow& window) {
  auto* edit = new QLineEdit(&window);
  BindCommon(model, *edit, window, [&model, edit] {
    edit->setPlaceholderText(QString::fromStdString(model.Placeholder));
    edit->setReadOnly(model.ReadOnly);
    const QString text = QString::fromStdString(model.Text);
    if (edit->text() == text) return;
    const QSignalBlocker quiet(edit);
    edit->setText(text);
  });
  QObject::connect(edit, &QLineEdit::textEdited, &window,
                   [&model](const QString& text) { Take(model, text); });
  QObject::connect(edit, &QLineEdit::returnPressed, &window, [&model] {
    if (model.Enter) model.Enter();
  });
  ServeRightClick(model, *edit, window);
  return edit;
}

QWidget* BindLines(TextBox& model, FormWindow& window) {
  auto* edit = new QPlainTextEdit(&window);
  edit->setTabChangesFocus(true);
  BindCommon(model, *edit, window, [&model, edit] {
    edit->setReadOnly(model.ReadOnly);
    QString text = QString::fromStdString(model.Text);
    text.replace("\r\n", "\n");
    if (edit->toPlainText() == text) return;
    const QSignalBlocker quiet(edit);
    edit->setPlainText(text);
  });
  QObject::connect(edit, &QPlainTextEdit::textChanged, &window,
                   [&model, edit] { Take(model, edit->toPlainText()); });
  ServeRightClick(model, *edit, window);
  return edit;
}

}  // namespace

QWidget* BindTextBox(TextBox& model, FormWindow& window) {
  return model.MultiLine ? BindLines(model, window) : BindLine(model, window);
}

}  // namespace brindlemoor
