// Message boxes and input, file and colour dialogs. Texts come from cards: they are never markup.
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "platform/qt/event_loop.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/within.h"

namespace brindlemoor {

namespace {

constexpr const char* kTitle = "Brindlemoor";
constexpr int kInputWidth = 360;

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void PrepareBox(QMessageBox& box, std::string_view text) {
  box.setWindowTitle(kTitle);
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
}

}  // namespace

bool QtPlatform::RunDialog(QDialog& dialog) {
  if (ending_) return false;
  if (const QWidget* owner = dialog.parentWidget()) dialog.setFont(owner->window()->font());
  dialogs_.push_back(&dialog);
  WakeEventLoop();
  int result = 0;
  {
    const Within waiting(logicRuns_, false);
    const Within noPump(pumps_, false);
    result = dialog.exec();
  }
  dialogs_.erase(std::find(dialogs_.begin(), dialogs_.end(), &dialog));
  ServeWaiting();
  return result == QDialog::Accepted && !ending_;
}

void QtPlatform::MessageBox(std::string_view text) {
  QMessageBox box(Owner());
  PrepareBox(box, text);
  box.setStandardButtons(QMessageBox::Ok);
  RunDialog(box);
}

bool QtPlatform::AskYesNo(std::string_view text) {
  QMessageBox box(Owner());
  PrepareBox(box, text);
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  RunDialog(box);
  return !ending_ && box.clickedButton() == box.button(QMessageBox::Yes);
}

SaveAnswer QtPlatform::AskSaving(std::string_view text) {
  QMessageBox box(Owner());
  PrepareBox(box, text);
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
  box.setDefaultButton(QMessageBox::Save);
  box.setEscapeButton(QMessageBox::Cancel);
  RunDialog(box);
  if (ending_) return SaveAnswer::kCancel;
  if (box.clickedButton() == box.button(QMessageBox::Save)) return SaveAnswer::kSave;
  return box.clickedButton() == box.button(QMessageBox::Discard) ? SaveAnswer::kDiscard
                                                                 : SaveAnswer::kCancel;
}

std::size_t QtPlatform::AskChoice(std::string_view text, const std::vector<std::string>& captions) {
  QMessageBox box(Owner());
  PrepareBox(box, text);
  box.setIcon(QMessageBox::Question);
  QList<QPushButton*> buttons;
  for (const std::string& caption : captions) {
    // Only the role that all have keeps them in their order.
    buttons.append(box.addButton(ToQt(caption), QMessageBox::ActionRole));
  }
  box.setDefaultButton(buttons.first());
  box.setEscapeButton(buttons.last());
  RunDialog(box);
  const qsizetype chosen = ending_ ? -1 : buttons.indexOf(box.clickedButton());
  return chosen < 0 ? captions.size() - 1 : static_cast<std::size_t>(chosen);
}

std::optional<std::string> QtPlatform::AskText(std::string_view prompt) {
  QInputDialog dialog(Owner());
  dialog.setWindowTitle(kTitle);
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setLabelText(ToQt(prompt));
  for (QLabel* label : dialog.findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  dialog.resize(kInputWidth, dialog.sizeHint().height());
  if (!RunDialog(dialog)) return std::nullopt;
  return dialog.textValue().toStdString();
}

std::optional<std::string> QtPlatform::ChooseFile(const FileDialogRequest& request) {
  QFileDialog dialog(Owner());
  dialog.setAcceptMode(request.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setDirectory(lastFolder_);
  dialog.setDefaultSuffix(QString::fromStdString(request.DefaultExtension));
  const QString name = QString::fromStdString(request.FileName);
  QStringList filters;
  if (name.contains('*')) {
    // Patterns are asked for with semicolons between them; a name filter has blanks.
    filters << name.split(';', Qt::SkipEmptyParts).join(' ');
  } else {
    if (!request.DefaultExtension.empty()) {
      filters << "*." + QString::fromStdString(request.DefaultExtension);
    }
    dialog.selectFile(name);
  }
  filters << "*";
  dialog.setNameFilters(filters);
  if (!RunDialog(dialog) || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString file = dialog.selectedFiles().constFirst();
  lastFolder_ = QFileInfo(file).absolutePath();
  return file.toStdString();
}

std::optional<std::string> QtPlatform::ChooseFolder(std::string_view prompt) {
  QFileDialog dialog(Owner(), ToQt(prompt));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setDirectory(lastFolder_);
  if (!RunDialog(dialog) || dialog.selectedFiles().isEmpty()) return std::nullopt;
  lastFolder_ = dialog.selectedFiles().constFirst();
  return lastFolder_.toStdString();
}

std::optional<std::int32_t> QtPlatform::AskColor(std::int32_t present) {
  QColorDialog dialog(QColor::fromRgb(static_cast<QRgb>(present)), Owner());
  if (!RunDialog(dialog)) return std::nullopt;
  return static_cast<std::int32_t>(dialog.selectedColor().rgb() & 0xFFFFFF);
}

}  // namespace brindlemoor
