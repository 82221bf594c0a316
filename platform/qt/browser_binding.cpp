// Browser views.
#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_view.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

QWidget* BindBrowserView(BrowserView& model, FormWindow& window) {
  WindowHost& host = window.Host();
  auto* view = new PageView(host.PageProfile(), host.Policy(), &window);
  view->OnLink = [&model, &host](const QUrl& url) { host.QueueClick(model, url); };
  view->OnKeyTakerChange = [&window] { window.OrderTabStops(); };
  window.AddView(*view);
  host.AddView(model, window, *view);
  BindCommon(model, *view, window, [] {});
  return view;
}

}  // namespace brindlemoor
