// PageView: the widget of a browser view.
#pragma once

#include <QUrl>
#include <QWebEngineView>
#include <memory>

#include "platform/controls.h"

class QPlainTextEdit;
class QWebEngineProfile;

namespace brindlemoor {

class FormWindow;
class PagePolicy;
class QtPlatform;
class RendererGuard;

/// The profile of all pages: nothing is stored, scripts and the like are off, and every request
/// goes by the policy, which the profile does not outlive.
std::unique_ptr<QWebEngineProfile> NewPageProfile(const PagePolicy& policy);

/// A link's URL as the program's logic reads it: the scheme in lower case, escapes resolved.
std::string LinkText(const QUrl& url);

class PageView : public QWebEngineView {
 public:
  PageView(BrowserView& model, FormWindow& window);
  ~PageView() override;

  /// Shows a page and returns when it has been read (or after a time limit). Events run meanwhile,
  /// but no input of the user. A page that is too long, takes too much memory or ends its renderer
  /// is shown as text, with the reason.
  void Load(const QUrl& url);

  QSize sizeHint() const override { return {180, 90}; }
  QSize minimumSizeHint() const override { return {120, 60}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Page;

  void TakeNewPage();
  void PageRead();
  /// Shows the text of the page that was loaded last in front of the view, under a sentence.
  void ShowAsText(const QString& reason);

  BrowserView& model_;
  FormWindow& window_;
  bool lost_ = false;               // the renderer of the page has gone
  QWidget* focusWidget_ = nullptr;  // known to the tab order
  QPlainTextEdit* text_ = nullptr;  // stands in for a page that can't be shown
  std::unique_ptr<Page> page_;      // goes before the view that shows it
  std::unique_ptr<RendererGuard> guard_;
};

}  // namespace brindlemoor
