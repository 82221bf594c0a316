// RecordedSession: a session of the shipped game, recorded without a display and played again.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "core/state.h"
#include "editor/program_session.h"
#include "game/program_start.h"
#include "journal/journal_writer.h"
#include "journal/recording_platform.h"
#include "journal/session_journal.h"
#include "platform/headless/headless_platform.h"
#include "ui/forms.h"

namespace brindlemoor {

inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

/// A folder of the test's own, with a copy of the games in "game"; gone at the end.
class RecordedSession : public testing::Test {
 protected:
  RecordedSession() {
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_);
    std::filesystem::copy(std::string(BRINDLEMOOR_SOURCE_DIR) + "/games", root_ / "game",
                          std::filesystem::copy_options::recursive);
  }
  ~RecordedSession() override {
    State() = Session{};
    std::filesystem::remove_all(root_);
  }

  std::string Folder() const { return (root_ / "game").string(); }

  /// Records a program that a user uses; the bytes of its journal.
  template <class User>
  std::string Record(User user, bool ends = true, int copy = 1) {
    const std::filesystem::path path = root_ / "session.journal";
    std::filesystem::remove(path);
    JournalWriter writer;
    EXPECT_EQ(writer.Open(path.string()), "");
    auto desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>(), 7);
    desktop_ = desktop.get();
    desktop_->AcceptMessages = true;
    WriteSessionHead(writer, {Folder(), false, 7, copy}, desktop->Files());
    auto recorder = std::make_shared<RecordingPlatform>(desktop, writer, Folder());
    OpenProgramSession(recorder, Folder());
    State().CopyOfProgram = copy;
    desktop_->ModalForms.emplace_back([this](Form& menu) {
      const bool known = std::filesystem::exists(root_ / "game/PlayerProfiles.txt");
      if (!known) desktop_->TextAnswers = {"Ann"};
      Do(menu, {.Control = known ? "Command1(1)" : "Command1(0)"});
    });
    recorder->Start(StartProgram);
    user();
    if (ends) recorder->Finish();
    EXPECT_TRUE(desktop_->UnexpectedDialogs.empty());
    State() = Session{};
    return ReadBytes(path);
  }

  /// The user does something.
  void Do(Form& form, const UserEvent& event) {
    EXPECT_EQ(RefuseEvent(form, event), "");
    desktop_->Deliver(form, event);
  }
  void Link(const std::string& link) {
    Do(TheMainWindow(),
       {.Kind = UserEventKind::kLink, .Control = "WB", .Text = "file://" + Folder() + "/" + link});
  }
  void Menu(const std::string& item) {
    Do(TheMainWindow(), {.Kind = UserEventKind::kMenu, .Control = item});
  }
  void TakeTurn() { Do(TheMainWindow(), {.Control = "Command1"}); }

  /// A new player opens the chest, fills a deck and takes a turn; the pointer wanders meanwhile.
  void PlayAWhile() {
    Link("GAME:1:2");
    Menu("newgamemen");
    desktop_->ModalForms.emplace_back([this](Form& decks) {
      Do(decks, {.Control = "AddAll"});
      Do(decks, {.Kind = UserEventKind::kType, .Control = "SearchText", .Text = "HP>=3"});
      Do(decks, {.Kind = UserEventKind::kHover, .Control = "DeckPic(1)"});
      desktop_->TextAnswers = {"\"Best\" deck\\"};
      Do(decks, {.Control = "Command4(0)"});
      Do(decks, {.Control = "Command2"});
    });
    Link("GAME:1:4");
    Do(TheMainWindow(), {.Kind = UserEventKind::kPress, .Control = "Picture2(1)", .Number = 0});
    desktop_->OnPump = [this] {
      desktop_->OnPump = nullptr;
      Do(TheMainWindow(), {.Kind = UserEventKind::kHover, .Control = "Picture2(2)"});
    };
    TakeTurn();
    Do(TheMainWindow(), {.Kind = UserEventKind::kHover, .Control = "Picture2(1)"});
    TakeTurn();
  }

  ReplayResult Replay(const std::string& bytes, const std::string& folder) {
    Journal journal;
    const std::string problem = ReadJournal(bytes, journal);
    if (!problem.empty()) return {.Problem = problem};
    return ReplaySession(
        journal, {.Folder = folder, .OnFiles = [this](const std::vector<std::string>& lines) {
                    fileDifferences_ = lines;
                  }});
  }
  ReplayResult Replay(const std::string& bytes) { return Replay(bytes, Folder()); }

  const std::filesystem::path root_ = std::filesystem::path(testing::TempDir()) /
                                      ("brindlemoor_journal_" + std::to_string(::getpid()));
  HeadlessPlatform* desktop_ = nullptr;
  std::vector<std::string> fileDifferences_;
};

}  // namespace brindlemoor
