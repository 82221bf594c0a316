// The profile chooser: its buttons, new players and the list on disk.
#include "ui/profile_menu.h"

#include <gtest/gtest.h>

#include "support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class ProfileMenuTest : public SessionTest {
 protected:
  /// Opens the chooser and lets the user click one button.
  void Choose(int button) {
    desktop_->ModalForms.push_back([button](Form& form) {
      static_cast<ProfileMenu&>(form).Command1[static_cast<std::size_t>(button)]->Click();
    });
    ChooseProfile();
  }
  std::vector<std::string> Captions(const ProfileMenu& form) const {
    std::vector<std::string> captions;
    for (const auto& button : form.Command1) captions.push_back(button->Caption);
    return captions;
  }
  void WriteProfiles(int count) {
    std::string lines;
    for (int number = 1; number <= count; ++number) {
      lines += "\"#PLAYERPROFILE\",\"P" + std::to_string(number) + "\",\":\",\"\",\"\",\"\"\r\n";
    }
    WriteFile("PlayerProfiles.txt", lines);
  }
};

TEST_F(ProfileMenuTest, FirstRunOffersANewPlayer) {
  desktop_->TextAnswers = {"Ann"};
  Choose(0);
  EXPECT_EQ(State().Profile.PlayerName, "Ann");
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"),
            "\"#PLAYERPROFILE\",\"Ann\",\":\",\"\",\"\",\"\"\r\n\r\n");
}

TEST_F(ProfileMenuTest, TheFreeElementOfAnEmptyListSelectsNobody) {
  Choose(1);
  EXPECT_EQ(State().Profile.PlayerName, "");
}

TEST_F(ProfileMenuTest, EmptyButtonsBehindItAskForANameAsWell) {
  desktop_->TextAnswers = {"Bo"};
  Choose(5);
  EXPECT_EQ(State().Profile.PlayerName, "Bo");
}

TEST_F(ProfileMenuTest, ACancelledNameIsNotKept) {
  desktop_->TextAnswers = {std::nullopt};
  Choose(0);
  EXPECT_EQ(State().Profile.PlayerName, "");
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), "\r\n");
}

TEST_F(ProfileMenuTest, NamesThatNoFileCanHaveAreRefusedWithTheReason) {
  desktop_->AcceptMessages = true;
  desktop_->TextAnswers = {"a/b", "..", std::string(300, 'x'), "   ", "Zoë"};
  Choose(0);
  EXPECT_EQ(desktop_->Messages.size(), 4u);
  EXPECT_EQ(State().Profile.PlayerName, "Zoë");
}

TEST_F(ProfileMenuTest, AKnownProfileBringsItsPlayerFile) {
  WriteFile("PlayerProfiles.txt",
            "noise, \"#PLAYERPROFILE\",\"Ann\",\"Ann_G.plr:G.txt\",\"\",\"\",\"\"\r\n");
  WriteFile("Ann_G.plr", "#PLAYERDECK\r\n\r\n#TOKENS, 77\r\n");
  Choose(1);
  EXPECT_EQ(State().Profile.PlayerName, "Ann");
  EXPECT_EQ(State().Profile.PlayerFile, "Ann_G.plr");
  EXPECT_EQ(State().Profile.RulesFile, "G.txt");
  EXPECT_EQ(State().Players[1].Tokens, 77);
}

TEST_F(ProfileMenuTest, NineProfilesScroll) {
  WriteProfiles(9);
  desktop_->ModalForms.push_back([this](Form& shown) {
    auto& form = static_cast<ProfileMenu&>(shown);
    EXPECT_TRUE(form.VScroll1.Visible);
    EXPECT_EQ(form.VScroll1.Maximum.Get(), 2);
    EXPECT_EQ(Captions(form),
              (std::vector<std::string>{"New Player", "P1", "P2", "P3", "P4", "P5", "P6", "P7"}));
    form.VScroll1.Value = 2;
    form.VScroll1.Change();
    EXPECT_EQ(Captions(form),
              (std::vector<std::string>{"P2", "P3", "P4", "P5", "P6", "P7", "P8", "P9"}));
    form.Command1[7]->Click();
  });
  ChooseProfile();
  EXPECT_EQ(State().Profile.PlayerName, "P9");
}

TEST_F(ProfileMenuTest, SevenProfilesDoNot) {
  WriteProfiles(7);
  desktop_->ModalForms.push_back(
      [](Form& shown) { EXPECT_FALSE(static_cast<ProfileMenu&>(shown).VScroll1.Visible); });
  ChooseProfile();
}

TEST_F(ProfileMenuTest, ClosingWithoutAPlayerEndsTheProgram) {
  TheProfileMenu().QueryClose();
  EXPECT_TRUE(desktop_->Ending());
}

}  // namespace
}  // namespace brindlemoor
