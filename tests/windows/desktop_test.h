// DesktopTest: the fixture of tests with real widgets on a platform without a display.
#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_platform.h"

namespace brindlemoor {

class DesktopTest : public testing::Test {
 protected:
  DesktopTest()
      : desktop_(std::make_unique<QtPlatform>(std::make_unique<LocalFileSystem>(),
                                              folder_.path().toStdString(), 1)) {}

  static Layout Cell(Control& control, int width = 0, int height = 0) {
    return {
        .Direction = Layout::Kind::kControl, .Leaf = &control, .Width = width, .Height = height};
  }
  /// Shows a form with the controls in a column.
  void Show(Form& form, std::vector<Layout> cells) {
    form.Arrangement = {.Direction = Layout::Kind::kColumn, .Children = std::move(cells)};
    desktop_->ShowForm(form, false);
  }
  /// The window of a form.
  static FormWindow* Window(const Form& form) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      auto* window = dynamic_cast<FormWindow*>(top);
      if (window != nullptr && &window->Model() == &form) return window;
    }
    return nullptr;
  }
  /// The widget of a control.
  template <class Widget = QWidget>
  static Widget* Find(const Form& form, const Control& control) {
    return Window(form)->template findChild<Widget*>(QString::fromStdString(control.Name));
  }
  /// Does something as soon as events are served: what a user does while a window is modal.
  static void Later(std::function<void()> action) {
    QTimer::singleShot(20, QCoreApplication::instance(), std::move(action));
  }

  QTemporaryDir folder_;
  std::unique_ptr<QtPlatform> desktop_;
};

}  // namespace brindlemoor
