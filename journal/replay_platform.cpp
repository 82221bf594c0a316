// The desktop of a replay.
#include "journal/replay_platform.h"

#include <algorithm>
#include <utility>

#include "journal/replay_images.h"
#include "platform/controls.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kDeepest = 200;  // events and calls inside one another

class ReplayDocument : public PdfDocument {
 public:
  explicit ReplayDocument(JournalTape& tape) : tape_(tape) {}
  void AddPage(const PrintedPage&) override {}
  std::string Finish() override {
    if (tape_.Stopped()) return "";
    const JournalRecord& record = tape_.Expect("document", {}, "finishes a document for printing");
    return record.Fields[0] == "yes" ? "a document" : "";
  }

 private:
  JournalTape& tape_;
};

}  // namespace

/// A call in which events may have come, for as long as it lasts.
class ReplayPlatform::Call {
 public:
  explicit Call(ReplayPlatform& desktop) : desktop_(desktop) {
    desktop_.DeliverBehind();
    desktop_.moments_.BeginCall();
  }
  ~Call() { desktop_.moments_.EndCall(); }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  void DeliverEvents() const { desktop_.DeliverAt(desktop_.moments_.Now()); }

 private:
  ReplayPlatform& desktop_;
};

ReplayPlatform::ReplayPlatform(std::unique_ptr<FileSystem> files, JournalTape& tape)
    : Platform(std::move(files)), tape_(tape), images_(std::make_unique<ReplayImages>(tape)) {}

void ReplayPlatform::Play(const std::function<void()>& program) {
  try {
    moments_.BeginEvent(0);
    program();
    DeliverBehind();
    moments_.EndEvent();
    DeliverAll();
  } catch (const ReplayStopped&) {
    // The tape has the result.
  }
}

void ReplayPlatform::DeliverAll() {
  while (const JournalRecord* next = tape_.Next()) {
    if (next->Word == "end") {
      tape_.Take();
      continue;
    }
    const auto event = NextEvent();
    if (!event || event->When != Moment{}) tape_.Differ("the program waits for its user");
    DeliverNext();
  }
}

std::optional<RecordedEvent> ReplayPlatform::NextEvent() const {
  const JournalRecord* next = tape_.Next();
  if (next == nullptr || next->Word != "event") return std::nullopt;
  auto event = ReadEvent(next->Fields);
  if (!event) tape_.Damaged(*next);
  return event;
}

void ReplayPlatform::DeliverAt(const Moment& moment) {
  // Before the start and behind the end nothing waits for events.
  if (moment == Moment{}) return;
  for (auto event = NextEvent(); event && event->When == moment; event = NextEvent()) DeliverNext();
}

void ReplayPlatform::DeliverBehind() {
  const Moment now = moments_.InnermostEvent();
  for (auto event = NextEvent(); event && event->When.Behind; event = NextEvent()) {
    if (event->When.Event != now.Event || event->When.Call > now.Call) return;
    DeliverNext();
  }
}

void ReplayPlatform::DeliverNext() {
  const RecordedEvent recorded = *NextEvent();
  const JournalRecord& record = *tape_.Next();
  const auto form = forms_.find(recorded.Form);
  if (form == forms_.end()) tape_.Differ(Joined("no form ", recorded.Form, " was shown"));
  const std::string refusal = RefuseEvent(*form->second, recorded.Event);
  if (!refusal.empty()) tape_.Differ(refusal);
  if (moments_.Depth() >= kDeepest) tape_.Damaged(record);
  const std::string outer = std::exchange(
      tape_.Doing, Joined("event ", recorded.Number, " (", RowOf(recorded.Event.Kind).Word, " ",
                          recorded.Form, " ", recorded.Event.Control, ")"));
  tape_.Take();
  ++tape_.Result.Events;
  moments_.BeginEvent(recorded.Number);
  const bool answer = Deliver(*form->second, recorded.Event);
  DeliverBehind();
  moments_.EndEvent();
  if (recorded.Event.Kind == UserEventKind::kClose && !answer && !ending_) Hide(*form->second);
  // An event at rest goes on to the next one: whoever reads a difference behind it looks for it.
  if (moments_.Depth() > 0) tape_.Doing = outer;
}

void ReplayPlatform::ShowForm(Form& form, bool modal) {
  if (tape_.Stopped()) return;
  const Call call(*this);
  if (ending_) return;
  forms_[form.Name] = &form;
  form.Shown = true;
  if (modal) modal_.push_back({&form});
  call.DeliverEvents();
  if (!modal) return;
  const bool hidden = modal_.back().Hidden;
  modal_.pop_back();
  if (hidden || ending_) return;
  if (tape_.Next() == nullptr) tape_.Stop();
  tape_.Differ(Joined("the form ", form.Name, " is still open"));
}

void ReplayPlatform::Hide(Form& form) {
  form.Shown = false;
  for (ModalRun& run : modal_) {
    if (run.Shown == &form) run.Hidden = true;
  }
}

void ReplayPlatform::HideForm(Form& form) {
  if (tape_.Stopped()) return;
  const Call call(*this);
  Hide(form);
  call.DeliverEvents();
}

void ReplayPlatform::RaiseForm(Form&) {
  if (tape_.Stopped()) return;
  const Call call(*this);
  call.DeliverEvents();
}

void ReplayPlatform::MessageBox(std::string_view text) {
  if (tape_.Stopped()) return;
  const Call call(*this);
  call.DeliverEvents();
  tape_.Expect("message", {text}, "says");
}

std::optional<std::string> ReplayPlatform::Answer(std::string_view word, std::string_view asked,
                                                  std::string_view doing) {
  if (tape_.Stopped()) return std::nullopt;
  const Call call(*this);
  call.DeliverEvents();
  const JournalFields& fields = tape_.Expect(word, {asked}, doing).Fields;
  return fields.size() > 1 ? std::optional(fields[1]) : std::nullopt;
}

bool ReplayPlatform::AskYesNo(std::string_view text) {
  return Answer("question", text, "asks yes or no") == "yes";
}

SaveAnswer ReplayPlatform::AskSaving(std::string_view text) {
  return SaveAnswerOf(Answer("saving", text, "asks whether to save").value_or(""));
}

std::size_t ReplayPlatform::AskChoice(std::string_view text,
                                      const std::vector<std::string>& captions) {
  const auto chosen =
      std::ranges::find(captions, Answer("choice", text, "asks what to do").value_or(""));
  return static_cast<std::size_t>(std::min(chosen, captions.end() - 1) - captions.begin());
}

std::optional<std::string> ReplayPlatform::AskText(std::string_view prompt) {
  return Answer("input", prompt, "asks for a text");
}

std::optional<std::string> ReplayPlatform::ChooseFile(const FileDialogRequest& request) {
  return Answer(request.Save ? "savefile" : "openfile", request.FileName, "asks for a file");
}

std::optional<std::string> ReplayPlatform::ChooseFolder(std::string_view prompt) {
  return Answer("openfolder", prompt, "asks for a folder");
}

std::optional<std::int32_t> ReplayPlatform::AskColor(std::int32_t present) {
  const auto answer = Answer("color", std::to_string(present), "asks for a colour");
  return answer ? ReadInt(*answer) : std::nullopt;
}

std::vector<std::string> ReplayPlatform::Drives() const {
  if (tape_.Stopped()) return {};
  return tape_.Expect("drives", {}, "asks for the drives").Fields;
}

std::unique_ptr<PdfDocument> ReplayPlatform::NewPdf(PaperSize) {
  return std::make_unique<ReplayDocument>(tape_);
}

void ReplayPlatform::Navigate(BrowserView& view, const std::string& url) {
  if (tape_.Stopped()) return;
  const Call call(*this);
  tape_.Expect("show", {view.Name, url}, "shows");
  if (!ending_) view.Url = url;
  call.DeliverEvents();
}

void ReplayPlatform::PumpEvents() {
  if (tape_.Stopped()) return;
  const Call call(*this);
  call.DeliverEvents();
}

void ReplayPlatform::EndProgram() {
  ending_ = true;
  for (const auto& [name, form] : forms_) form->Shown = false;
}

std::uint64_t ReplayPlatform::ClockSeed() {
  if (tape_.Stopped()) return 0;
  const JournalRecord& record = tape_.Expect("clock", {}, "looks at the clock");
  const auto seed = ReadUnsigned(record.Fields[0]);
  if (!seed) tape_.Damaged(record);
  return *seed;
}

}  // namespace brindlemoor
