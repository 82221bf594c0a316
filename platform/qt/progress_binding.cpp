// Progress bars.
#include <QProgressBar>
#include <algorithm>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

QWidget* BindProgressBar(ProgressBar& model, FormWindow& window) {
  auto* bar = new QProgressBar(&window);
  bar->setTextVisible(false);
  BindCommon(model, *bar, window, [&model, bar] {
    // Without a range it would run to and fro.
    bar->setRange(0, std::max(model.Maximum.Get(), 1));
    bar->setValue(std::clamp(model.Value.Get(), 0, bar->maximum()));
  });
  return bar;
}

}  // namespace brindlemoor
