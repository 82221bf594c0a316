// Colours as extra selections, so that the text itself and its undo stay untouched, and a list of
// suggestions at the caret.
#include "platform/qt/text_aids.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

/// By TextStyle. On the dark ground of the boxes each has a contrast of 7:1 or more.
constexpr std::array<QRgb, 8> kColors = {0xFFFFFF, 0x7FC8FF, 0xFFC35A, 0xB9E08C,
                                         0xE0B3FF, 0x62D9CF, 0xD9E2EA, 0xFF9B8F};
constexpr QRgb kWrong = 0xFF7466;
constexpr int kRowsShown = 10;
constexpr int kSpare = 24;

QTextCharFormat FormatOf(const TextRun& run) {
  QTextCharFormat format;
  if (run.Note.empty()) {
    format.setForeground(QColor(kColors[static_cast<std::size_t>(run.Style)]));
  } else {
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(QColor(kWrong));
  }
  return format;
}

/// Turns places in bytes into those of the toolkit, each of which lies behind the one before or
/// begins anew.
class Places {
 public:
  explicit Places(const std::string& text) : text_(text) {}
  int operator()(std::size_t byte) {
    byte = std::min(byte, text_.size());
    if (byte < byte_) byte_ = 0, place_ = 0;
    place_ += static_cast<int>(
        QString::fromUtf8(text_.data() + byte_, static_cast<qsizetype>(byte - byte_)).size());
    byte_ = byte;
    return place_;
  }

 private:
  const std::string& text_;
  std::size_t byte_ = 0;
  int place_ = 0;
};

}  // namespace

QString TextOf(const QPlainTextEdit& edit) {
  QString text = edit.document()->toRawText();
  text.replace(QChar::ParagraphSeparator, '\n');
  return text.replace(QChar::LineSeparator, '\n');
}

TextAids::TextAids(TextBox& model, QPlainTextEdit& edit, FormWindow& window)
    : QObject(&edit), model_(model), edit_(edit), window_(window) {
  edit.installEventFilter(this);
  edit.viewport()->installEventFilter(this);
  if (!model.Suggest) return;
  items_ = new QStandardItemModel(this);
  list_ = new QCompleter(items_, this);
  list_->setWidget(&edit);
  list_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  list_->setMaxVisibleItems(kRowsShown);
  connect(list_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
          [this](const QModelIndex& index) { TakeSuggestion(index.row()); });
  // The list takes the keys while it is open, and its own filter would give Enter to the box.
  list_->popup()->installEventFilter(this);
  connect(&edit, &QPlainTextEdit::textChanged, this, [this] {
    if (edit_.hasFocus()) Suggest(false);
  });
}

void TextAids::ShowRuns() {
  // What the form undoes, for instance, is another text than the list was made for.
  if (list_ != nullptr && offeredFor_ != AroundCaret()) list_->popup()->hide();
  if (!model_.Runs) return;
  const std::string text = TextOf(edit_).toStdString();
  runs_ = model_.Runs(text);
  Places place(text);
  QList<QTextEdit::ExtraSelection> shown;
  for (const TextRun& run : runs_) {
    QTextCursor cursor(edit_.document());
    cursor.setPosition(place(run.Offset));
    cursor.setPosition(place(run.Offset + run.Length), QTextCursor::KeepAnchor);
    shown.append({cursor, FormatOf(run)});
  }
  edit_.setExtraSelections(shown);
}

bool TextAids::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip && watched == edit_.viewport()) {
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowNote(help->pos(), help->globalPos());
    return true;
  }
  const bool asks = event->type() == QEvent::ShortcutOverride;
  if ((!asks && event->type() != QEvent::KeyPress) || watched == edit_.viewport()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (watched != &edit_ && !list_->popup()->isVisible()) return PassOn(*event);
  if (watched != &edit_) return !asks && PressKeyOfList(*key);
  // Accepted, the question keeps the key from the form's menu.
  if (asks && model_.Help && key->key() == Qt::Key_F1) event->accept();
  return !asks && PressKey(*key);
}

/// A key that was pressed while the list closed is for whoever has the focus by now, not for the
/// box that the list was opened for.
bool TextAids::PassOn(QEvent& event) const {
  if (QWidget* focus = window_.focusWidget()) QCoreApplication::sendEvent(focus, &event);
  return true;
}

bool TextAids::PressKeyOfList(const QKeyEvent& key) {
  const bool takes = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (!takes && key.key() != Qt::Key_Tab && key.key() != Qt::Key_F1) return false;
  const int row = list_->popup()->currentIndex().row();
  list_->popup()->hide();
  if (key.key() == Qt::Key_F1) return PressKey(key);
  return TakeSuggestion(row);
}

bool TextAids::PressKey(const QKeyEvent& key) {
  if (key.key() == Qt::Key_F1 && model_.Help) {
    window_.Deliver({.Kind = UserEventKind::kHelp,
                     .Control = model_.Name,
                     .Number = static_cast<int>(Caret())});
    return true;
  }
  const bool asked = key.key() == Qt::Key_Space && key.modifiers() == Qt::ControlModifier;
  if (asked && list_ != nullptr) Suggest(true);
  return asked && list_ != nullptr;
}

/// Opens the list at the caret. Unasked it opens only where a word has been begun.
void TextAids::Suggest(bool asked) {
  const std::string text = TextOf(edit_).toStdString();
  const std::size_t caret = Caret();
  offered_ = edit_.isReadOnly() ? TextSuggestions() : model_.Suggest(text, caret);
  offeredFor_ = AroundCaret();
  const bool begun = caret > offered_.Offset;
  const bool complete = offered_.Items.size() == 1 &&
                        text.compare(offered_.Offset, offered_.Length, offered_.Items[0].Text) == 0;
  if (offered_.Items.empty() || complete || (!asked && !begun)) {
    list_->popup()->hide();
    return;
  }
  items_->clear();
  for (const TextSuggestion& item : offered_.Items) {
    items_->appendRow(new QStandardItem(
        QString::fromStdString(item.Note.empty() ? item.Text : item.Text + "   " + item.Note)));
  }
  QRect place = edit_.cursorRect().translated(edit_.viewport()->pos());
  QAbstractItemView& view = *list_->popup();
  place.setWidth(
      std::min(view.sizeHintForColumn(0) + view.verticalScrollBar()->sizeHint().width() + kSpare,
               window_.width()));
  list_->complete(place);
  // The view takes its first row when the focus comes; none is chosen where a new name may stand.
  view.setCurrentIndex(offered_.IsOpen ? QModelIndex() : list_->completionModel()->index(0, 0));
}

/// False when nothing is chosen, or when the text or the caret is not that of the list any more.
bool TextAids::TakeSuggestion(int row) {
  if (row < 0 || row >= static_cast<int>(offered_.Items.size())) return false;
  if (offeredFor_ != AroundCaret()) return false;
  const std::string text = TextOf(edit_).toStdString();
  Places place(text);
  QTextCursor cursor = edit_.textCursor();
  cursor.setPosition(place(offered_.Offset));
  cursor.setPosition(place(offered_.Offset + offered_.Length), QTextCursor::KeepAnchor);
  cursor.insertText(QString::fromStdString(offered_.Items[static_cast<std::size_t>(row)].Text));
  edit_.setTextCursor(cursor);
  return true;
}

QString TextAids::AroundCaret() const {
  QString text = TextOf(edit_);
  return text.insert(edit_.textCursor().position(), QChar('\n'));
}

void TextAids::ShowNote(const QPoint& place, const QPoint& onScreen) const {
  const std::string text = TextOf(edit_).toStdString();
  Places places(text);
  const int at = edit_.cursorForPosition(place).position();
  for (const TextRun& run : runs_) {
    if (run.Note.empty()) continue;
    const int begin = places(run.Offset);
    if (at < begin || at > places(run.Offset + run.Length)) continue;
    QToolTip::showText(onScreen, QString::fromStdString(run.Note).toHtmlEscaped(), &edit_);
    return;
  }
  QToolTip::showText(onScreen, edit_.toolTip(), &edit_);
}

std::size_t TextAids::Caret() const {
  const QString before = TextOf(edit_).left(edit_.textCursor().position());
  return static_cast<std::size_t>(before.toUtf8().size());
}

}  // namespace brindlemoor
