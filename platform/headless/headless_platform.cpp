// The desktop without a display.
#include "platform/headless/headless_platform.h"

#include <algorithm>

#include "platform/controls.h"
#include "text/addresses.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

class KeptDocument : public PdfDocument {
 public:
  explicit KeptDocument(std::vector<PrintedPage>& pages) : pages_(pages) {}
  void AddPage(const PrintedPage& page) override {
    pages_.push_back(page);
    ++count_;
  }
  std::string Finish() override { return Joined(count_, " pages"); }

 private:
  std::vector<PrintedPage>& pages_;
  int count_ = 0;
};

}  // namespace

void HeadlessPlatform::ShowForm(Form& form, bool modal) {
  form.Shown = true;
  if (form.Activate) Deliver(form, {.Kind = UserEventKind::kActivate});
  if (!modal || !form.Shown) return;
  if (ModalForms.empty()) {
    UnexpectedDialogs.push_back("modal form " + form.Name);
  } else {
    auto user = std::move(ModalForms.front());
    ModalForms.pop_front();
    user(form);
  }
  form.Shown = false;
}

void HeadlessPlatform::HideForm(Form& form) { form.Shown = false; }

void HeadlessPlatform::RaiseForm(Form&) { ++Raised; }

bool HeadlessPlatform::Expects(std::string_view message) const {
  if (ExpectedMessages.empty()) return false;
  return std::ranges::equal(ExpectedMessages.front(), message, [this](char expected, char found) {
    const bool lineEnd = found == '\n' || found == '\r';
    return expected == found || (BlanksForLineEnds && expected == ' ' && lineEnd);
  });
}

void HeadlessPlatform::MessageBox(std::string_view text) {
  Messages.emplace_back(text);
  if (Expects(text)) {
    ExpectedMessages.pop_front();
  } else if (!AcceptMessages) {
    UnexpectedDialogs.push_back(Joined("message box: ", text));
  }
}

template <class Answer>
Answer HeadlessPlatform::TakeAnswer(std::deque<Answer>& answers, std::string_view dialog,
                                    std::string_view text) {
  if (answers.empty()) {
    UnexpectedDialogs.push_back(Joined(dialog, ": ", text));
    return Answer{};
  }
  Answer answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

bool HeadlessPlatform::AskYesNo(std::string_view text) {
  YesNoQuestions.emplace_back(text);
  return TakeAnswer(YesNoAnswers, "question", text);
}

SaveAnswer HeadlessPlatform::AskSaving(std::string_view text) {
  return TakeAnswer(SaveAnswers, "question about saving", text);
}

std::size_t HeadlessPlatform::AskChoice(std::string_view text,
                                        const std::vector<std::string>& captions) {
  Choices.emplace_back(text);
  const std::string answer = TakeAnswer(ChoiceAnswers, "choice", text);
  const auto chosen = std::ranges::find(captions, answer);
  if (chosen != captions.end()) return static_cast<std::size_t>(chosen - captions.begin());
  if (!answer.empty()) UnexpectedDialogs.push_back(Joined("no button ", answer, ": ", text));
  return captions.size() - 1;
}

std::optional<std::string> HeadlessPlatform::AskText(std::string_view prompt) {
  Questions.emplace_back(prompt);
  return TakeAnswer(TextAnswers, "input box", prompt);
}

std::optional<std::string> HeadlessPlatform::ChooseFile(const FileDialogRequest& request) {
  return TakeAnswer(FileAnswers, request.Save ? "save dialog" : "open dialog", request.FileName);
}

std::optional<std::string> HeadlessPlatform::ChooseFolder(std::string_view prompt) {
  return TakeAnswer(FolderAnswers, "folder dialog", prompt);
}

std::unique_ptr<PdfDocument> HeadlessPlatform::NewPdf(PaperSize paper) {
  PrintedOn = paper;
  return std::make_unique<KeptDocument>(Printed);
}

std::optional<std::int32_t> HeadlessPlatform::AskColor(std::int32_t) {
  return TakeAnswer(ColorAnswers, "colour dialog", "");
}

void HeadlessPlatform::Navigate(BrowserView& view, const std::string& url) {
  Navigations.push_back(view.Name + " " + url);
  view.Url = url;
  const std::string path = PathOfUrl(url);
  if (path.empty()) return;
  auto bytes = Files().Read(path);
  Pages[view.Name] = bytes.value_or("");
}

void HeadlessPlatform::PumpEvents() {
  if (OnPump) OnPump();
}

}  // namespace brindlemoor
