// Opening game archives by the menu: what is shown, asked and done.
#include "ui/archive_form.h"

#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kArchive = "/downloads/Goblins.zip";

class ArchiveFormTest : public SessionTest {
 protected:
  ArchiveFormTest() {
    State().Profile.PlayerName = "Ann";
    std::string bytes;
    desktop_->Archives().Write({{{"Goblins.txt", "#GAMERULES, Goblins, , #102030, goblins, \n"},
                                 {"art/a.png", "12345"},
                                 {"goblins/Cards.txt", "cards"}}},
                               bytes);
    files_->Contents[kArchive] = bytes;
  }

  /// Opens it by the menu and presses a button of the form; the form as it was shown then.
  void Choose(Button ArchiveForm::*button) {
    desktop_->FileAnswers.emplace_back(kArchive);
    desktop_->ModalForms.push_back([this, button](Form& form) {
      auto& shown = static_cast<ArchiveForm&>(form);
      head_ = shown.Head.Caption;
      counts_ = shown.Counts.Caption;
      entries_ = shown.Entries.Items;
      offersReplacing_ = shown.Replace.Visible && shown.KeepMine.Visible;
      EXPECT_NE(offersReplacing_, shown.PutThere.Visible.Get());
      (shown.*button).Click();
    });
    TheMainWindow().openarchivemen.Click();
  }

  std::string head_;
  std::string counts_;
  std::vector<std::string> entries_;
  bool offersReplacing_ = false;
};

TEST_F(ArchiveFormTest, ANewGameIsShownAndComesIntoTheList) {
  desktop_->AcceptMessages = true;
  Choose(&ArchiveForm::PutThere);
  EXPECT_EQ(head_, "Goblins: 3 files, 52 bytes");
  EXPECT_EQ(counts_, "3 new.");
  EXPECT_EQ(entries_[1], "art/a.png  (new, 5 bytes)");
  EXPECT_FALSE(offersReplacing_);
  EXPECT_EQ(ReadFile("goblins/Cards.txt"), "cards");
  EXPECT_EQ(desktop_->Messages.back(), "Goblins: 3 files put into the folder.");
  ASSERT_EQ(State().Games.UpperBound(), 1);
  EXPECT_EQ(State().Games[1].Name, "Goblins");
  EXPECT_NE(desktop_->Pages["WB"].find("Goblins"), std::string::npos);
}

TEST_F(ArchiveFormTest, FilesThatDifferAreListedFirstAndStayUnlessTheyMayGo) {
  desktop_->AcceptMessages = true;
  WriteFile("goblins/Cards.txt", "mine");
  WriteFile("art/a.png", "12345");
  Choose(&ArchiveForm::CancelButton);
  EXPECT_EQ(entries_, (std::vector<std::string>{"goblins/Cards.txt  (unlike yours, 5 bytes)",
                                                "Goblins.txt  (new, 42 bytes)",
                                                "art/a.png  (there already, 5 bytes)"}));
  EXPECT_EQ(counts_, "1 unlike yours, 1 new, 1 there already.");
  EXPECT_EQ(ReadFile("Goblins.txt"), "(no such file)");
  Choose(&ArchiveForm::KeepMine);
  EXPECT_TRUE(offersReplacing_);
  EXPECT_EQ(ReadFile("goblins/Cards.txt"), "mine");
  EXPECT_NE(ReadFile("Goblins.txt"), "(no such file)");
  Choose(&ArchiveForm::Replace);
  EXPECT_EQ(ReadFile("goblins/Cards.txt"), "cards");
  EXPECT_EQ(ReadFile("goblins/Cards.txt.old~"), "mine");
  EXPECT_NE(desktop_->Messages.back().find("kept as:\ngoblins/Cards.txt.old~"), std::string::npos);
  desktop_->FileAnswers.emplace_back(kArchive);
  TheMainWindow().openarchivemen.Click();
  EXPECT_EQ(desktop_->Messages.back(), "Goblins: all files are in the folder already.");
}

TEST_F(ArchiveFormTest, WhatCantBeOpenedIsToldAndChangesNothing) {
  const auto before = files_->Contents;
  files_->Contents["/downloads/bad.zip"] = "FILES\nLINK 1 art/a.png\nx";
  const struct {
    const char* Path;
    const char* Told;
  } cases[] = {
      {"/downloads/bad.zip", "The archive has the entry \"art/a.png\", which is a link."},
      {"/downloads/gone.zip", "gone.zip"},
  };
  desktop_->AcceptMessages = true;
  for (const auto& row : cases) {
    desktop_->FileAnswers.emplace_back(row.Path);
    TheMainWindow().openarchivemen.Click();
    EXPECT_NE(desktop_->Messages.back().find(row.Told), std::string::npos)
        << desktop_->Messages.back();
  }
  files_->Contents.erase("/downloads/bad.zip");
  EXPECT_EQ(files_->Contents, before);
  State().TestFromEditor = 1;
  TheMainWindow().openarchivemen.Click();
  EXPECT_EQ(desktop_->Messages.back(), "An archive can be opened when the test is done.");
}

TEST_F(ArchiveFormTest, AnOpeningThatFailsSaysSo) {
  desktop_->AcceptMessages = true;
  files_->WriteError = "no space left";
  Choose(&ArchiveForm::PutThere);
  EXPECT_NE(desktop_->Messages.back().find("was not put into the folder: Goblins.txt: no space"),
            std::string::npos);
}

}  // namespace
}  // namespace brindlemoor
