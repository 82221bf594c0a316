// SpokenWidget: what screen readers take a widget of our own for.
#pragma once

#include <QAccessible>
#include <QWidget>

namespace brindlemoor {

/// A base beside QWidget of what is painted by itself, so that nobody else knows what it is.
class SpokenWidget {
 public:
  explicit SpokenWidget(QWidget& widget);
  virtual ~SpokenWidget();
  SpokenWidget(const SpokenWidget&) = delete;
  SpokenWidget& operator=(const SpokenWidget&) = delete;

  virtual QAccessible::Role Role() const = 0;
  /// What a reader's user does to it in place of a click.
  virtual void Press() {}

 private:
  QWidget& widget_;
};

/// Has screen readers ask the widgets of this kind. Once for a program.
void SpeakForOwnWidgets();

}  // namespace brindlemoor
