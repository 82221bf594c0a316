// What windows and the bindings of their controls ask of the desktop that they belong to.
#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/user_events.h"

class QUrl;
class QWebEngineProfile;

namespace brindlemoor {

class FormWindow;
class LetterSizes;
class PagePolicy;
class PageView;
class PictureCache;

class WindowHost {
 public:
  /// Hands an event of the user to the logic.
  virtual bool Deliver(Form& form, const UserEvent& event) = 0;
  virtual void HideForm(Form& form) = 0;
  /// Whether the program is being ended.
  virtual bool Ending() const = 0;
  /// True while the logic waits for a page to be read, or lets events run in between.
  virtual bool InsideLogic() const = 0;

  virtual PictureCache& Pictures() = 0;
  virtual LetterSizes& Letters() = 0;
  /// The pointer or the focus came to a picture or a link. While an earlier one is still being
  /// served, or the logic is in the middle of something, only the last is kept, so that a wild
  /// pointer does not nest handlers without end.
  virtual void Hover(Form& form, UserEvent event) = 0;

  virtual QWebEngineProfile& PageProfile() = 0;
  virtual const PagePolicy& Policy() const = 0;
  /// The widget of a view and the window that it is in.
  virtual void AddView(BrowserView& model, FormWindow& window, PageView& widget) = 0;
  /// Asks the logic about a click on a link as soon as no page is being read.
  virtual void QueueClick(BrowserView& view, const QUrl& url) = 0;

 protected:
  ~WindowHost() = default;
};

}  // namespace brindlemoor
