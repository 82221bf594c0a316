// Pages in a browser view: what they may do, and clicks on their links.
#include "platform/qt/page_view.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QTimer>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <functional>
#include <utility>

#include "platform/qt/event_loop.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_policy.h"
#include "platform/qt/page_text.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/renderer_guard.h"

namespace brindlemoor {

namespace {

constexpr int kLoadLimit = 10'000;  // milliseconds

class RequestFilter : public QWebEngineUrlRequestInterceptor {
 public:
  RequestFilter(const PagePolicy& policy, QObject* parent)
      : QWebEngineUrlRequestInterceptor(parent), policy_(policy) {}
  void interceptRequest(QWebEngineUrlRequestInfo& request) override {
    // A request that is not touched goes on to the filter of its page, if one watches there.
    if (!policy_.AllowsResource(request.requestUrl())) request.block(true);
  }

 private:
  const PagePolicy& policy_;
};

void RestrictPages(QWebEngineSettings& settings) {
  using Settings = QWebEngineSettings;
  for (const auto attribute : {Settings::JavascriptEnabled,
                               Settings::JavascriptCanOpenWindows,
                               Settings::JavascriptCanAccessClipboard,
                               Settings::JavascriptCanPaste,
                               Settings::LocalStorageEnabled,
                               Settings::LocalContentCanAccessRemoteUrls,
                               Settings::HyperlinkAuditingEnabled,
                               Settings::PluginsEnabled,
                               Settings::FullScreenSupportEnabled,
                               Settings::ScreenCaptureEnabled,
                               Settings::WebGLEnabled,
                               Settings::Accelerated2dCanvasEnabled,
                               Settings::AutoLoadIconsForPage,
                               Settings::TouchIconsEnabled,
                               Settings::AllowRunningInsecureContent,
                               Settings::AllowGeolocationOnInsecureOrigins,
                               Settings::DnsPrefetchEnabled,
                               Settings::PdfViewerEnabled,
                               Settings::NavigateOnDropEnabled,
                               Settings::FocusOnNavigationEnabled}) {
    settings.setAttribute(attribute, false);
  }
  // Links such as "game:1:2" have schemes of their own; each is refused when it has been handed on.
  settings.setUnknownUrlSchemePolicy(Settings::AllowUnknownUrlSchemesFromUserInteraction);
}

/// Scroll bars that fit the dark windows. The script is the program's own and runs in a world of
/// its own; it touches nothing else of the page.
QWebEngineScript ScrollBarStyle() {
  QWebEngineScript script;
  script.setWorldId(QWebEngineScript::ApplicationWorld);
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  script.setRunsOnSubFrames(true);
  script.setSourceCode(R"(
(function() {
  const style = document.createElement('style');
  style.textContent =
      '::-webkit-scrollbar { width: 12px; height: 12px; background: #14171b; }' +
      '::-webkit-scrollbar-thumb { background: #454d57; border-radius: 6px; }' +
      '::-webkit-scrollbar-thumb:hover { background: #c99a4b; }' +
      '::-webkit-scrollbar-corner { background: #14171b; }';
  document.documentElement.appendChild(style);
})();
)");
  return script;
}

/// Takes the one navigation of a link that asks for a window of its own.
class LinkCatcher : public QWebEnginePage {
 public:
  LinkCatcher(QWebEngineProfile* profile, QObject* parent, std::function<void(const QUrl&)> take)
      : QWebEnginePage(profile, parent), take_(std::move(take)) {}

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override {
    take_(url);
    deleteLater();
    return false;
  }

 private:
  std::function<void(const QUrl&)> take_;
};

}  // namespace

std::unique_ptr<QWebEngineProfile> NewPageProfile(const PagePolicy& policy) {
  auto profile = std::make_unique<QWebEngineProfile>();
  profile->setHttpCacheType(QWebEngineProfile::NoCache);
  profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  profile->setSpellCheckEnabled(false);
  profile->setUrlRequestInterceptor(new RequestFilter(policy, profile.get()));
  RestrictPages(*profile->settings());
  // Pages that name no font read like the windows around them.
  profile->settings()->setFontFamily(QWebEngineSettings::StandardFont,
                                     QGuiApplication::font().family());
  profile->scripts()->insert(ScrollBarStyle());
  return profile;
}

std::string LinkText(const QUrl& url) {
  return QByteArray::fromPercentEncoding(url.toEncoded()).toStdString();
}

/// Lets the program's own loads through. A click is never followed by the browser: it is handed to
/// the desktop, which asks the logic when the browser engine is not on the stack.
class PageView::Page : public QWebEnginePage {
 public:
  Page(BrowserView& model, QtPlatform& desktop)
      : QWebEnginePage(&desktop.PageProfile()), model_(model), desktop_(desktop) {}

  QUrl OwnLoad;

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
    if (!isMainFrame) return desktop_.Policy().AllowsPage(url);
    if (type == NavigationTypeLinkClicked) {
      desktop_.QueueClick(model_, url);
      return false;
    }
    if (url == OwnLoad) return true;
    return type == NavigationTypeBackForward && desktop_.Policy().AllowsPage(url);
  }
  QWebEnginePage* createWindow(WebWindowType) override {
    return new LinkCatcher(profile(), this,
                           [this](const QUrl& url) { desktop_.QueueClick(model_, url); });
  }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                const QString&) override {}

 private:
  BrowserView& model_;
  QtPlatform& desktop_;
};

PageView::PageView(BrowserView& model, FormWindow& window)
    : QWebEngineView(&window), model_(model), window_(window) {
  TakeNewPage();
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void PageView::TakeNewPage() {
  guard_.reset();
  const std::unique_ptr<Page> before = std::move(page_);
  page_ = std::make_unique<Page>(model_, window_.Desktop());
  page_->setBackgroundColor(Qt::black);
  setPage(page_.get());
  connect(page_.get(), &QWebEnginePage::loadFinished, this, [this] { PageRead(); });
  guard_ = std::make_unique<RendererGuard>(*page_, [this](PageEnd end) {
    lost_ = true;
    ShowAsText(end == PageEnd::kMemory ? "This page needed too much memory and is shown as text."
                                       : "This page could not be shown and stands here as text.");
  });
}

PageView::~PageView() = default;

void PageView::PageRead() {
  setZoomFactor(window_.Zoom());
  if (focusWidget_ == focusProxy()) return;
  focusWidget_ = focusProxy();
  window_.OrderTabStops();
}

void PageView::ShowAsText(const QString& reason) {
  if (text_ == nullptr) {
    text_ = new QPlainTextEdit(this);
    text_->setObjectName("PageText");
    text_->setReadOnly(true);
  }
  text_->setPlainText(reason + "\n\n" + TextOfPage(page_->OwnLoad.toLocalFile()));
  text_->setGeometry(rect());
  text_->show();
  text_->raise();
}

void PageView::resizeEvent(QResizeEvent* event) {
  QWebEngineView::resizeEvent(event);
  if (text_ != nullptr) text_->setGeometry(rect());
}

void PageView::Load(const QUrl& url) {
  // What a lost page still announces must not be taken for news of this one.
  if (std::exchange(lost_, false)) TakeNewPage();
  page_->OwnLoad = url;
  if (QFileInfo(url.toLocalFile()).size() > kLongestPage) {
    ShowAsText("This page is too long and is shown as text.");
    return;
  }
  if (text_ != nullptr) text_->hide();
  guard_->PageBegins();
  QEventLoop loop;
  // A stop belongs to an earlier page that this one replaces. After a refused click the engine does
  // not announce the start, so only the end is waited for.
  const auto watch = connect(page_.get(), &QWebEnginePage::loadingChanged, &loop,
                             [&loop](const QWebEngineLoadingInfo& info) {
                               if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus ||
                                   info.status() == QWebEngineLoadingInfo::LoadFailedStatus) {
                                 loop.quit();
                               }
                             });
  const auto crash = connect(page_.get(), &QWebEnginePage::renderProcessTerminated, &loop,
                             [&loop] { loop.quit(); });
  QTimer::singleShot(kLoadLimit, &loop, &QEventLoop::quit);
  page_->load(url);
  WakeEventLoop();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  disconnect(watch);
  disconnect(crash);
}

}  // namespace brindlemoor
