// Clicks on links: the three views, the click state and the play menu.
#include "ui/link_protocol.h"

#include "core/paths.h"
#include "game/game_list.h"
#include "game/turn.h"
#include "pages/card_pages.h"
#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "text/addresses.h"
#include "ui/card_description.h"
#include "ui/forms.h"
#include "ui/hint_page.h"

namespace brindlemoor {
namespace {

class LinkProtocolTest : public SessionTest {
 protected:
  LinkProtocolTest() {
    TheMainWindow();
    goblin_ = &PutInPlay(MakeCard("Goblin", 1));
    goblin_->GlobalID = 111;
    ogre_ = &PutInPlay(MakeCard("Ogre", 2));
    ogre_->GlobalID = 222;
    for (const char* target : {"SELF", "TARGETCARD", "COLLECTION"}) {
      GiveAction(*goblin_, "MENU:PHASE1:Heal", target, "MODTRAIT:HP:1");
    }
    State().Links = {.Games = true, .Cards = {111, 222}, .DescribedCard = 111};
    for (int position = 1; position <= 3; ++position) {
      State().Players[1].Hand[position] = MakeCard(Joined("C", position), 1);
    }
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
  State().OwnNavigation = 1;
  EXPECT_FALSE(WB_BeforeNavigate("CARD222")) << "the program's own navigation is no click";
}

TEST_F(LinkProtocolTest, ACardClickShowsOrCompletesTheQueuedPlay) {
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().SelectedSlot, ogre_->Slot);
  EXPECT_NE(desktop_->Pages["CardDescWB"].find("Ogre"), std::string::npos);

  State().SelectedSlot = 0;
  QueuePlay(3, 0);
  State().ProgramFolder = "/my game";
  WB_BeforeNavigate("file:///my%20game/CARD222");
  EXPECT_EQ(State().PlayTarget[1], ogre_->Slot);
  EXPECT_EQ(State().Players[1].Hand[3].TargetSlot, ogre_->Slot);
  EXPECT_EQ(State().Players[1].Hand[3].StoredTarget, ogre_->Slot);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  EXPECT_EQ(State().SelectedSlot, 0) << "aiming selects nothing";

  State().AwaitingPlayTarget = 2;  // of a play that was taken out again
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  EXPECT_EQ(State().PlayTarget[2], 0);
}

/// Looking at the table decides nothing, and the way to a menu does not lose it.
TEST_F(LinkProtocolTest, PointingAtACardShowsItAndNothingElse) {
  MainWindow& window = TheMainWindow();
  const auto shows = [&](std::string_view name) {
    return desktop_->Pages["CardDescWB"].find(name) != std::string::npos;
  };
  QueuePlay(3, 0);
  State().SelectedSlot = 7;
  State().ProgramFolder = "/my game";
  window.WB.LinkPointed("file:///my%20game/CARD222");
  EXPECT_TRUE(shows("Ogre"));
  for (const char* link : {"CARD999", "CARDRulesCard", "game:1:2", "menuaction:111:1", "CARD"}) {
    window.WB.LinkPointed(link);
    EXPECT_TRUE(shows("Ogre")) << link;
  }
  EXPECT_EQ(State().SelectedSlot, 7);
  EXPECT_EQ(State().AwaitingPlayTarget, 1);
  EXPECT_EQ(State().PlayTarget[1], 0);

  window.Picture2[1]->MouseMove();
  EXPECT_TRUE(shows("C1"));
  window.WB.LinkPointed("CARD111");
  EXPECT_TRUE(shows("Goblin"));
  EXPECT_EQ(window.WB.PointDelay.Get(), 0);
  window.Picture2[1]->MouseMove();
  EXPECT_TRUE(shows("C1")) << "the hand's card again, with no other in between";

  State().AwaitingPlayTarget = 0;
  WB_BeforeNavigate("CARD111");
  EXPECT_GT(window.WB.PointDelay.Get(), 0) << "other cards lie on the way to its menu";
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(window.WB.PointDelay.Get(), 0);
}

TEST_F(LinkProtocolTest, ACardWithoutAThumbnailIsReachedByItsName) {
  WriteFile("ogre.jpg", "picture");
  goblin_->Thumb = "gone.jpg";
  ogre_->Thumb = "ogre.jpg";
  Card& fog = PutInPlay(MakeCard("Fog", 1, {"INVISIBLE"}));
  PutInPlay(MakeCard("Elf", 2)).GlobalID = 333;
  PutInPlay(MakeCard("Imp", 1)).GlobalID = 444;
  TakeTurn(1);
  std::string links;
  for (const CellLink& cell : TheMainWindow().WB.CellLinks.Get()) {
    links += Joined(cell.Words, "=", cell.Link, " ");
  }
  EXPECT_EQ(links, "Goblin=CARD111 Imp=CARD444 Elf=CARD333 ");
  EXPECT_EQ(desktop_->Pages["WB"].find("CARD333"), std::string::npos) << "the page has no link";
  WB_BeforeNavigate("CARD333");
  EXPECT_NE(desktop_->Pages["CardDescWB"].find("Elf"), std::string::npos);
  WB_BeforeNavigate(Joined("CARD", fog.GlobalID));
  EXPECT_NE(desktop_->Pages["CardDescWB"].find("Elf"), std::string::npos);
}

TEST_F(LinkProtocolTest, PicturesOfThePageAreNamedAsTheGameNamesThem) {
  Card price = MakeCard("OIL", 1);
  GiveAction(price, "COST", "OWNER", "SUBTRAIT:MANA:SRCTRAIT/OIL");
  State().TraitActions[1] = price;
  State().TraitGraphics.Reset(2);
  State().TraitGraphics[1].TraitName = "STRIKE";
  State().TraitGraphics[1].Picture = "art\\Badge-Strike.png";
  State().TraitGraphics[2].TraitName = "OIL";
  State().TraitGraphics[2].Picture = "magiccost.jpg";
  UpdateHand();
  std::string tips;
  for (const PictureTip& tip : TheMainWindow().WB.PictureTips.Get()) {
    tips += Joined(tip.File, "=", tip.Words, " ");
  }
  EXPECT_EQ(tips,
            "Badge-Strike.png=Strike magiccost.jpg=Oil monstercost.jpg=Monsters magiccost.jpg=Oil "
            "heartcost.jpg=Hearts ");
}

/// The name of a folder may look like an escape, or need one in an address.
TEST_F(LinkProtocolTest, ClicksCountInFoldersOfAnyName) {
  for (const char* folder : {"/my game", "/a b%20#c?d", "/M\xC3\xBChle/50%", "/100%25/x"}) {
    State().ProgramFolder = folder;
    for (const std::string& address : {Joined("file://", folder), FileUrl(folder)}) {
      for (const auto handler : {WB_BeforeNavigate, InPlayWB_BeforeNavigate}) {
        State().SelectedSlot = 0;
        EXPECT_TRUE(handler(address + "/CARD222")) << address;
        EXPECT_EQ(State().SelectedSlot, ogre_->Slot) << address;
      }
      EXPECT_FALSE(WB_BeforeNavigate(address + "x/CARD222")) << "another folder";
      State().Links.DescribedCard = 111;
      EXPECT_TRUE(CardDescWB_BeforeNavigate(address + "/menuaction:111:1")) << address;
      EXPECT_EQ(int{goblin_->Effects[1].MenuState}, int{kArmedMenuAction}) << address;
      CardDescWB_BeforeNavigate("menuaction:111:1");
    }
  }
}

/// Texts of cards are HTML and may hold links that look like commands.
TEST_F(LinkProtocolTest, ALinkThatTheProgramDoesNotShowIsNoCommand) {
  const auto state = [this] {
    return Joined(State().SelectedSlot, " ", State().CurrentGame, " ", int{State().TurnRunning},
                  " ", int{goblin_->Effects[1].MenuState}, " ", desktop_->Navigations.size());
  };
  State().Links = {.Cards = {222}, .DescribedCard = 222};
  State().Games.Reset(1);
  State().Games[1].OpponentFiles.Reset(1);
  State().Games[1].OpponentFiles[1] = "opponent.txt";
  desktop_->AcceptMessages = true;  // of a match that would begin
  const std::string before = state();
  for (const char* url : {"CARD111", "file:///game/CARD111", "GAME:1:1", "game:1:1"}) {
    EXPECT_TRUE(WB_BeforeNavigate(url)) << url;
    InPlayWB_BeforeNavigate(url);
  }
  EXPECT_TRUE(CardDescWB_BeforeNavigate("MENUACTION:111:1")) << "another card's page is shown";
  State().Links.DescribedCard = 0;
  for (const char* url : {"MENUACTION:0:1", "MENUACTION::1", "MENUACTION:111:1"}) {
    EXPECT_TRUE(CardDescWB_BeforeNavigate(url)) << url << " while no card is shown";
  }
  State().AwaitingPlayTarget = 1;
  WB_BeforeNavigate("CARD111");
  EXPECT_EQ(State().AwaitingPlayTarget, 1) << "nor is it a target";
  EXPECT_EQ(state(), before);
}

TEST_F(LinkProtocolTest, OnlyMenuActionsCanBeArmed) {
  const int ordinary = GiveAction(*goblin_, "PHASE1", "SELF", "MODTRAIT:HP:1");
  for (const int effect : {ordinary, 0, -1, 77, 257, 32768, 65537}) {
    EXPECT_TRUE(CardDescWB_BeforeNavigate(Joined("MENUACTION:111:", effect))) << effect;
  }
  EXPECT_EQ(int{goblin_->Effects[ordinary].MenuState}, int{kOrdinaryAction});
  EXPECT_EQ(int{goblin_->Effects[1].MenuState}, int{kMenuAction});

  while (goblin_->Effects.UpperBound() < 257) {
    GiveAction(*goblin_, "MENU:PHASE1:Heal", "TARGETCARD", "MODTRAIT:HP:1");
  }
  CardDescWB_BeforeNavigate("MENUACTION:111:257");
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(int{goblin_->Effects[1].MenuState}, int{kMenuAction}) << "257 is not taken for 1";
}

/// The texts on such a page may imitate what the page before it offered.
TEST_F(LinkProtocolTest, APageWithoutCommandsTakesThoseOfThePageBeforeBack) {
  const ShownLinks& links = State().Links;
  State().CurrentGame = 1;
  ShowCardDescription(*goblin_, 1);
  EXPECT_EQ(links.DescribedCard, 111);
  State().ThinkOfTurn = nullptr;
  ShowHint();
  EXPECT_EQ(links.DescribedCard, 0) << "a hint shows texts of cards and no menu";
  ShowCardDescription(*goblin_, 1);
  BlankSideViews();
  EXPECT_EQ(links.DescribedCard, 0);
  Card hand = *goblin_;
  hand.InPlay = 0;
  State().Links.DescribedCard = 111;
  ShowCardDescription(hand, 1);
  EXPECT_EQ(links.DescribedCard, 0) << "a card of the hand has no menu yet";

  ShowGameList();
  State().Games.Reset(1);
  State().Games[1].OpponentFiles.Reset(1);
  State().Games[1].OpponentFiles[1] = "opponent.txt";
  bool offered = true;
  desktop_->OnPump = [&] {
    offered = links.Games;
    State().Games.Reset(1);  // so that the match does not begin
  };
  WB_BeforeNavigate("game:1:1");
  desktop_->OnPump = nullptr;
  EXPECT_FALSE(offered) << "the list is gone while the match is read";
}

TEST_F(LinkProtocolTest, WhatTheProgramShowsCanBeClicked) {
  const ShownLinks& links = State().Links;
  goblin_->Thumb = ogre_->Thumb = "a.jpg";
  SetTrait(*ogre_, "INVISIBLE", "", 0);
  TakeTurn(1);
  EXPECT_EQ(links.Cards, (std::set<std::int32_t>{111}));
  EXPECT_FALSE(links.Games);
  WB_BeforeNavigate("CARD111");
  EXPECT_EQ(links.DescribedCard, 111);
  CardDescWB_BeforeNavigate("MENUACTION:111:1");
  EXPECT_EQ(int{goblin_->Effects[1].MenuState}, int{kArmedMenuAction});
  ShowCardDescription(*ogre_, 1);
  EXPECT_EQ(links.DescribedCard, 0) << "the enemy's menu is not shown";
  SetTrait(*goblin_, "INVISIBLE", "", 0);
  TakeTurn(1);
  EXPECT_TRUE(links.Cards.empty()) << "what the report before showed is no longer there";
  ShowGameList();
  EXPECT_TRUE(links.Games);
  EXPECT_TRUE(links.Cards.empty());
}

TEST_F(LinkProtocolTest, MenuActionsAreArmedAndDisarmed) {
  const auto click = [this](int effect) {
    CardDescWB_BeforeNavigate(Joined("menuaction:111:", effect));
    return int{goblin_->Effects[effect].MenuState};
  };
  EXPECT_EQ(click(1), kArmedMenuAction);
  EXPECT_EQ(click(1), kMenuAction);
  EXPECT_EQ(click(2), kMenuAction) << "its target is clicked next";
  WB_BeforeNavigate("CARD222");
  EXPECT_EQ(State().AwaitingMenuTarget, 0);
  EXPECT_EQ(goblin_->Effects[2].MenuState, kArmedMenuAction);
  EXPECT_EQ(goblin_->Effects[2].ChosenTarget, ogre_->Slot);
  desktop_->ExpectedMessages = {"You don't own any cards to modify!"};
  EXPECT_EQ(click(3), kMenuAction);
}

TEST_F(LinkProtocolTest, AMenuActionOnOwnCardsAsksForOneInTheDeckManager) {
  State().Collection.Reset(3);
  for (int position = 1; position <= 3; ++position) {
    State().Collection[position] = MakeCard(Joined("Own ", position), 1);
  }
  State().Decks[2].Cards[1] = MakeCard("Own 4", 1);
  DeckManager& manager = TheDeckManager();
  const auto pick = [&](const std::function<void()>& user) {
    desktop_->ModalForms.emplace_back([user](Form&) { user(); });
    CardDescWB_BeforeNavigate("menuaction:111:3");
    const CardEffect& effect = goblin_->Effects[3];
    return Joined(effect.MenuState, " ", effect.ChosenTarget, " ", int{effect.PickedPile}, " ",
                  State().SelectedSlot, " ", int{State().PickingCard});
  };
  State().SelectedSlot = 0;
  EXPECT_EQ(pick([&] {
              EXPECT_FALSE(manager.Command2.Visible || manager.Command5.Visible);
              manager.CollectPic[1]->MouseMove();
              EXPECT_FALSE(manager.QueryClose());
            }),
            "1 0 0 0 0")
      << "closed without a pick";
  EXPECT_EQ(pick([&] { manager.CollectPic[1]->MouseUp(MouseButton::kLeft); }), "2 2 0 2 0");
  EXPECT_EQ(State().Collection[2].Name, "Own 2");
  // Another action stays aimed at its card when the form sorts.
  GiveAction(*goblin_, "MENU:PHASE1:Heal", "COLLECTION", "MODTRAIT:HP:1");
  goblin_->Effects.Edit(4).MenuState = kArmedMenuAction;
  goblin_->Effects.Edit(4).ChosenTarget = 3;
  State().Collection[3].Name = "A";
  CardDescWB_BeforeNavigate("menuaction:111:3");
  EXPECT_EQ(pick([&] {
              manager.Command1[1]->Click();
              EXPECT_FALSE(manager.ClearDeck.Visible || manager.loadplrmen.Visible);
              manager.CollectPic[2]->MouseUp(MouseButton::kLeft);
            }),
            "2 3 0 3 0");
  EXPECT_EQ(goblin_->Effects[4].ChosenTarget, 1);
  CardDescWB_BeforeNavigate("menuaction:111:3");
  EXPECT_EQ(pick([&] {
              manager.Option1[1]->Click();
              manager.DeckPic[0]->MouseUp(MouseButton::kLeft);
            }),
            "2 1 2 1 0");
}

TEST_F(LinkProtocolTest, PlayMenuListsThePlan) {
  QueuePlay(1, 0);
  QueuePlay(2, ogre_->Slot);
  QueuePlay(3, -1);
  for (int effect = 1; effect <= 3; ++effect) {
    goblin_->Effects.Edit(effect).MenuState = kArmedMenuAction;
  }
  goblin_->Effects.Edit(2).ChosenTarget = ogre_->Slot;
  ShowPlayMenu();
  EXPECT_EQ(desktop_->Pages["InPlayWB"],
            "<HTML>\r\n<body bgcolor=\"#000000\" text=\\\"#FFFFFF\\\" link=\\\"#99FF33\\\" "
            "alink=\\\"#00CC00\\\" vlink=\\\"#FFFF00\\\">\r\n"
            "Play <font color=\"#FFFFFF\">C1</font><br>"
            "Play <font color=\"#FFFFFF\">C2</font> on <font color=\"#FFFFFF\">Ogre</font><br>"
            "Discard <font color=\"#FFFFFF\">C3</font><br>"
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\"."
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\" on \"Ogre.<br>"
            "<font color=\"#FFFFFF\">Goblin</font> uses special action \"Heal\" on one of the "
            "cards in their collection.\r\n</body></HTML>\r\n");
  EXPECT_EQ(State().PageText, "");
}

}  // namespace
}  // namespace brindlemoor
