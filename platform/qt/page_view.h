// PageView: the widget of a browser view.
#pragma once

#include <QTimer>
#include <QUrl>
#include <QWebEngineView>
#include <functional>
#include <memory>
#include <string>

class QPlainTextEdit;
class QWebEngineProfile;

namespace brindlemoor {

class PagePolicy;
class RendererGuard;

/// A link's URL as the program's logic reads it: the scheme in lower case, escapes resolved.
std::string LinkText(const QUrl& url);

/// Goes to no page by itself: it tells of the link that was clicked. What it tells is set once it
/// has been made.
class PageView : public QWebEngineView {
 public:
  PageView(QWebEngineProfile& profile, const PagePolicy& policy, QWidget* parent);
  ~PageView() override;

  /// A link was clicked. The browser engine is on the stack then.
  std::function<void(const QUrl&)> OnLink;
  /// The pointer has rested on a link, or the focus came to it.
  std::function<void(const QUrl&)> OnPoint;
  /// Another widget behind the view takes its keys now.
  std::function<void()> OnKeyTakerChange;

  /// Shows a page and returns when it has been read (or after a time limit). Events run meanwhile,
  /// but no input of the user. A page that is too long, takes too much memory or ends its renderer
  /// is shown as text, with the reason.
  void Load(const QUrl& url);
  /// The size of this page and of all that follow; 1 is their own.
  void SetZoom(double zoom);
  /// How long the pointer rests on a link until it is told of, in milliseconds.
  void SetPointDelay(int delay) { pointDelay_ = delay; }
  /// A script of the program's own that is run on this page and on all that follow, in a world
  /// beside theirs.
  void SetAdditions(const QString& script);

  QSize sizeHint() const override { return {180, 90}; }
  QSize minimumSizeHint() const override { return {120, 60}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Page;

  void TakeNewPage();
  void PageRead();
  void Add();
  void PointAt(const QUrl& link);
  /// Shows the text of the page that was loaded last in front of the view, under a sentence.
  void ShowAsText(const QString& reason);

  QWebEngineProfile& profile_;
  const PagePolicy& policy_;
  double zoom_ = 1.0;
  QTimer rest_;  // of the pointer
  QUrl pointed_;
  int pointDelay_ = 0;
  QString additions_;
  bool lost_ = false;               // the renderer of the page has gone
  QWidget* keyTaker_ = nullptr;     // as it was told last
  QPlainTextEdit* text_ = nullptr;  // stands in for a page that can't be shown
  std::unique_ptr<Page> page_;      // goes before the view that shows it
  std::unique_ptr<RendererGuard> guard_;
};

}  // namespace brindlemoor
