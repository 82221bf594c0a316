// What the desktop does while a handler works for long: windows are painted and menus open, but no
// event reaches the logic before the handler is done.
#include <QAction>
#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "platform/qt/event_loop.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_view.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/within.h"

namespace brindlemoor {

namespace {

constexpr qint64 kWorkBetweenLooks = 150;  // milliseconds
constexpr int kLongestLook = 20;           // milliseconds, if events come without end

/// Keeps clicks and keys from a page: it is the old one.
class PageGuard : public QObject {
 public:
  PageGuard() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::ContextMenu:
      case QEvent::KeyPress:
        return IsInPage(qobject_cast<QWidget*>(receiver));
      default:
        return false;
    }
  }

 private:
  static bool IsInPage(const QWidget* widget) {
    while (widget != nullptr && dynamic_cast<const PageView*>(widget) == nullptr) {
      widget = widget->parentWidget();
    }
    return widget != nullptr;
  }
};

/// Events that were meant for what was to be seen when they came.
bool IsMeantForWhatIsSeen(UserEventKind kind) {
  switch (kind) {
    case UserEventKind::kClick:
    case UserEventKind::kPress:
    case UserEventKind::kPointMove:
    case UserEventKind::kPointUp:
    case UserEventKind::kKey:
    case UserEventKind::kLink:
      return true;
    default:
      return false;
  }
}

/// Events that say nothing new when they come again.
bool ComesOnce(UserEventKind kind) {
  return kind == UserEventKind::kClose || kind == UserEventKind::kResize ||
         kind == UserEventKind::kTick;
}

/// The user could still do it: a handler may have hidden or disabled the control.
bool IsStillOffered(const FormWindow& window, const UserEvent& event) {
  if (!window.isVisible()) return false;
  if (event.Control.empty()) return true;
  const QString name = QString::fromStdString(event.Control);
  if (const auto* action = window.findChild<QAction*>(name)) {
    return action->isEnabled() && action->isVisible();
  }
  const auto* widget = window.findChild<QWidget*>(name);
  return widget == nullptr || (widget->isEnabled() && !widget->isHidden());
}

}  // namespace

void QtPlatform::ServeWindows() noexcept {
  if (looks_ || ending_) return;
  if (sinceEvents_.isValid() && sinceEvents_.hasExpired(kWorkBetweenLooks)) LookAtEvents();
}

void QtPlatform::LookAtEvents() {
  WakeEventLoop();
  const PageGuard guard;
  const Within look(looks_, true);
  // What is thrown in there goes no further than the application's notify.
  QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestLook);
  sinceEvents_.start();
  ServeWaiting();
}

bool QtPlatform::MustWait(const Form& form) const {
  // Where the handler pumps, an event must not overtake those that wait already.
  return looks_ ||
         (pumps_ && std::ranges::find(waiting_, &form, &WaitingEvent::Window) != waiting_.end());
}

void QtPlatform::Postpone(Form& form, const UserEvent& event) {
  FormWindow& window = WindowOf(form);
  const bool hasPages = std::any_of(views_.begin(), views_.end(),
                                    [&](const ViewPlace& view) { return view.Window == &window; });
  if (hasPages && IsMeantForWhatIsSeen(event.Kind)) return;
  const bool waits = std::ranges::any_of(waiting_, [&](const WaitingEvent& waiting) {
    return waiting.Window == &form && waiting.Event == event;
  });
  if (waits && ComesOnce(event.Kind)) return;
  waiting_.push_back({&form, event, handlers_});
  if (event.Kind == UserEventKind::kClose) window.ShowThatItCloses(true);
}

bool QtPlatform::DeliverNow(Form& form, const UserEvent& event) {
  bool answer = false;
  {
    const Within running(logicRuns_, true);
    const Within deeper(handlers_, handlers_ + 1);
    sinceEvents_.start();
    answer = Platform::Deliver(form, event);
  }
  ServeWaiting();
  return answer;
}

void QtPlatform::ServeWaiting() {
  if (waiting_.empty() && clicks_.empty() && !nextHover_ && !looksForWindows_) return;
  QTimer::singleShot(0, QCoreApplication::instance(), [this] {
    DeliverWaiting();
    DeliverClicks();
    DeliverHovers();
    if (looksForWindows_) EndWhenNothingIsShown();
  });
}

bool QtPlatform::CanBeDelivered(const WaitingEvent& waiting) const {
  const QWidget* modal = QApplication::activeModalWidget();
  return handlers_ < std::max(1, waiting.Handler) &&
         (modal == nullptr || modal == windows_.at(waiting.Window).get());
}

void QtPlatform::DeliverWaiting() {
  while (!looks_ && !logicRuns_ && pagesBeingRead_ == 0 && !ending_) {
    const auto next = std::ranges::find_if(
        waiting_, [this](const WaitingEvent& waiting) { return CanBeDelivered(waiting); });
    if (next == waiting_.end()) return;
    const WaitingEvent waiting = *next;
    waiting_.erase(next);
    const bool closes = waiting.Event.Kind == UserEventKind::kClose;
    FormWindow& window = WindowOf(*waiting.Window);
    if (closes) window.ShowThatItCloses(false);
    if (!IsStillOffered(window, waiting.Event)) continue;
    const bool stays = DeliverNow(*waiting.Window, waiting.Event);
    if (closes && !stays && !ending_) HideForm(*waiting.Window);
  }
}

}  // namespace brindlemoor
