// Pages in a browser view, and clicks on their links.
#include "platform/qt/page_view.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTimer>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <utility>

#include "platform/qt/event_loop.h"
#include "platform/qt/page_policy.h"
#include "platform/qt/page_text.h"
#include "platform/qt/renderer_guard.h"

namespace brindlemoor {

namespace {

constexpr int kLoadLimit = 10'000;  // milliseconds

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

std::string LinkText(const QUrl& url) {
  return QByteArray::fromPercentEncoding(url.toEncoded()).toStdString();
}

/// Lets the program's own loads through. A click is never followed by the browser: the view tells
/// of it.
class PageView::Page : public QWebEnginePage {
 public:
  Page(QWebEngineProfile& profile, const PagePolicy& policy, const PageView& view)
      : QWebEnginePage(&profile), policy_(policy), view_(view) {}

  QUrl OwnLoad;

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
    if (!isMainFrame) return policy_.AllowsPage(url);
    if (type == NavigationTypeLinkClicked) {
      view_.OnLink(url);
      return false;
    }
    if (url == OwnLoad) return true;
    return type == NavigationTypeBackForward && policy_.AllowsPage(url);
  }
  QWebEnginePage* createWindow(WebWindowType) override {
    return new LinkCatcher(profile(), this, [this](const QUrl& url) { view_.OnLink(url); });
  }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                const QString&) override {}

 private:
  const PagePolicy& policy_;
  const PageView& view_;
};

PageView::PageView(QWebEngineProfile& profile, const PagePolicy& policy, QWidget* parent)
    : QWebEngineView(parent), profile_(profile), policy_(policy) {
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] {
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == window()) OnPoint(pointed_);
  });
  TakeNewPage();
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void PageView::TakeNewPage() {
  guard_.reset();
  const std::unique_ptr<Page> before = std::move(page_);
  page_ = std::make_unique<Page>(profile_, policy_, *this);
  page_->setBackgroundColor(Qt::black);
  setPage(page_.get());
  connect(page_.get(), &QWebEnginePage::loadFinished, this, [this] { PageRead(); });
  connect(page_.get(), &QWebEnginePage::linkHovered, this,
          [this](const QString& link) { PointAt(QUrl(link)); });
  guard_ = std::make_unique<RendererGuard>(*page_, [this](PageEnd end) {
    lost_ = true;
    ShowAsText(end == PageEnd::kMemory ? "This page needed too much memory and is shown as text."
                                       : "This page could not be shown and stands here as text.");
  });
}

PageView::~PageView() = default;

void PageView::SetZoom(double zoom) {
  zoom_ = zoom;
  setZoomFactor(zoom);
}

void PageView::SetAdditions(const QString& script) {
  if (std::exchange(additions_, script) != script) Add();
}

void PageView::Add() {
  if (!additions_.isEmpty()) {
    page_->runJavaScript(additions_, QWebEngineScript::ApplicationWorld);
  }
}

void PageView::PointAt(const QUrl& link) {
  pointed_ = link;
  if (link.isEmpty()) {
    rest_.stop();
  } else {
    rest_.start(pointDelay_);  // the browser engine is on the stack now
  }
}

void PageView::PageRead() {
  setZoomFactor(zoom_);
  Add();
  if (keyTaker_ == focusProxy()) return;
  keyTaker_ = focusProxy();
  OnKeyTakerChange();
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
  rest_.stop();
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
  // Of another place in the page that is shown nothing is read; the new address is all that comes.
  const bool sameFile = url.hasFragment() && url.matches(page_->url(), QUrl::RemoveFragment);
  const auto move = connect(page_.get(), &QWebEnginePage::urlChanged, &loop, [&loop, sameFile] {
    if (sameFile) loop.quit();
  });
  QTimer::singleShot(kLoadLimit, &loop, &QEventLoop::quit);
  page_->load(url);
  WakeEventLoop();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  disconnect(watch);
  disconnect(crash);
  disconnect(move);
}

}  // namespace brindlemoor
