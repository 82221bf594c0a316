// Browser views.
#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_additions.h"
#include "platform/qt/page_view.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

QWidget* BindBrowserView(BrowserView& model, FormWindow& window) {
  WindowHost& host = window.Host();
  auto* view = new PageView(host.PageProfile(), host.Policy(), &window);
  view->OnLink = [&model, &host](const QUrl& url) { host.QueueClick(model, url); };
  view->OnPoint = [&model, &window](const QUrl& url) {
    if (!model.LinkPointed) return;
    window.Host().Hover(
        window.Model(),
        {.Kind = UserEventKind::kPoint, .Control = model.Name, .Text = LinkText(url)});
  };
  view->OnKeyTakerChange = [&window, view] {
    window.OrderTabStops();
    if (QWidget* taker = view->focusProxy()) window.TakeLetterWheel(*taker);
  };
  window.AddView(*view);
  host.AddView(model, window, *view);
  view->setProperty("startsAtFirstLink", model.StartsAtFirstLink);
  BindCommon(model, *view, window, [&model, view] {
    view->SetPointDelay(model.PointDelay);
    view->SetAdditions(PageAdditions(model));
  });
  return view;
}

}  // namespace brindlemoor
