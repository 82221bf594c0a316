// ReplayPlatform: a desktop without a display whose user and whose answers are those of a journal.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "journal/journal_tape.h"
#include "journal/moments.h"
#include "journal/session_words.h"
#include "platform/platform.h"

namespace brindlemoor {

/// Delivers the events of a journal at the moments at which they came, inside of dialogs, modal
/// forms and event pumps too.
class ReplayPlatform : public Platform {
 public:
  /// The tape outlives the platform.
  ReplayPlatform(std::unique_ptr<FileSystem> files, JournalTape& tape);

  /// Starts the program and does what its user did, until the journal ends or something differs.
  void Play(const std::function<void()>& program);

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
  void EndProgram() override;
  bool Ending() const override { return ending_; }
  std::uint64_t ClockSeed() override;

 protected:
  std::optional<std::string> ChooseFile(const FileDialogRequest& request) override;
  std::optional<std::string> ChooseFolder(std::string_view prompt) override;

 private:
  class Call;
  struct ModalRun {
    const Form* Shown;
    bool Hidden = false;
  };

  void DeliverAll();
  /// Delivers the events that came at a moment.
  void DeliverAt(const Moment& moment);
  /// Delivers the events that came behind the calls of the event in progress.
  void DeliverBehind();
  void DeliverNext();
  /// The event that comes next; nothing when that is something else.
  std::optional<RecordedEvent> NextEvent() const;
  void Hide(Form& form);
  std::optional<std::string> Answer(std::string_view word, std::string_view asked,
                                    std::string_view doing);

  JournalTape& tape_;
  std::unique_ptr<ImageLibrary> images_;
  MomentCounter moments_;
  std::map<std::string, Form*> forms_;  // that were shown, by name
  std::vector<ModalRun> modal_;
  bool ending_ = false;
};

}  // namespace brindlemoor
