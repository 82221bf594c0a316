// Clicks on links: the three views, the click state and the play menu.
#include "ui/link_protocol.h"

#include <gtest/gtest.h>

#include "core/pages.h"
#include "script/target_types.h"
#include "support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kPageHead =
    "<HTML>\r\n<body bgcolor=\"#000000\" text=\\\"#FFFFFF\\\" link=\\\"#99FF33\\\" "
    "alink=\\\"#00CC00\\\" vlink=\\\"#FFFF00\\\">\r\n";
constexpr std::string_view kPageFoot = "\r\n</body></HTML>\r\n";

class LinkProtocolTest : public SessionTest {
 protected:
  LinkProtocolTest() {
    TheMainWindow();
    goblin_ = &PutInPlay(MakeCard("Goblin", 1));
    goblin_->GlobalID = 111;
    ogre_ = &PutInPlay(MakeCard("Ogre", 2));
    ogre_->GlobalID = 222;
  }
  void AddMenuAction(Card& card, int targetType) {
    AddEffect(card, "MODTRAIT:HP:1", targetType, "MENU:PHASE1:Heal", 0, TargetTypeName(targetType));
  }
  int MenuStateOf(const Card& card) const {
    return card.Effects[card.Effects.UpperBound()].MenuState;
  }
  std::string PlayMenu() {
    ShowPlayMenu();
    std::string page = desktop_->Pages["InPlayWB"];
    EXPECT_TRUE(page.starts_with(kPageHead)) << page;
    EXPECT_TRUE(page.ends_with(kPageFoot)) << page;
    return page.substr(kPageHead.size(), page.size() - kPageHead.size() - kPageFoot.size());
  }

  Card* goblin_;
  Card* ogre_;
};

TEST_F(LinkProtocolTest, WhichAddressesTheViewsTakeAsCommands) {
  const struct {
    bool (*handler)(const std::string&);
    const char* url;
    bool cancelled;
  } rows[] = {
      {WB_BeforeNavigate, "file:///game/CARD111", true},
      {WB_BeforeNavigate, "CARD999", true},
      {WB_BeforeNavigate, "file:///game/CARDRulesCard", true},
      {WB_BeforeNavigate, "help:MainHelp.html", true},
      {WB_BeforeNavigate, "game:9:9", true},
      {WB_BeforeNavigate, "file:///game/other.html", false},
      {WB_BeforeNavigate, "menuaction:111:1", false},
      {InPlayWB_BeforeNavigate, "file:///game/CARD111", true},
      {InPlayWB_BeforeNavigate, "game:1:2", false},
      {CardDescWB_BeforeNavigate, "menuaction:999:1", true},
      {CardDescWB_BeforeNavigate, "MENUACTION:111:77", true},
      {CardDescWB_BeforeNavigate, "file:///game/CARD111", false},
  };
  for (const auto& row : rows) EXPECT_EQ(row.handler(row.url), row.cancelled) << row.url;
}

TEST_F(LinkProtocolTest, FoldersWithBlanksWorkInTheMainView) {
  State().ProgramFolder = "/my game";
  EXPECT_TRUE(WB_BeforeNavigate("file:///my%20game/CARD222"));
  EXPECT_EQ(State().SelectedSlot, ogre_->Slot);
}

TEST_F(LinkProtocolTest, OwnNavigationIsNoClick) {
  State().OwnNavigation = 1;
  EXPECT_FALSE(WB_BeforeNavigate("file:///game/CARD111"));
  EXPECT_EQ(State().SelectedSlot, 0);
}

TEST_F(LinkProtocolTest, ACardClickShowsOrCompletesTheQueuedPlay) {
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().SelectedSlot, ogre_->Slot);
  EXPECT_NE(desktop_->Pages["CardDescWB"].find("Ogre"), std::string::npos);

  State().Players[1].Hand[3] = MakeCard("Bolt", 1);
  State().SelectedSlot = 0;
  QueuePlay(3, 0);
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().PlayTarget[1], ogre_->Slot);
  EXPECT_EQ(State().Players[1].Hand[3].TargetSlot, ogre_->Slot);
  EXPECT_EQ(State().Players[1].Hand[3].StoredTarget, ogre_->Slot);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  EXPECT_EQ(State().SelectedSlot, 0) << "aiming selects nothing";
}

TEST_F(LinkProtocolTest, AClickForAFreedQueuePlaceOnlyEndsTheWait) {
  State().AwaitingPlayTarget = 1;
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  EXPECT_EQ(State().PlayTarget[1], 0);
}

TEST_F(LinkProtocolTest, MenuActionsAreArmedAndDisarmed) {
  AddMenuAction(*goblin_, kTargetSelf);
  const std::string url = "menuaction:111:" + std::to_string(goblin_->Effects.UpperBound());
  CardDescWB_BeforeNavigate(url);
  EXPECT_EQ(MenuStateOf(*goblin_), kArmedMenuAction);
  CardDescWB_BeforeNavigate(url);
  EXPECT_EQ(MenuStateOf(*goblin_), kMenuAction);
}

TEST_F(LinkProtocolTest, AMenuActionWithATargetWaitsForTheNextCardClick) {
  AddMenuAction(*goblin_, kTargetCard);
  CardDescWB_BeforeNavigate("menuaction:111:1");
  EXPECT_EQ(State().AwaitingMenuTarget, 1);
  EXPECT_EQ(MenuStateOf(*goblin_), kMenuAction);
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().AwaitingMenuTarget, 0);
  EXPECT_EQ(MenuStateOf(*goblin_), kArmedMenuAction);
  EXPECT_EQ(goblin_->Effects[1].ChosenTarget, ogre_->Slot);
}

TEST_F(LinkProtocolTest, AMenuActionOnTheCollectionNeedsOne) {
  AddMenuAction(*goblin_, kTargetCollection);
  desktop_->ExpectedMessages = {"You don't own any cards to modify!"};
  CardDescWB_BeforeNavigate("menuaction:111:1");
  EXPECT_EQ(MenuStateOf(*goblin_), kMenuAction);
}

TEST_F(LinkProtocolTest, PlayMenuListsThePlan) {
  Pile& hand = State().Players[1].Hand;
  for (int position = 1; position <= 3; ++position) {
    hand[position] = MakeCard("C" + std::to_string(position), 1);
  }
  QueuePlay(1, 0);
  QueuePlay(2, ogre_->Slot);
  QueuePlay(3, -1);
  AddMenuAction(*goblin_, kTargetSelf);
  AddMenuAction(*goblin_, kTargetCard);
  AddMenuAction(*goblin_, kTargetCollection);
  for (int effect = 1; effect <= 3; ++effect) {
    goblin_->Effects.Edit(effect).MenuState = kArmedMenuAction;
  }
  goblin_->Effects.Edit(2).ChosenTarget = ogre_->Slot;
  EXPECT_EQ(PlayMenu(),
            "Play <font color=\"#FFFFFF\">C1</font><br>"
            "Play <font color=\"#FFFFFF\">C2</font> on <font color=\"#FFFFFF\">Ogre</font><br>"
            "Discard <font color=\"#FFFFFF\">C3</font><br>"
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\"."
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\" on \"Ogre\".<br>"
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\" on one of the "
            "cards in their collection.");
  EXPECT_EQ(State().PageText, "");
}

}  // namespace
}  // namespace brindlemoor
