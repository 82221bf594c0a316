// What a journal keeps of a folder: the players' files, and nothing that a link lends their names.
#include <filesystem>

#include "journal/recording_files.h"
#include "journal/start_state.h"
#include "tests/journal/recorded_session.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSecret = "the user's own";

class KeptFilesTest : public RecordedSession {
 protected:
  KeptFilesTest() {
    fs::create_directory(root_ / "home");
    WriteBytes(root_ / "home/id_rsa", kSecret);
    WriteBytes(root_ / "notes", kSecret);
  }
  void Link(const std::string& name, const fs::path& target) const {
    fs::create_symlink(target, root_ / "game" / name);
  }
};

TEST_F(KeptFilesTest, TheStateAtTheStartHoldsOnlyWhatIsAPlayers) {
  WriteBytes(root_ / "game/Ann_Wickwater.plr", "Ann's cards");
  Link("Bob.plr", "Ann_Wickwater.plr");
  for (const char* name : {"PlayerProfiles.txt", "wickwater/Eve.plr", "cards.txt.unsaved"}) {
    Link(name, root_ / "home/id_rsa");
  }
  Link("Debug.on", root_ / "notes");  // within reach, and no player's
  Link("Own.plr", "/proc/self/environ");
  Link("Secret.txt", root_ / "home/id_rsa");
  LocalFileSystem files;
  std::string kept;
  for (const JournalRecord& record : StartStateOf(files, Folder())) {
    if (record.Word == "keep") kept += Joined(record.Fields[0], "=", record.Fields[1], " ");
    for (const std::string& field : record.Fields) EXPECT_EQ(field.find(kSecret), field.npos);
  }
  EXPECT_EQ(kept, "Ann_Wickwater.plr=Ann's cards Bob.plr=Ann's cards ");
}

TEST_F(KeptFilesTest, ASessionTellsNoBytesOfWhatLinksLeadTo) {
  for (const char* name : {"Display.html", "CardDesc.html", "Ann_Wickwater.plr.before"}) {
    Link(name, root_ / "home/id_rsa");
  }
  Link("LastDiplayed.html", root_ / "notes");
  const std::string journal = Record([this] { PlayAWhile(); });
  EXPECT_EQ(journal.find(kSecret), journal.npos);
  EXPECT_EQ(ReadBytes(root_ / "home/id_rsa") + ReadBytes(root_ / "notes"),
            std::string(kSecret) + kSecret);
  EXPECT_EQ(Replay(journal).Difference, "");
}

TEST_F(KeptFilesTest, FilesBesideTheFolderAreToldIfTheyAreCardsOrChosen) {
  for (const char* name : {"notes", "chosen", "cards.txt", "Ann.plr"}) {
    WriteBytes(root_ / name, std::string("bytes of ") + name);
  }
  LocalFileSystem machine;
  JournalWriter writer;
  ASSERT_EQ(writer.Open((root_ / "outside.journal").string()), "");
  RecordingFiles files(machine, writer, Folder());
  files.TakeChoice((root_ / "chosen").string());
  for (const char* name : {"notes", "chosen", "cards.txt", "Ann.plr"}) {
    EXPECT_TRUE(files.Read((root_ / name).string())) << name;
    const bool told = ReadBytes(root_ / "outside.journal").find(std::string("bytes of ") + name) !=
                      std::string::npos;
    EXPECT_EQ(told, name != std::string("notes")) << name;
  }
}

TEST_F(KeptFilesTest, WhatOthersMakeOfAPlayersFileMeanwhileIsPlayedAgain) {
  const fs::path own = root_ / "game/Ann_Wickwater.plr";
  const std::string journal = Record([&] {
    PlayAWhile();
    const auto sell = [this](Form& decks) {
      Do(decks, {.Control = "Command5"});
      Do(decks, {.Kind = UserEventKind::kPress, .Control = "DeckPic(1)", .Number = 0});
      Do(decks, {.Kind = UserEventKind::kMenu, .Control = "quitmen"});
      Do(decks, {.Kind = UserEventKind::kClose});
    };
    const std::string bytes = ReadBytes(own);
    desktop_->SaveAnswers = {SaveAnswer::kCancel, SaveAnswer::kCancel};
    WriteBytes(own, bytes + "\r\n");
    // Sells, leaves the other file alone, gives up the match.
    desktop_->ChoiceAnswers = {"Give Up", "Give Up"};
    desktop_->YesNoAnswers = {true, false};
    desktop_->ModalForms.emplace_back(sell);
    Menu("deckmanagermen");
    fs::remove(own);
    fs::create_directory(own);  // which can't be read
    desktop_->YesNoAnswers = {true};
    desktop_->ModalForms.emplace_back(sell);
    Menu("deckmanagermen");
    EXPECT_TRUE(desktop_->ChoiceAnswers.empty());
    EXPECT_TRUE(desktop_->YesNoAnswers.empty() && desktop_->SaveAnswers.empty());
    EXPECT_NE(desktop_->Messages.back().find("can't be read"), std::string::npos);
    fs::remove(own);
    WriteBytes(own, bytes);
  });
  EXPECT_EQ(Replay(journal).Difference, "");
}

TEST_F(KeptFilesTest, ASecondProgramIsPlayedAgainWithItsOwnPages) {
  const std::string journal = Record([this] { PlayAWhile(); }, true, 2);
  EXPECT_NE(journal.find("write Display-2.html"), journal.npos);
  EXPECT_FALSE(fs::exists(root_ / "game/Display.html"));
  WriteBytes(root_ / "game/.brindlemoor-1.lock", "");
  EXPECT_EQ(Replay(journal).Difference, "");
  EXPECT_TRUE(fileDifferences_.empty());
}

TEST_F(KeptFilesTest, AJournalIsNotWrittenThroughALink) {
  for (const char* target : {"home/id_rsa", "home/new"}) {
    fs::remove(root_ / "session.journal");
    fs::create_symlink(root_ / target, root_ / "session.journal");
    JournalWriter writer;
    EXPECT_EQ(writer.Open((root_ / "session.journal").string()),
              Joined("The journal ", (root_ / "session.journal").string(), " is there already."));
    EXPECT_FALSE(writer.Works());
  }
  EXPECT_EQ(ReadBytes(root_ / "home/id_rsa"), kSecret);
  EXPECT_FALSE(fs::exists(root_ / "home/new"));
}

}  // namespace
}  // namespace brindlemoor
