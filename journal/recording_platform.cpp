// Telling a journal about events and answers.
#include "journal/recording_platform.h"

#include <utility>

#include "journal/journal_writer.h"
#include "journal/recording_files.h"
#include "journal/session_words.h"
#include "platform/controls.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// A call of the logic in which events may run, for as long as it lasts.
class Call {
 public:
  explicit Call(MomentCounter& moments) : moments_(moments) { moments_.BeginCall(); }
  ~Call() { moments_.EndCall(); }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

 private:
  MomentCounter& moments_;
};

/// The fields of an answer that a cancel leaves out.
JournalFields WithAnswer(std::string_view asked, const std::optional<std::string>& answer) {
  JournalFields fields{std::string(asked)};
  if (answer) fields.push_back(*answer);
  return fields;
}

class RecordingImages : public ImageLibrary {
 public:
  RecordingImages(ImageLibrary& below, JournalWriter& writer) : below_(below), writer_(writer) {}

  std::vector<ImageEncoder> Encoders() const override {
    std::vector<ImageEncoder> encoders = below_.Encoders();
    writer_.Add("encoders", FieldsOf(encoders));
    return encoders;
  }
  int Load(const std::string& path, Raster& picture) const override {
    const int status = below_.Load(path, picture);
    Tell("load", path, status, {picture.Width(), picture.Height()});
    return status;
  }
  int LoadSize(const std::string& path, PictureSize& size) const override {
    const int status = below_.LoadSize(path, size);
    Tell("size", path, status, size);
    return status;
  }
  int Encode(const Raster& picture, const ImageEncoderId& encoder, std::optional<int> quality,
             std::string& bytes) const override {
    const int status = below_.Encode(picture, encoder, quality, bytes);
    writer_.Add("encode", {std::to_string(status)});
    return status;
  }

 private:
  void Tell(std::string_view word, const std::string& path, int status, PictureSize size) const {
    if (status != kImageOk) size = {};
    writer_.Add(word, {path, std::to_string(status), std::to_string(size.Width),
                       std::to_string(size.Height)});
  }

  ImageLibrary& below_;
  JournalWriter& writer_;
};

class RecordingDocument : public PdfDocument {
 public:
  RecordingDocument(std::unique_ptr<PdfDocument> below, JournalWriter& writer)
      : below_(std::move(below)), writer_(writer) {}
  void AddPage(const PrintedPage& page) override { below_->AddPage(page); }
  std::string Finish() override {
    std::string bytes = below_->Finish();
    writer_.Add("document", {bytes.empty() ? "no" : "yes"});
    return bytes;
  }

 private:
  std::unique_ptr<PdfDocument> below_;
  JournalWriter& writer_;
};

}  // namespace

RecordingPlatform::RecordingPlatform(std::shared_ptr<Platform> desktop, JournalWriter& writer,
                                     const std::string& folder)
    : Platform(std::make_unique<RecordingFiles>(desktop->Files(), writer, folder)),
      desktop_(std::move(desktop)),
      writer_(writer),
      images_(std::make_unique<RecordingImages>(desktop_->Images(), writer)) {
  desktop_->SetObserver(this);
}

RecordingPlatform::~RecordingPlatform() { desktop_->SetObserver(nullptr); }

void RecordingPlatform::Start(const std::function<void()>& program) {
  moments_.BeginEvent(0);
  program();
  moments_.EndEvent();
}

void RecordingPlatform::Finish() { writer_.End(); }

void RecordingPlatform::EventBegins(const Form& form, const UserEvent& event) {
  const int number = ++events_;
  writer_.Add("event", EventFields(number, moments_.Now(), form.Name, event));
  moments_.BeginEvent(number);
}

void RecordingPlatform::ShowForm(Form& form, bool modal) {
  const Call call(moments_);
  desktop_->ShowForm(form, modal);
}

void RecordingPlatform::HideForm(Form& form) {
  const Call call(moments_);
  desktop_->HideForm(form);
}

void RecordingPlatform::RaiseForm(Form& form) {
  const Call call(moments_);
  desktop_->RaiseForm(form);
}

void RecordingPlatform::MessageBox(std::string_view text) {
  const Call call(moments_);
  desktop_->MessageBox(text);
  writer_.Add("message", {std::string(text)});
}

bool RecordingPlatform::AskYesNo(std::string_view text) {
  const Call call(moments_);
  const bool answer = desktop_->AskYesNo(text);
  writer_.Add("question", {std::string(text), answer ? "yes" : "no"});
  return answer;
}

SaveAnswer RecordingPlatform::AskSaving(std::string_view text) {
  const Call call(moments_);
  const SaveAnswer answer = desktop_->AskSaving(text);
  writer_.Add("saving", {std::string(text), WordOf(answer)});
  return answer;
}

std::size_t RecordingPlatform::AskChoice(std::string_view text,
                                         const std::vector<std::string>& captions) {
  const Call call(moments_);
  const std::size_t answer = desktop_->AskChoice(text, captions);
  writer_.Add("choice", {std::string(text), captions[answer]});
  return answer;
}

std::optional<std::string> RecordingPlatform::AskText(std::string_view prompt) {
  const Call call(moments_);
  auto answer = desktop_->AskText(prompt);
  writer_.Add("input", WithAnswer(prompt, answer));
  return answer;
}

std::optional<std::string> RecordingPlatform::ChooseFile(const FileDialogRequest& request) {
  const Call call(moments_);
  auto answer = desktop_->AskFile(request);
  writer_.Add(request.Save ? "savefile" : "openfile", WithAnswer(request.FileName, answer));
  return answer;
}

std::optional<std::string> RecordingPlatform::ChooseFolder(std::string_view prompt) {
  const Call call(moments_);
  auto answer = desktop_->AskFolder(prompt);
  writer_.Add("openfolder", WithAnswer(prompt, answer));
  return answer;
}

std::optional<std::int32_t> RecordingPlatform::AskColor(std::int32_t present) {
  const Call call(moments_);
  const auto answer = desktop_->AskColor(present);
  writer_.Add("color", WithAnswer(std::to_string(present),
                                  answer ? std::optional(std::to_string(*answer)) : std::nullopt));
  return answer;
}

std::vector<std::string> RecordingPlatform::Drives() const {
  std::vector<std::string> drives = desktop_->Drives();
  writer_.Add("drives", drives);
  return drives;
}

std::unique_ptr<PdfDocument> RecordingPlatform::NewPdf(PaperSize paper) {
  return std::make_unique<RecordingDocument>(desktop_->NewPdf(paper), writer_);
}

void RecordingPlatform::Navigate(BrowserView& view, const std::string& url) {
  const Call call(moments_);
  writer_.Add("show", {view.Name, url});
  desktop_->Navigate(view, url);
}

void RecordingPlatform::PumpEvents() {
  const Call call(moments_);
  desktop_->PumpEvents();
}

std::uint64_t RecordingPlatform::ClockSeed() {
  const std::uint64_t seed = desktop_->ClockSeed();
  writer_.Add("clock", {std::to_string(seed)});
  return seed;
}

}  // namespace brindlemoor
