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

#include "platform/qt/event_loop.h"
#include "platform/qt/form_window.h"
#include "platform/qt/page_view.h"

namespace brindlemoor {

QtPlatform::QtPlatform(std::unique_ptr<FileSystem> files, const std::string& folder,
                       std::optional<std::uint64_t> seed)
    : Platform(std::move(files)),
      policy_(QString::fromStdString(folder)),
      profile_(NewPageProfile(policy_)),
      lastFolder_(QString::fromStdString(folder)),
      seed_(seed) {
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
  clicks_.clear();
  views_.clear();
  windows_.clear();
}

FormWindow& QtPlatform::WindowOf(Form& form) {
  auto& window = windows_[&form];
  if (window == nullptr) window = std::make_unique<FormWindow>(form, *this);
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
      if (view.value()->window() == &window && !url.empty()) Navigate(*view.key(), url);
    }
  }
  if (form.Activate) form.Activate();
  if (!modal || ending_ || !form.Shown) return;
  QEventLoop loop;
  modal_.push_back({&form, &loop});
  WakeEventLoop();
  loop.exec();
  modal_.pop_back();
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
  if (PageView* widget = views_.value(&view)) LoadPage(*widget, QUrl(QString::fromStdString(url)));
}

void QtPlatform::LoadPage(PageView& view, const QUrl& url) {
  ++pagesBeingRead_;
  view.Load(url);
  --pagesBeingRead_;
  if (!clicks_.empty()) {
    QTimer::singleShot(0, QCoreApplication::instance(), [this] { DeliverClicks(); });
  }
}

void QtPlatform::QueueClick(BrowserView& view, const QUrl& url) {
  if (ending_) return;
  clicks_.push_back({&view, url});
  QTimer::singleShot(0, QCoreApplication::instance(), [this] { DeliverClicks(); });
}

void QtPlatform::DeliverClicks() {
  while (pagesBeingRead_ == 0 && !ending_ && !clicks_.empty()) {
    const LinkClick click = clicks_.front();
    clicks_.pop_front();
    const auto& handler = click.View->BeforeNavigate;
    if (handler && handler(LinkText(click.Url))) continue;
    PageView* widget = views_.value(click.View);
    if (!ending_ && widget != nullptr && policy_.AllowsPage(click.Url)) {
      LoadPage(*widget, click.Url);
    }
  }
}

void QtPlatform::Hover(PictureBox& picture) {
  nextHover_ = &picture;
  if (hovering_) return;
  hovering_ = true;
  while (nextHover_ != nullptr && !ending_) {
    PictureBox* current = std::exchange(nextHover_, nullptr);
    if (current->MouseMove) current->MouseMove();
  }
  hovering_ = false;
}

void QtPlatform::PumpEvents() {
  if (ending_) return;
  WakeEventLoop();
  ++pumpsRunning_;
  QCoreApplication::processEvents();
  --pumpsRunning_;
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
