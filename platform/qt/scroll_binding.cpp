// Scroll bars.
#include <QScrollBar>
#include <QSignalBlocker>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

QWidget* BindScrollBar(ScrollBar& model, FormWindow& window) {
  auto* bar = new QScrollBar(&window);
  bar->setFocusPolicy(Qt::TabFocus);
  BindCommon(model, *bar, window, [&model, bar] {
    const QSignalBlocker quiet(bar);
    bar->setRange(model.Minimum, model.Maximum);
    bar->setSingleStep(model.SmallStep);
    bar->setPageStep(model.LargeStep);
    bar->setValue(model.Value);
  });
  QObject::connect(bar, &QScrollBar::valueChanged, &window, [&model, &window](int value) {
    window.Deliver({.Kind = UserEventKind::kScroll, .Control = model.Name, .Number = value});
  });
  return bar;
}

}  // namespace brindlemoor
