// Timers of forms.
#include <QApplication>
#include <QTimer>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

namespace {

/// The logic is not asked in the middle of something: a question, a list or a page that it waits
/// for.
bool CanTick(FormWindow& window) {
  const QWidget* modal = QApplication::activeModalWidget();
  return (modal == nullptr || modal == &window) && QApplication::activePopupWidget() == nullptr &&
         !window.Host().InsideLogic();
}

}  // namespace

void BindTimer(Timer& model, FormWindow& window) {
  auto* timer = new QTimer(&window);
  timer->setObjectName(QString::fromStdString(model.Name));
  QObject::connect(timer, &QTimer::timeout, &window, [&model, &window] {
    if (!model.Tick || !CanTick(window)) return;
    window.Deliver({.Kind = UserEventKind::kTick, .Control = model.Name});
  });
  const auto sync = [&model, &window, timer] {
    if (!model.Enabled || model.Interval <= 0 || !window.isVisible()) {
      timer->stop();
    } else if (!timer->isActive() || timer->interval() != model.Interval) {
      timer->start(model.Interval);
    }
  };
  window.Bind(model, sync);
  window.OnShownChange(sync);
}

}  // namespace brindlemoor
