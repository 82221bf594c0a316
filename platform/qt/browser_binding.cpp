// Browser views.
#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_view.h"
#include "platform/qt/qt_platform.h"

namespace brindlemoor {

QWidget* BindBrowserView(BrowserView& model, FormWindow& window) {
  auto* view = new PageView(model, window);
  window.AddView(*view);
  window.Desktop().AddView(model, {&window, view});
  BindCommon(model, *view, window, [] {});
  return view;
}

}  // namespace brindlemoor
