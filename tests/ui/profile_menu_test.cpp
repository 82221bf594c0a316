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
  desktop_->TextAnswers = {std::nullopt};
  desktop_->ModalForms.push_back([](Form& form) {
    static_cast<ProfileMenu&>(form).Command1[0]->Click();
    EXPECT_TRUE(form.Shown) << "a cancelled name leads back to the list of players";
  });
  ChooseProfile();
  EXPECT_EQ(ReadFile("PlayerProfiles.txt"), "(no such file)");
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

/// Two players whose names begin alike, as their files do.
class PlayersTest : public ProfileMenuTest {
 protected:
  PlayersTest() {
    WriteFile("PlayerProfiles.txt",
              "\"#PLAYERPROFILE\",\"Ann\",\"Ann_Goblins.plr:Goblins.txt\",\"\",\"\",\"\"\r\n"
              "\"#PLAYERPROFILE\",\"Ann_B\",\"Ann_B_Orcs.plr:Orcs.txt\",\"\",\"\",\"\"\r\n");
    WriteFile("Ann_Goblins.plr", "#TOKENS, 5\n#CARD, COLLECTION, Elf, , , , , , \n");
    WriteFile("Ann_Orcs.plr", "#TOKENS, 7\n");
    WriteFile("Ann_B_Orcs.plr", "#TOKENS, 9\n");
  }
  /// Presses a button of the chooser and takes a line of the list of players.
  void Press(Button ProfileMenu::*button, int player) {
    desktop_->ModalForms.push_back([this, button, player](Form& form) {
      desktop_->ModalForms.push_back([player](Form& choice) {
        static_cast<ChoiceForm&>(choice).List1.Selected = player;
        static_cast<ChoiceForm&>(choice).Command1.Click();
      });
      (static_cast<ProfileMenu&>(form).*button).Click();
    });
    State().Profile.PlayerName = "";
    ChooseProfile();
  }
};

TEST_F(PlayersTest, ARenamedPlayerKeepsEverythingAndNobodyElseLosesAnything) {
  EXPECT_EQ(Choose(1), "Ann");
  desktop_->TextAnswers = {"Ann_B", "Zoe"};
  desktop_->ExpectedMessages = {"There is a player of this name already."};
  Press(&ProfileMenu::RenamePlayer, 1);
  EXPECT_NE(ReadFile("PlayerProfiles.txt").find("\"Zoe\",\"Zoe_Goblins.plr:Goblins.txt\""),
            std::string::npos);
  EXPECT_EQ(ReadFile("PlayerProfiles.txt").find("\"Ann\""), std::string::npos);
  EXPECT_EQ(ReadFile("Zoe_Goblins.plr"), "#TOKENS, 5\n#CARD, COLLECTION, Elf, , , , , , \n");
  EXPECT_EQ(ReadFile("Zoe_Orcs.plr"), "#TOKENS, 7\n");
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "(no such file)");
  EXPECT_EQ(ReadFile("Ann_B_Orcs.plr"), "#TOKENS, 9\n");
  EXPECT_EQ(ReadFile("LastPlayer.settings"), "Zoe");

  desktop_->TextAnswers = {"Yan"};
  WriteFile("Yan_Orcs.plr", "somebody's");
  desktop_->ExpectedMessages = {"There is a file Yan_Orcs.plr already."};
  Press(&ProfileMenu::RenamePlayer, 1);
  EXPECT_EQ(ReadFile("Yan_Goblins.plr"), "(no such file)") << "what was begun is taken back";
  EXPECT_EQ(ReadFile("Zoe_Goblins.plr").substr(0, 10), "#TOKENS, 5");
}

TEST_F(PlayersTest, ADeletedPlayersLossesAreNamedFirst) {
  desktop_->YesNoAnswers = {false};
  Press(&ProfileMenu::DeletePlayer, 1);
  EXPECT_EQ(desktop_->YesNoQuestions.back(),
            "Delete Ann?  These are lost for good:\n\n"
            "Goblins: 1 card and 5 tokens\nOrcs: 0 cards and 7 tokens");
  EXPECT_EQ(ReadFile("Ann_Orcs.plr"), "#TOKENS, 7\n");
  desktop_->YesNoAnswers = {true};
  Press(&ProfileMenu::DeletePlayer, 1);
  EXPECT_EQ(ReadFile("Ann_Orcs.plr") + ReadFile("Ann_Goblins.plr"), "(no such file)(no such file)");
  EXPECT_EQ(ReadFile("Ann_B_Orcs.plr"), "#TOKENS, 9\n");
  EXPECT_EQ(ReadFile("PlayerProfiles.txt").find("\"Ann\""), std::string::npos);
  EXPECT_NE(ReadFile("PlayerProfiles.txt").find("\"Ann_B\""), std::string::npos);
}

TEST_F(PlayersTest, TheChooserBeginsAtWhoPlayedLast) {
  std::string lines;
  for (int number = 1; number <= 12; ++number) {
    lines += Joined("\"#PLAYERPROFILE\",\"P", number, "\",\":\",\"\",\"\",\"\"\r\n");
  }
  WriteFile("PlayerProfiles.txt", lines);
  WriteFile("LastPlayer.settings", "P10");
  desktop_->ModalForms.push_back([](Form& shown) {
    for (const auto& button : static_cast<ProfileMenu&>(shown).Command1) {
      EXPECT_EQ(button->FocusCalls > 0, button->Caption.Get() == "P10") << button->Caption.Get();
    }
  });
  ChooseProfile();
}

}  // namespace
}  // namespace brindlemoor
