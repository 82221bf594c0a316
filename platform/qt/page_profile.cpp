// Restrictions, filter and look of all pages.
#include "platform/qt/page_profile.h"

#include <QFont>
#include <QGuiApplication>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include "platform/qt/page_policy.h"

namespace brindlemoor {

namespace {

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

}  // namespace brindlemoor
