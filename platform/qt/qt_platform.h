// QtPlatform: the desktop with real windows.
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QUrl>
#include <deque>
#include <map>
#include <optional>
#include <vector>

#include "platform/controls.h"
#include "platform/platform.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/letter_sizes.h"
#include "platform/qt/page_policy.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/qt_image_library.h"
#include "platform/qt/window_host.h"

class QDialog;
class QEventLoop;
class QWebEngineProfile;
class QWidget;

namespace brindlemoor {

class FormWindow;
class PageView;

/// Needs a QApplication that lives longer. Forms must live until CloseWindows.
class QtPlatform : public Platform, public WindowHost {
 public:
  /// folder is the program's folder. A seed replaces the clock.
  QtPlatform(std::unique_ptr<FileSystem> files, const std::string& folder,
             std::optional<std::uint64_t> seed);
  ~QtPlatform() override;

  /// Serves events until the program ends.
  void Run();
  /// Takes all windows down. The forms may go afterwards.
  void CloseWindows();

  void ShowForm(Form& form, bool modal) override;
  void HideForm(Form& form) override;
  void RaiseForm(Form& form) override;
  void MessageBox(std::string_view text) override;
  bool AskYesNo(std::string_view text) override;
  SaveAnswer AskSaving(std::string_view text) override;
  std::size_t AskChoice(std::string_view text, const std::vector<std::string>& captions) override;
  std::optional<std::string> AskText(std::string_view prompt) override;
  std::optional<std::int32_t> AskColor(std::int32_t present) override;
  std::vector<std::string> Drives() const override;
  QtImageLibrary& Images() override { return images_; }
  std::unique_ptr<PdfDocument> NewPdf(PaperSize paper) override;
  void Navigate(BrowserView& view, const std::string& url) override;
  void PumpEvents() override;
  void ServeWindows() noexcept override;
  void EndProgram() override;
  bool Ending() const override { return ending_; }
  std::uint64_t ClockSeed() override;

  // What windows and bindings ask.

  bool Deliver(Form& form, const UserEvent& event) override;
  bool InsideLogic() const override { return pagesBeingRead_ > 0 || pumpsRunning_ > 0 || looks_; }
  PictureCache& Pictures() override { return pictures_; }
  LetterSizes& Letters() override { return letters_; }
  void Hover(Form& form, UserEvent event) override;
  QWebEngineProfile& PageProfile() override { return *profile_; }
  const PagePolicy& Policy() const override { return policy_; }
  void AddView(BrowserView& model, FormWindow& window, PageView& widget) override {
    views_.insert(&model, {&window, &widget});
  }
  void QueueClick(BrowserView& view, const QUrl& url) override;

 protected:
  std::optional<std::string> ChooseFile(const FileDialogRequest& request) override;
  std::optional<std::string> ChooseFolder(std::string_view prompt) override;

 private:
  struct ModalRun {
    Form* Shown;
    QEventLoop* Loop;
  };
  struct HoverEvent {
    Form* Window;
    UserEvent Event;
  };
  struct ViewPlace {
    FormWindow* Window = nullptr;
    PageView* Widget = nullptr;
  };
  struct LinkClick {
    BrowserView* View;
    QUrl Url;
  };
  struct WaitingEvent {
    Form* Window;
    UserEvent Event;
    int Handler;  ///< how deep the handler is nested that it waits for
  };

  FormWindow& WindowOf(Form& form);
  /// The window that a new modal window or dialog stands before; nothing before the first one.
  QWidget* Owner() const;
  /// Runs a dialog; true when it was accepted.
  bool RunDialog(QDialog& dialog);
  void LoadPage(PageView& view, const QUrl& url);
  void DeliverClicks();
  void DeliverHovers();
  void EndWhenNothingIsShown();

  // Events that come while a handler works (events_during_work.cpp).
  void LookAtEvents();
  bool MustWait(const Form& form) const;
  void Postpone(Form& form, const UserEvent& event);
  bool DeliverNow(Form& form, const UserEvent& event);
  /// Serves what waits for the end of a handler, as soon as an event loop runs.
  void ServeWaiting();
  void DeliverWaiting();
  bool CanBeDelivered(const WaitingEvent& waiting) const;

  PagePolicy policy_;
  PictureCache pictures_;
  LetterSizes letters_;
  HeldKeys heldKeys_;
  QtImageLibrary images_;
  std::unique_ptr<QWebEngineProfile> profile_;
  std::map<Form*, std::unique_ptr<FormWindow>> windows_;
  QHash<BrowserView*, ViewPlace> views_;
  std::vector<ModalRun> modal_;
  std::vector<QDialog*> dialogs_;
  std::deque<LinkClick> clicks_;
  std::deque<WaitingEvent> waiting_;
  std::optional<HoverEvent> nextHover_;
  QString lastFolder_;  // of the file dialogs
  std::optional<std::uint64_t> seed_;
  int pagesBeingRead_ = 0;
  int pumpsRunning_ = 0;
  int handlers_ = 0;              // events that are being delivered, one within the other
  QElapsedTimer sinceEvents_;     // since events could last run
  bool looks_ = false;            // at events in the middle of work
  bool pumps_ = false;            // a pump runs the innermost event loop
  bool looksForWindows_ = false;  // whether one is left, when the handler is done
  bool hovering_ = false;
  bool logicRuns_ = false;  // a handler, which waits for nothing at the moment
  bool running_ = false;
  bool ending_ = false;
};

}  // namespace brindlemoor
