// The main window: hand strip, queue of plays, button and menus.
#include "ui/main_window.h"

#include <gtest/gtest.h>

#include "game/turn.h"
#include "support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

class MainWindowTest : public SessionTest {
 protected:
  MainWindowTest() : window_(TheMainWindow()) { State().GameOver = 0; }

  void DealHand(std::initializer_list<int> positions) {
    for (int position : positions) {
      Card card = MakeCard("Card " + std::to_string(position), 1);
      card.Thumb = "thumb.jpg";
      card.NameColor = "#FF8000";
      State().Players[1].Hand[position] = card;
    }
  }
  std::vector<int> Queue() const {
    std::vector<int> entries(State().PlayQueue.begin(), State().PlayQueue.end());
    while (!entries.empty() && entries.back() == 0) entries.pop_back();
    return entries;
  }

  MainWindow& window_;
};

TEST_F(MainWindowTest, LoadsWithBlankSideViewsAndAHiddenHand) {
  EXPECT_EQ(window_.Caption.Get(), "Brindlemoor version Beta 1.0");
  EXPECT_EQ(window_.InPlayWB.Url.Get(), "file:///game/blank.htm");
  EXPECT_EQ(window_.CardDescWB.Url.Get(), "file:///game/blank.htm");
  for (int position = 1; position <= 10; ++position) {
    EXPECT_FALSE(window_.Picture2[static_cast<std::size_t>(position)]->Visible) << position;
  }
  EXPECT_FALSE(window_.backbutton.Visible);
  EXPECT_TRUE(window_.fullsizemen.Checked);
}

TEST_F(MainWindowTest, StripShowsHeldCardsOnly) {
  WriteFile("thumb.jpg", "picture");
  DealHand({1, 3});
  State().Players[1].Hand[3].NameColor = "";
  UpdateHand();
  EXPECT_TRUE(window_.Picture2[1]->Visible);
  EXPECT_EQ(window_.Picture2[1]->Picture.Get(), "/game/thumb.jpg");
  EXPECT_EQ(window_.HandLabel[0]->Caption.Get(), "Card 1");
  EXPECT_EQ(window_.HandLabel[0]->TextColor.Get(), 0xFF8000);
  EXPECT_FALSE(window_.Picture2[2]->Visible);
  EXPECT_FALSE(window_.HandLabel[1]->Visible);
  EXPECT_EQ(window_.HandLabel[2]->TextColor.Get(), 0) << "no colour reads as black";
  HideHand();
  EXPECT_FALSE(window_.Picture2[1]->Visible);
}

TEST_F(MainWindowTest, ClicksQueueAndTakeOut) {
  DealHand({1, 2, 3, 4});
  window_.Picture2[2]->MouseUp(MouseButton::kLeft);
  window_.Picture2[4]->MouseUp(MouseButton::kLeft);
  window_.Picture2[1]->MouseUp(MouseButton::kLeft);
  EXPECT_EQ(Queue(), (std::vector{2, 4, 1}));
  EXPECT_EQ(State().AwaitingPlayTarget, 3);
  window_.Picture2[4]->MouseUp(MouseButton::kLeft);
  EXPECT_EQ(Queue(), (std::vector{2, 1}));
  window_.Picture2[7]->MouseUp(MouseButton::kLeft);
  EXPECT_EQ(Queue(), (std::vector{2, 1})) << "a free position is not queued";
}

TEST_F(MainWindowTest, ASelectedCardBecomesTheTarget) {
  DealHand({5});
  State().SelectedSlot = 3;
  window_.Picture2[5]->MouseUp(MouseButton::kLeft);
  EXPECT_EQ(State().PlayTarget[1], 3);
  EXPECT_EQ(State().Players[1].Hand[5].TargetSlot, 3);
  EXPECT_EQ(State().Players[1].Hand[5].StoredTarget, 3);
  EXPECT_EQ(State().SelectedSlot, 0);
}

TEST_F(MainWindowTest, RightClickDiscardsAndWaitsForNoTarget) {
  DealHand({5});
  window_.Picture2[5]->MouseUp(MouseButton::kRight);
  EXPECT_EQ(State().PlayTarget[1], -1);
  EXPECT_EQ(State().Players[1].Hand[5].TargetSlot, -1);
  EXPECT_EQ(State().SelectedSlot, 0);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  window_.Picture2[5]->MouseUp(MouseButton::kRight);
  EXPECT_TRUE(Queue().empty());
}

TEST_F(MainWindowTest, QueueNeverHoldsACardTwiceAndKeepsItsLastTwoPlaces) {
  for (int position = 1; position <= 10; ++position) DealHand({position});
  for (int position = 1; position <= 10; ++position) QueuePlay(position, 0);
  EXPECT_EQ(Queue(), (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
  QueuePlay(2, 0);
  EXPECT_EQ(Queue(), (std::vector{1, 3, 4, 5, 6, 7, 8, 0, 9, 10}));
}

TEST_F(MainWindowTest, HoveringShowsACardAndKeepsTheSelection) {
  WriteFile("blank.htm", "");
  DealHand({2});
  State().SelectedSlot = 4;
  window_.Picture2[2]->MouseMove();
  EXPECT_NE(desktop_->Pages["CardDescWB"].find("Card 2"), std::string::npos);
  EXPECT_EQ(State().SelectedSlot, 4);
  const std::size_t shown = desktop_->Navigations.size();
  window_.Picture2[2]->MouseMove();
  window_.Picture2[3]->MouseMove();
  EXPECT_EQ(desktop_->Navigations.size(), shown) << "the same card, and a free place";
}

TEST_F(MainWindowTest, OptionsFollowTheirCheckMarks) {
  window_.fullsizemen.Click();
  EXPECT_FALSE(window_.fullsizemen.Checked);
  EXPECT_EQ(State().FullSizeImages, 0);
  window_.fullsizemen.Click();
  EXPECT_EQ(State().FullSizeImages, 1);
  window_.debugmen.Click();
  EXPECT_EQ(State().DebugMode, 1);
  EXPECT_TRUE(window_.debugmen.Checked);
}

TEST_F(MainWindowTest, EntriesThatComeLaterSaySo) {
  desktop_->ExpectedMessages = {
      "The deck manager comes with a later version.  Until then a match is played with deck 1.",
      "The card editor comes with a later version."};
  window_.deckmanagermen.Click();
  window_.EditMen.Click();
}

TEST_F(MainWindowTest, ClosingEndsTheProgram) {
  EXPECT_FALSE(window_.QueryClose());
  EXPECT_TRUE(desktop_->Ending());
}

TEST_F(MainWindowTest, HelpShowsInItsOwnWindow) {
  WriteFile("MainHelp.html", "<html>help</html>");
  window_.helpmen.Click();
  EXPECT_TRUE(TheHelpForm().Shown);
  EXPECT_EQ(TheHelpForm().Caption.Get(), "Brindlemoor Help");
  EXPECT_EQ(desktop_->Pages["HelpWB"], "<html>help</html>");
}

}  // namespace
}  // namespace brindlemoor
