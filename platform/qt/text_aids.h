// What a box of many lines shows beside its text: colours, notes under words, suggestions, help.
#pragma once

#include <QObject>
#include <QPlainTextEdit>
#include <vector>

#include "platform/controls.h"

class QCompleter;
class QKeyEvent;
class QStandardItemModel;

namespace brindlemoor {

class FormWindow;

/// The text of a box with its line ends as "\n". The widget's own plain text takes the blanks that
/// must not break for ordinary ones.
QString TextOf(const QPlainTextEdit& edit);

/// Belongs to its box, whose model gives what is shown.
class TextAids : public QObject {
 public:
  TextAids(TextBox& model, QPlainTextEdit& edit, FormWindow& window);

  /// Colours the text anew.
  void ShowRuns();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool PressKey(const QKeyEvent& key);
  bool PassOn(QEvent& event) const;
  bool PressKeyOfList(const QKeyEvent& key);
  void Suggest(bool asked);
  bool TakeSuggestion(int row);
  QString AroundCaret() const;
  void ShowNote(const QPoint& place, const QPoint& onScreen) const;
  /// The caret, in bytes of the text.
  std::size_t Caret() const;

  TextBox& model_;
  QPlainTextEdit& edit_;
  FormWindow& window_;
  std::vector<TextRun> runs_;
  TextSuggestions offered_;
  QString offeredFor_;  // the text with its caret
  QCompleter* list_ = nullptr;
  QStandardItemModel* items_ = nullptr;
};

}  // namespace brindlemoor
