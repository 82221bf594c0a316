// Windows, pages and events of the desktop.
#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <QWebEngineProfile>
#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/qt/event_loop.h"
#include "platform/qt/form_building.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_profile.h"
#include "platform/qt/page_view.h"
#include "platform/qt/spoken_widget.h"
#include "platform/qt/within.h"

namespace brindlemoor {

QtPlatform::QtPlatform(std::unique_ptr<FileSystem> files, const std::string& folder,
                       std::optional<std::uint64_t> seed)
    : Platform(std::move(files)),
      policy_(QString::fromStdString(folder)),
      pictures_(Files()),
      letters_(Files(), folder),
      images_(Files()),
      profile_(NewPageProfile(policy_)),
      lastFolder_(QString::fromStdString(folder)),
      seed_(seed) {
  SpeakForOwnWidgets();
  // Windows hide and show one another; the program ends by EndProgram.
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

QtPlatform::~QtPlatform() { CloseWindows(); }

void QtPlatform::Run() {
  if (ending_) return;
  running_ = true;
  QCoreApplication::exec();
  running_ = false;
  ending_ = true;
}

void QtPlatform::CloseWindows() {
  ending_ = true;
  waiting_.clear();
  clicks_.clear();
  views_.clear();
  windows_.clear();
}

FormWindow& QtPlatform::WindowOf(Form& form) {
  auto& window = windows_[&form];
  if (window == nullptr) window = BuildWindow(form, *this);
  return *window;
}

QWidget* QtPlatform::Owner() const {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && active->isVisible()) return active;
  if (!modal_.empty()) return windows_.at(modal_.back().Shown).get();
  for (const auto& [form, window] : windows_) {
    if (window->isVisible()) return window.get();
  }
  return nullptr;
}

void QtPlatform::ShowForm(Form& form, bool modal) {
  if (ending_) return;
  const bool isNew = !windows_.contains(&form);
  FormWindow& window = WindowOf(form);
  QWidget* owner = Owner();
  form.Shown = true;
  window.Present(modal, owner == &window ? nullptr : owner);
  if (isNew) {
    // What was to be seen in views that had no widget yet.
    for (auto view = views_.constBegin(); view != views_.constEnd(); ++view) {
      const std::string& url = view.key()->Url.Get();
      if (view.value().Window == &window && !url.empty()) Navigate(*view.key(), url);
    }
  }
  if (form.Activate) Deliver(form, {.Kind = UserEventKind::kActivate});
  if (!modal || ending_ || !form.Shown) return;
  QEventLoop loop;
  modal_.push_back({&form, &loop});
  WakeEventLoop();
  {
    const Within waiting(logicRuns_, false);
    const Within noPump(pumps_, false);
    loop.exec();
  }
  modal_.pop_back();
  ServeWaiting();
}

void QtPlatform::HideForm(Form& form) {
  form.Shown = false;
  const auto entry = windows_.find(&form);
  if (entry == windows_.end()) return;
  entry->second->hide();
  for (const ModalRun& run : modal_) {
    if (run.Shown == &form) run.Loop->quit();
  }
  if (ending_) return;
  if (QWidget* owner = Owner(); owner != nullptr) owner->activateWindow();
  QTimer::singleShot(0, QCoreApplication::instance(), [this] { EndWhenNothingIsShown(); });
}

/// A program without any window could never be ended by its user.
void QtPlatform::EndWhenNothingIsShown() {
  if (looks_) {
    looksForWindows_ = true;
    return;
  }
  looksForWindows_ = false;
  const bool idle = running_ && !ending_ && QThread::currentThread()->loopLevel() == 1;
  if (!idle) return;
  const bool shown = std::any_of(windows_.begin(), windows_.end(),
                                 [](const auto& entry) { return entry.second->isVisible(); });
  if (!shown) EndProgram();
}

void QtPlatform::RaiseForm(Form& form) {
  if (ending_ || !form.Shown) return;
  FormWindow& window = WindowOf(form);
  if (window.isMinimized()) window.showNormal();
  window.raise();
  window.activateWindow();
}

void QtPlatform::Navigate(BrowserView& view, const std::string& url) {
  if (ending_) return;
  view.Url = url;
  // A view without a widget yet shows the page when its window comes up.
  if (PageView* widget = views_.value(&view).Widget)
    LoadPage(*widget, QUrl(QString::fromStdString(url)));
}

void QtPlatform::LoadPage(PageView& view, const QUrl& url) {
  const Within waiting(logicRuns_, false);
  ++pagesBeingRead_;
  view.Load(url);
  --pagesBeingRead_;
  sinceEvents_.start();
  ServeWaiting();
}

void QtPlatform::QueueClick(BrowserView& view, const QUrl& url) {
  if (ending_ || looks_) return;
  clicks_.push_back({&view, url});
  QTimer::singleShot(0, QCoreApplication::instance(), [this] { DeliverClicks(); });
}

void QtPlatform::DeliverClicks() {
  while (!looks_ && pagesBeingRead_ == 0 && !ending_ && !clicks_.empty()) {
    const LinkClick click = clicks_.front();
    clicks_.pop_front();
    const ViewPlace place = views_.value(click.View);
    if (place.Window == nullptr) continue;
    const bool taken = place.Window->Deliver(
        {.Kind = UserEventKind::kLink, .Control = click.View->Name, .Text = LinkText(click.Url)});
    if (!taken && !ending_ && policy_.AllowsPage(click.Url)) {
      LoadPage(*place.Widget, click.Url);
    }
  }
}

bool QtPlatform::Deliver(Form& form, const UserEvent& event) {
  if (!MustWait(form)) return DeliverNow(form, event);
  Postpone(form, event);
  return true;
}

void QtPlatform::Hover(Form& form, UserEvent event) {
  nextHover_ = {&form, std::move(event)};
  if (logicRuns_) {
    // The focus moved because a handler hides or disables what had it.
    QTimer::singleShot(0, QCoreApplication::instance(), [this] { DeliverHovers(); });
  } else {
    DeliverHovers();
  }
}

void QtPlatform::DeliverHovers() {
  if (hovering_ || logicRuns_ || looks_ || pagesBeingRead_ > 0) return;
  const Within hovering(hovering_, true);
  while (nextHover_ && !ending_) {
    const HoverEvent next = *std::exchange(nextHover_, std::nullopt);
    Deliver(*next.Window, next.Event);
  }
}

void QtPlatform::PumpEvents() {
  if (ending_) return;
  WakeEventLoop();
  const Within waiting(logicRuns_, false);
  const Within pump(pumps_, true);
  ++pumpsRunning_;
  QCoreApplication::processEvents();
  --pumpsRunning_;
  sinceEvents_.start();
}

void QtPlatform::EndProgram() {
  ending_ = true;
  for (auto& [form, window] : windows_) {
    form->Shown = false;
    window->hide();
  }
  for (QDialog* dialog : dialogs_) dialog->reject();
  for (const ModalRun& run : modal_) run.Loop->quit();
  QCoreApplication::exit(0);
}

std::uint64_t QtPlatform::ClockSeed() {
  if (seed_) return (*seed_)++;
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

}  // namespace brindlemoor
