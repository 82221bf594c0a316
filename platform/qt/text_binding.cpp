// Text boxes of one line and of many.
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <functional>
#include <utility>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/text_aids.h"

namespace brindlemoor {

namespace {

/// Keeps the keys for undo and redo from a widget that has an undo of its own.
class UndoKeys : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool asked = event->type() == QEvent::ShortcutOverride;
    if (!asked && event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) return false;
    // Ignored, the question leads to the menu; the key itself comes only when the menu is off.
    event->setAccepted(!asked);
    return true;
  }
};

void ServeRightClick(const TextBox& model, QWidget& edit, FormWindow& window) {
  if (!model.RightClick) return;
  edit.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&edit, &QWidget::customContextMenuRequested, &window, [&model, &window] {
    window.Deliver({.Kind = UserEventKind::kRightClick, .Control = model.Name});
  });
}

void Take(const TextBox& model, const QString& text, FormWindow& window) {
  window.Deliver({.Kind = UserEventKind::kType, .Control = model.Name, .Text = text.toStdString()});
}

void PressEnter(const TextBox& model, FormWindow& window) {
  window.Deliver({.Kind = UserEventKind::kEnter, .Control = model.Name});
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
                   [&model, &window](const QString& text) { Take(model, text, window); });
  QObject::connect(edit, &QLineEdit::returnPressed, &window, [&model, &window] {
    if (model.Enter) PressEnter(model, window);
  });
  ServeRightClick(model, *edit, window);
  return edit;
}

constexpr int kTextMargin = 3;
constexpr int kFrame = 4;  // of a text box, with its padding

/// The height of a box that shows so many lines.
int HeightOfLines(const QWidget& edit, int lines) {
  return edit.fontMetrics().lineSpacing() * lines + 2 * (kTextMargin + kFrame);
}

/// One line of text that is wrapped where it is long. The Enter key is the form's.
class WrappedLine : public QPlainTextEdit {
 public:
  WrappedLine(std::function<void()> enter, QWidget* parent)
      : QPlainTextEdit(parent), enter_(std::move(enter)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
      QPlainTextEdit::keyPressEvent(event);
    } else {
      enter_();
    }
  }
  void insertFromMimeData(const QMimeData* source) override {
    static const QRegularExpression lineEnds("[\\r\\n]+");
    textCursor().insertText(source->text().replace(lineEnds, " "));
  }
  /// A scroll bar needs room for more than a line; the keys and the wheel do without it.
  void resizeEvent(QResizeEvent* event) override {
    QPlainTextEdit::resizeEvent(event);
    const bool room = height() >= HeightOfLines(*this, 3);
    setVerticalScrollBarPolicy(room ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  }

 private:
  std::function<void()> enter_;
};

QWidget* BindLines(TextBox& model, FormWindow& window) {
  auto* edit = model.Enter
                   ? new WrappedLine([&model, &window] { PressEnter(model, window); }, &window)
                   : new QPlainTextEdit(&window);
  edit->document()->setDocumentMargin(kTextMargin);
  // Lines are wrapped. A second bar for the few pixels that the first one takes would come and go
  // for ever at some sizes.
  edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  window.OnSizeChange(
      [&model, edit] { edit->setMinimumHeight(HeightOfLines(*edit, model.Enter ? 1 : 2)); });
  edit->setTabChangesFocus(true);
  TextAids* aids =
      model.Runs || model.Suggest || model.Help ? new TextAids(model, *edit, window) : nullptr;
  BindCommon(model, *edit, window, [&model, edit, aids] {
    edit->setReadOnly(model.ReadOnly);
    QString text = QString::fromStdString(model.Text);
    text.replace("\r\n", "\n");
    if (TextOf(*edit) != text) {
      const QSignalBlocker quiet(edit);
      edit->setPlainText(text);
    }
    if (aids != nullptr) aids->ShowRuns();
  });
  QObject::connect(edit, &QPlainTextEdit::textChanged, &window,
                   [&model, &window, edit] { Take(model, TextOf(*edit), window); });
  ServeRightClick(model, *edit, window);
  return edit;
}

}  // namespace

void LeaveUndoToForm(QWidget& typed) { typed.installEventFilter(new UndoKeys(&typed)); }

QWidget* BindTextBox(TextBox& model, FormWindow& window) {
  QWidget* edit = model.MultiLine ? BindLines(model, window) : BindLine(model, window);
  if (model.FormUndoes) LeaveUndoToForm(*edit);
  return edit;
}

}  // namespace brindlemoor
