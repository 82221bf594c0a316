// The profile chooser: its buttons, new players and the list on disk.
#include "ui/profile_menu.h"

#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class ProfileMenuTest : public SessionTest {
 protected:
  /// Opens the chooser and lets the user click one button. Returns who plays.
  std::string Choose(int button, std::vector<std::optional<std::string>> answers = {}) {
    State().Profile.PlayerName = "";
    desktop_->TextAnswers = {answers.begin(), answers.end()};
    desktop_->ModalForms.push_back([button](Form& form) {
      static_cast<ProfileMenu&>(form).Command1[static_cast<std::size_t>(button)]->Click();
    });
    ChooseProfile();
    return State().Profile.PlayerName.Str();
  }
};

TEST_F(ProfileMenuTest, FirstRunOffersANewPlayer) {
  EXPECT_EQ(Choose(0, {std::nullopt}), "") << "a cancelled name is not kept";
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), "\r\n");
  EXPECT_EQ(Choose(1), "") << "the free element of an empty list selects nobody";
  EXPECT_EQ(Choose(0, {"Ann"}), "Ann");
  EXPECT_EQ(State().Players[1].Tokens, 500);
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"),
            "\"#PLAYERPROFILE\",\"Ann\",\":\",\"\",\"\",\"\"\r\n\r\n");
  EXPECT_EQ(Choose(5, {"Bo"}), "Bo") << "empty buttons ask for a name as well";
}

TEST_F(ProfileMenuTest, NamesThatNoFileCanHaveAreRefusedWithTheReason) {
  desktop_->AcceptMessages = true;
  EXPECT_EQ(Choose(0, {"a/b", "..", std::string(300, 'x'), "   ", "Zoë"}), "Zoë");
  EXPECT_EQ(desktop_->Messages.size(), 4u);
}

TEST_F(ProfileMenuTest, APlayerOfAnotherProgramIsRefused) {
  EXPECT_EQ(Choose(0, {"Ann"}), "Ann");
  files_->OthersHold = true;
  desktop_->AcceptMessages = true;
  EXPECT_EQ(Choose(1), "");
  ASSERT_EQ(desktop_->Messages.size(), 1U);
  EXPECT_TRUE(desktop_->Messages[0].starts_with("Ann is playing in another window"));
  EXPECT_EQ(Choose(0, {"Bo", std::nullopt}), "") << "made by another program just now";
  EXPECT_EQ(ReadFile("PlayerProfiles.txt").find("Bo"), std::string::npos);
  files_->OthersHold = false;
  EXPECT_EQ(Choose(1), "Ann");
}

TEST_F(ProfileMenuTest, MoreThanSevenProfilesScroll) {
  const auto captions = [](const ProfileMenu& form) {
    std::string all;
    for (const auto& button : form.Command1) all += Joined(button->Caption.Get(), " ");
    return all;
  };
  std::string lines;
  for (int number = 1; number <= 9; ++number) {
    lines += Joined("\"#PLAYERPROFILE\",\"P", number, "\",\":\",\"\",\"\",\"\"\r\n");
    WriteFile("PlayerProfiles.txt", lines);
    desktop_->ModalForms.push_back([&](Form& shown) {
      auto& form = static_cast<ProfileMenu&>(shown);
      EXPECT_EQ(form.VScroll1.Visible, number > 7) << number;
      if (number < 9) return;
      EXPECT_EQ(form.VScroll1.Maximum.Get(), 2);
      EXPECT_EQ(captions(form), "New Player P1 P2 P3 P4 P5 P6 P7 ");
      form.VScroll1.Value = 2;
      form.VScroll1.Change();
      EXPECT_EQ(captions(form), "P2 P3 P4 P5 P6 P7 P8 P9 ");
      form.Command1[7]->Click();
    });
    ChooseProfile();
  }
  EXPECT_EQ(State().Profile.PlayerName, "P9");
  State().Profile.PlayerName = "";
  TheProfileMenu().QueryClose();
  EXPECT_TRUE(desktop_->Ending()) << "closing without a player ends the program";
}

}  // namespace
}  // namespace brindlemoor
