// What a desktop answers to the logic is the same when a journal is played again on a machine that
// has none of it.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/state.h"
#include "journal/journal_writer.h"
#include "journal/recording_platform.h"
#include "journal/replay_files.h"
#include "journal/replay_platform.h"
#include "journal/session_journal.h"
#include "platform/headless/headless_platform.h"
#include "tests/journal/recorded_session.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Answers = std::vector<std::string>;

constexpr std::int32_t kRed = 0xFF0000;

std::string Printed(const std::optional<std::string>& answer) { return answer.value_or("none"); }

void AskImages(Platform& desktop, const std::string& outside, Answers& answers) {
  const ImageLibrary& images = desktop.Images();
  for (const ImageEncoder& encoder : images.Encoders()) {
    answers.push_back(Joined(int{encoder.Id[0]}, " ", encoder.FilenameExtension));
  }
  Raster picture;
  PictureSize size;
  for (const char* name : {"/picture.ppm", "/missing.ppm", "/text.txt"}) {
    answers.push_back(
        Joined(images.Load(outside + name, picture), " ", picture.Width(), " ", picture.Height()));
    answers.push_back(
        Joined(images.LoadSize(outside + name, size), " ", size.Width, " ", size.Height));
  }
  for (const std::uint8_t id : {2, 0}) {
    std::string bytes;
    const int status = images.Encode(picture, {id}, 90, bytes);
    answers.push_back(Joined(status, bytes.empty() ? " nothing" : " a file"));
  }
}

void AskFiles(FileSystem& files, const std::string& outside, Answers& answers) {
  answers.push_back(Joined(int{files.Exists(outside + "/text.txt")},
                           int{files.Exists(outside + "/missing.txt")},
                           int{files.FolderExists(outside + "/folder")},
                           int{files.FolderExists(outside + "/text.txt")}));
  for (const std::string& name : files.ListFiles(outside)) answers.push_back(name);
  for (const std::string& name : files.ListFolders(outside)) answers.push_back(name);
  answers.push_back(Printed(files.Read(outside + "/text.txt")));
  answers.push_back(Printed(files.Read(outside + "/missing.txt")));
  answers.push_back(files.Write(outside + "/folder", "x"));
  answers.push_back(files.Remove(outside + "/folder"));
  answers.push_back(files.Remove(outside + "/text.txt"));
}

/// Everything that the logic can ask a desktop for.
Answers AskEverything(Platform& desktop, const std::string& outside) {
  Answers answers;
  for (int n = 0; n < 2; ++n) {
    answers.emplace_back(desktop.AskYesNo("Sure?") ? "yes" : "no");
    answers.push_back(Joined("choice ", desktop.AskChoice("Which?", {"A", "B \"b\"", "C"})));
    answers.push_back(Printed(desktop.AskText("Name?")));
    for (const bool save : {false, true}) {
      answers.push_back(Printed(desktop.AskFile({.Save = save, .FileName = "*.txt"})));
    }
    answers.push_back(Printed(desktop.AskFolder("Where?")));
    answers.push_back(Joined(desktop.AskColor(kRed).value_or(-1)));
  }
  desktop.MessageBox("Done.");
  for (const std::string& drive : desktop.Drives()) answers.push_back(drive);
  for (int n = 0; n < 2; ++n) answers.push_back(Joined("clock ", desktop.ClockSeed()));
  AskImages(desktop, outside, answers);
  const auto document = desktop.NewPdf({210, 297});
  document->AddPage({});
  answers.emplace_back(document->Finish().empty() ? "no document" : "a document");
  AskFiles(desktop.Files(), outside, answers);
  return answers;
}

class PlatformAnswersTest : public testing::Test {
 protected:
  PlatformAnswersTest() {
    fs::remove_all(root_);
    fs::create_directories(root_ / "game");
    fs::create_directories(root_ / "outside/folder/full");
    WriteBytes(root_ / "outside/text.txt", "a text");
    WriteBytes(root_ / "outside/picture.ppm", MemoryImageLibrary::PixmapBytes(Raster(2, 3)));
  }
  ~PlatformAnswersTest() override {
    State() = Session{};
    fs::remove_all(root_);
  }
  std::string Folder() const { return (root_ / "game").string(); }
  std::string Outside() const { return (root_ / "outside").string(); }

  std::string Record() {
    const std::string path = (root_ / "answers.journal").string();
    JournalWriter writer;
    EXPECT_EQ(writer.Open(path), "");
    auto desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>(), 7);
    desktop->AcceptMessages = true;
    desktop->YesNoAnswers = {true, false};
    desktop->ChoiceAnswers = {"B \"b\"", "A"};
    desktop->TextAnswers = {"Ann \"A\"\n", std::nullopt};
    desktop->FileAnswers = {"/in.txt", "/out.txt", std::nullopt, std::nullopt};
    desktop->FolderAnswers = {"/my folder", std::nullopt};
    desktop->ColorAnswers = {0x112233, std::nullopt};
    WriteSessionHead(writer, {Folder(), false, 7}, desktop->Files());
    RecordingPlatform recorder(desktop, writer, Folder());
    recorder.Start([&] { recorded_ = AskEverything(recorder, Outside()); });
    recorder.Finish();
    EXPECT_TRUE(desktop->UnexpectedDialogs.empty());
    return ReadBytes(path);
  }
  ReplayResult Replay(const std::string& bytes) {
    Journal journal;
    EXPECT_EQ(ReadJournal(bytes, journal), "");
    JournalTape tape(journal.Records);
    ReplayPlatform desktop(std::make_unique<ReplayFiles>(journal, tape, Folder()), tape);
    replayed_.clear();
    desktop.Play([&] { replayed_ = AskEverything(desktop, Outside()); });
    return tape.Result;
  }

  const fs::path root_ =
      fs::path(testing::TempDir()) / ("brindlemoor_answers_" + std::to_string(::getpid()));
  Answers recorded_;
  Answers replayed_;
};

TEST_F(PlatformAnswersTest, AreTheSameWhereNothingOfTheMachineIsLeft) {
  const std::string journal = Record();
  for (const char* answer : {"yes", "Ann \"A\"\n", "/out.txt", "/my folder", "1122867", "clock 7",
                             "clock 8", "0 2 3", "a document", "a text"}) {
    EXPECT_NE(std::find(recorded_.begin(), recorded_.end(), answer), recorded_.end()) << answer;
  }
  fs::remove_all(root_ / "outside");
  const ReplayResult result = Replay(journal);
  EXPECT_EQ(result.Difference, "");
  EXPECT_EQ(replayed_, recorded_);
}

TEST_F(PlatformAnswersTest, ALineOfSomethingElseEndsTheReplay) {
  const std::string journal = Record();
  for (const char* word : {"encoders", "load", "size", "encode", "drives", "document", "color",
                           "clock", "question", "openfolder", "message"}) {
    const std::size_t line = journal.find(Joined("\n", word, " ")) + 1;
    ASSERT_NE(line, 0U) << word;
    EXPECT_NE(Replay(journal.substr(0, line) + "message other\n" + journal.substr(line)).Difference,
              "")
        << word;
    EXPECT_TRUE(replayed_.empty()) << word;
  }
  const struct {
    const char* word;
    const char* tail;
  } rows[] = {
      {"load", " 0 -2 3"}, {"load", " 0 99999 99999"}, {"load", " 0 x 3"},     {"size", " 0 0 0"},
      {"encode", " x"},    {"clock", " soon"},         {"encoders", " 1 2 3"},
  };
  for (const auto& [word, tail] : rows) {
    const std::size_t line = journal.find(Joined("\n", word, " ")) + 1;
    const std::size_t end = journal.find('\n', line);
    std::string text = journal.substr(line, end - line);
    if (std::string_view(word) == "load" || std::string_view(word) == "size") {
      text.resize(text.find(".ppm") + 4 + (text.find(".ppm\"") != text.npos ? 1 : 0));
    } else {
      text = word;
    }
    const ReplayResult result = Replay(journal.substr(0, line) + text + tail + journal.substr(end));
    EXPECT_NE(result.Problem + result.Difference, "") << text << tail;
    EXPECT_TRUE(replayed_.empty()) << text << tail;
  }
}

}  // namespace
}  // namespace brindlemoor
