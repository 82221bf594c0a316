// Filling a window with menus, controls and timers.
#include "platform/qt/form_building.h"

#include <QLayout>
#include <QScrollArea>

#include "platform/qt/bindings.h"
#include "platform/qt/form_layout.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

/// Where the screen is too small for the controls, they scroll.
class PageArea : public QScrollArea {
 public:
  PageArea(QWidget* page, QWidget* parent) : QScrollArea(parent) {
    setObjectName("page");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
  }
  QSize sizeHint() const override { return widget()->sizeHint(); }

 protected:
  /// The page may have had another size in between while the window was hidden.
  void showEvent(QShowEvent* event) override {
    QScrollArea::showEvent(event);
    widget()->layout()->invalidate();
    widget()->layout()->activate();
  }
};

}  // namespace

std::unique_ptr<FormWindow> BuildWindow(Form& form, WindowHost& host) {
  auto window = std::make_unique<FormWindow>(form, host);
  BindMenus(form.Menus, *window);
  window->setCentralWidget(new PageArea(BuildArrangement(form.Arrangement, *window), window.get()));
  for (Timer* timer : form.Timers) BindTimer(*timer, *window);
  window->EndBuilding();
  return window;
}

}  // namespace brindlemoor
