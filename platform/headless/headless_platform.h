// HeadlessPlatform: a desktop without a display, for tests and for games that play themselves.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/headless/memory_images.h"
#include "platform/platform.h"

namespace brindlemoor {

/// Keeps what a desktop would show and answers dialogs from queues. A dialog that nobody expected
/// is kept in UnexpectedDialogs with its text and answered as if it had been cancelled.
class HeadlessPlatform : public Platform {
 public:
  /// seed is the first number of the sequence that stands for the clock.
  explicit HeadlessPlatform(std::unique_ptr<FileSystem> files, std::uint64_t seed = 1)
      : Platform(std::move(files)), seed_(seed), images_(Files()) {}

  // What the caller prepares.
  std::deque<std::string> ExpectedMessages;  ///< message boxes to come, whole texts
  std::deque<bool> YesNoAnswers;
  std::deque<SaveAnswer> SaveAnswers;
  std::deque<std::string> ChoiceAnswers;               ///< captions
  std::deque<std::optional<std::string>> TextAnswers;  ///< nothing stands for a cancel
  std::deque<std::optional<std::string>> FileAnswers;
  std::deque<std::optional<std::string>> FolderAnswers;
  std::deque<std::optional<std::int32_t>> ColorAnswers;
  std::deque<std::function<void(Form&)>> ModalForms;  ///< plays the user of each modal form
  std::function<void()> OnPump;                       ///< events that wait
  std::function<void()> OnWork;                       ///< in the middle of long work
  bool AcceptMessages = false;                        ///< message boxes need not be expected
  bool BlanksForLineEnds = false;  ///< a blank of an expected message may stand for a line end

  // What the caller finds.
  std::vector<std::string> Messages;        ///< every message box
  std::vector<std::string> Questions;       ///< prompt of every input box
  std::vector<std::string> YesNoQuestions;  ///< every question for yes or no
  std::vector<std::string> Choices;         ///< every question with captions of its own
  std::vector<std::string> UnexpectedDialogs;
  std::map<std::string, std::string> Pages;  ///< bytes of the page each view shows, by its name
  std::vector<std::string> Navigations;      ///< "view url" in order
  std::vector<PrintedPage> Printed;          ///< pages of every document
  PaperSize PrintedOn;
  int Raised = 0;

  void ShowForm(Form& form, bool modal) override;
  void HideForm(Form& form) override;
  void RaiseForm(Form& form) override;
  void MessageBox(std::string_view text) override;
  bool AskYesNo(std::string_view text) override;
  SaveAnswer AskSaving(std::string_view text) override;
  std::size_t AskChoice(std::string_view text, const std::vector<std::string>& captions) override;
  std::optional<std::string> AskText(std::string_view prompt) override;
  std::optional<std::int32_t> AskColor(std::int32_t present) override;
  std::vector<std::string> Drives() const override { return {"/"}; }
  MemoryImageLibrary& Images() override { return images_; }
  /// The bytes of its documents say how many pages they have.
  std::unique_ptr<PdfDocument> NewPdf(PaperSize paper) override;
  void Navigate(BrowserView& view, const std::string& url) override;
  void PumpEvents() override;
  void ServeWindows() noexcept override {
    if (OnWork) OnWork();
  }
  void EndProgram() override { ending_ = true; }
  bool Ending() const override { return ending_; }
  std::uint64_t ClockSeed() override { return seed_++; }
  /// What ClockSeed gives next.
  std::uint64_t Clock() const { return seed_; }
  void SetClock(std::uint64_t seed) { seed_ = seed; }

 protected:
  std::optional<std::string> ChooseFile(const FileDialogRequest& request) override;
  std::optional<std::string> ChooseFolder(std::string_view prompt) override;

 private:
  /// True when the next expected message is this one.
  bool Expects(std::string_view message) const;
  template <class Answer>
  Answer TakeAnswer(std::deque<Answer>& answers, std::string_view dialog, std::string_view text);

  std::uint64_t seed_;
  MemoryImageLibrary images_;
  bool ending_ = false;
};

}  // namespace brindlemoor
