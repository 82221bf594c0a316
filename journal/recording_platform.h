// RecordingPlatform: a desktop that tells a journal what its user does and what it answers.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "journal/moments.h"
#include "platform/platform.h"

namespace brindlemoor {

class JournalWriter;

/// Stands before the desktop of a program. It observes the user's events of that desktop and hands
/// on everything that the logic asks for.
class RecordingPlatform : public Platform, public EventObserver {
 public:
  /// folder is the program's folder, absolute. The head of the journal has been written.
  RecordingPlatform(std::shared_ptr<Platform> desktop, JournalWriter& writer,
                    const std::string& folder);
  ~RecordingPlatform() override;

  /// Starts the program.
  void Start(const std::function<void()>& program);
  /// The program has ended in order.
  void Finish();

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
  ImageLibrary& Images() override { return *images_; }
  std::unique_ptr<PdfDocument> NewPdf(PaperSize paper) override;
  void Navigate(BrowserView& view, const std::string& url) override;
  void PumpEvents() override;
  void ServeWindows() noexcept override { desktop_->ServeWindows(); }
  void EndProgram() override { desktop_->EndProgram(); }
  bool Ending() const override { return desktop_->Ending(); }
  std::uint64_t ClockSeed() override;

  void EventBegins(const Form& form, const UserEvent& event) override;
  void EventEnds() override { moments_.EndEvent(); }

 protected:
  std::optional<std::string> ChooseFile(const FileDialogRequest& request) override;
  std::optional<std::string> ChooseFolder(std::string_view prompt) override;

 private:
  std::shared_ptr<Platform> desktop_;
  JournalWriter& writer_;
  std::unique_ptr<ImageLibrary> images_;
  MomentCounter moments_;
  int events_ = 0;
};

}  // namespace brindlemoor
