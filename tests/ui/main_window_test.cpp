// The main window: hand strip, queue of plays, button and menus.
#include "ui/main_window.h"

#include "game/turn.h"
#include "pages/page_files.h"
#include "reference/reference_page.h"
#include "scenario/state_digest.h"
#include "script/card_setup.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/first_steps.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class MainWindowTest : public SessionTest {
 protected:
  MainWindowTest() : window_(TheMainWindow()) { WriteFile("thumb.jpg", "picture"); }
  void DealHand(int count) {
    for (int position = 1; position <= count; ++position) {
      Card& card = State().Players[1].Hand[position];
      card = MakeCard(Joined("Card ", position), 1);
      card.Thumb = "thumb.jpg";
      card.NameColor = "#FF8000";
    }
  }
  /// The positions that are queued after a click on one.
  std::vector<int> Click(std::size_t position, MouseButton button = MouseButton::kLeft) {
    window_.Picture2[position]->MouseUp(button);
    return Queued();
  }
  static std::vector<int> Queued() {
    std::vector<int> entries(State().PlayQueue.begin(), State().PlayQueue.end());
    while (!entries.empty() && entries.back() == 0) entries.pop_back();
    return entries;
  }

  MainWindow& window_;
};

TEST_F(MainWindowTest, StripShowsHeldCardsOnly) {
  DealHand(3);
  State().Players[1].Hand[2] = Card();
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
  DealHand(5);
  Click(2);
  Click(4);
  EXPECT_EQ(Click(1), (std::vector{2, 4, 1}));
  EXPECT_EQ(State().AwaitingPlayTarget, 3);
  EXPECT_EQ(Click(4), (std::vector{2, 1}));
  EXPECT_EQ(Click(7), (std::vector{2, 1})) << "a free position is not queued";

  State().SelectedSlot = 3;  // a selected card becomes the target
  Click(5);
  EXPECT_EQ(State().PlayTarget[3], 3);
  EXPECT_EQ(State().Players[1].Hand[5].TargetSlot, 3);
  EXPECT_EQ(State().Players[1].Hand[5].StoredTarget, 3);
  EXPECT_EQ(State().SelectedSlot, 0);

  EXPECT_EQ(Click(3, MouseButton::kRight), (std::vector{2, 1, 5, 3})) << "discarded";
  EXPECT_EQ(State().PlayTarget[4], -1);
  EXPECT_EQ(State().Players[1].Hand[3].TargetSlot, -1);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  EXPECT_EQ(Click(3, MouseButton::kRight), (std::vector{2, 1, 5}));
}

/// What the first queued card is aimed at stays, whatever is only looked at later.
TEST_F(MainWindowTest, OnlyAPlayWithoutATargetAwaitsOne) {
  DealHand(2);
  const Card& crab = PutInPlay(MakeCard("Crab", 2));
  Card& lamp = PutInPlay(MakeCard("Lamp", 1));
  GiveAction(lamp, "MENU:PHASE1:Burn", "TARGETCARD", "MODTRAIT:HP:-1");
  const auto look = [](const Card& card) {
    State().Links.Cards = {card.GlobalID};
    WB_BeforeNavigate(Joined("CARD", card.GlobalID));
  };
  look(crab);
  Click(1);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
  look(lamp);
  EXPECT_EQ(State().PlayTarget[1], crab.Slot);
  EXPECT_EQ(State().Players[1].Hand[1].TargetSlot, crab.Slot);
  EXPECT_EQ(State().SelectedSlot, lamp.Slot) << "it is shown";

  // The menu action waits for its target; a click on the hand ends that.
  State().Links.DescribedCard = lamp.GlobalID;
  CardDescWB_BeforeNavigate(Joined("MENUACTION:", lamp.GlobalID, ":1"));
  Click(2);
  EXPECT_EQ(State().AwaitingMenuTarget, 0);
  EXPECT_EQ(State().PlayTarget[2], 0) << "the card with the menu was not meant";
  EXPECT_EQ(State().Players[1].Hand[2].TargetSlot, 0);
  EXPECT_EQ(State().AwaitingPlayTarget, 2);
  look(crab);
  EXPECT_EQ(State().PlayTarget[2], crab.Slot);
  EXPECT_EQ(int{lamp.Effects[1].MenuState}, int{kMenuAction});
}

TEST_F(MainWindowTest, ThePointerShowsTheCardThatLiesThereNow) {
  DealHand(2);
  const auto shownAt = [this](std::size_t position) {
    desktop_->Pages.erase("CardDescWB");
    State().SelectedSlot = 7;
    window_.Picture2[position]->MouseMove();
    EXPECT_EQ(State().SelectedSlot, 7);
    const std::string& page = desktop_->Pages["CardDescWB"];
    const auto name = page.find("Card ");
    return name == page.npos ? "nothing new" : page.substr(name, 6);
  };
  EXPECT_EQ(shownAt(1), "Card 1");
  EXPECT_EQ(shownAt(1), "nothing new");
  State().Players[1].Hand[1] = MakeCard("Card 8", 1);
  EXPECT_EQ(shownAt(1), "Card 8") << "drawn to the place of the one before";
  EXPECT_EQ(shownAt(1), "nothing new");
  BlankSideViews();
  EXPECT_EQ(shownAt(1), "Card 8") << "the view had been blanked";
}

TEST_F(MainWindowTest, QueueNeverHoldsACardTwiceAndKeepsItsLastTwoPlaces) {
  DealHand(10);
  for (int position = 1; position <= 10; ++position) QueuePlay(position, 0);
  EXPECT_EQ(Queued(), (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
  QueuePlay(2, 0);
  EXPECT_EQ(Queued(), (std::vector{1, 3, 4, 5, 6, 7, 8, 0, 9, 10}));
  QueuePlay(9, 0);
  EXPECT_EQ(Queued(), (std::vector{1, 3, 4, 5, 6, 7, 8, 0, 0, 10}))
      << "taken out, not queued again";
}

TEST_F(MainWindowTest, ATurnRunsOnceHoweverOftenTheButtonIsPressed) {
  State().CurrentGame = 1;
  AddEffect(State().RulesCard, "MODMYTRAIT:TURNS:1", 7, "TURNSTART", 0, "SELF");
  desktop_->OnPump = [this] { window_.Command1.Click(); };
  State().AwaitingMenuTarget = 1;
  TakeTurn(0);
  EXPECT_EQ(TraitNumber(State().RulesCard, "TURNS"), 1);
  desktop_->OnPump = nullptr;
  window_.Command1.Click();
  EXPECT_EQ(TraitNumber(State().RulesCard, "TURNS"), 2);
  EXPECT_EQ(State().AwaitingMenuTarget, 0) << "cards can be looked at again";
  State().CurrentGame = 0;
  window_.Command1.Click();
  EXPECT_EQ(TraitNumber(State().RulesCard, "TURNS"), 2) << "the game list has no turn";
}

TEST_F(MainWindowTest, MenuEntriesDoWhatTheySay) {
  window_.fullsizemen.Click();
  EXPECT_TRUE(!window_.fullsizemen.Checked && State().FullSizeImages == 0);
  window_.fullsizemen.Click();
  EXPECT_TRUE(window_.fullsizemen.Checked && State().FullSizeImages == 1);
  window_.debugmen.Click();
  EXPECT_TRUE(window_.debugmen.Checked && State().DebugMode == 1);
  EXPECT_TRUE(window_.NothingSaved.Visible);
  window_.EditMen.Click();
  EXPECT_FALSE(window_.Shown);
  WriteFile("MainHelp.html", "<html>help</html>");
  window_.helpmen.Click();
  EXPECT_TRUE(TheHelpForm().Shown);
  EXPECT_EQ(desktop_->Pages["HelpWB"], "<html>help</html>");
  // The page that help pages lead to is there, and is the one of this program.
  EXPECT_EQ(ReadFile("ScriptReference.html"), ReferencePage());
  WriteFile("ScriptReference.html", "of an earlier version");
  window_.helpmen.Click();
  EXPECT_EQ(ReadFile("ScriptReference.html"), ReferencePage());
  EXPECT_FALSE(window_.QueryClose());
  EXPECT_TRUE(desktop_->Ending());
}

TEST_F(MainWindowTest, TheListSaysWhatComesFirstAndWhoIsPointedAt) {
  const auto said = [this](const char* words) {
    return desktop_->Pages["CardDescWB"].find(words) != std::string::npos;
  };
  State().Profile.PlayerName = "Ann";
  ShowFirstSteps();
  EXPECT_TRUE(said("Welcome, Ann!") && said("Begin with a <b>starter deck</b>"));
  WriteFile("Ann_Marsh.plr", "#PLAYERDECK\n\n#TOKENS, 5\n#CARD, COLLECTION, Elf, , , , , , \n");
  ShowFirstSteps();
  EXPECT_TRUE(said("You own:<br>Marsh: 1 card and 5 tokens</p>")) << desktop_->Pages["CardDescWB"];
  State().Games.Reset(1);
  State().Games[1].Name = "Marsh & moor";
  Card ogre = MakeCard("Ogre <b>", 2);
  ogre.Description = "He waits.";
  State().Games[1].Opponents.Reset(1);
  State().Games[1].Opponents.Append(ogre);
  window_.WB.LinkPointed("game:1:2");
  EXPECT_FALSE(said("He waits.")) << "another page is shown";
  State().Links.Games = true;
  for (const char* none : {"game:1:1", "game:1:3", "game:2:2", "game:x", "help:a"}) {
    window_.WB.LinkPointed(none);
    EXPECT_TRUE(said("You own:")) << none;
  }
  window_.WB.LinkPointed("game:1:2");
  EXPECT_TRUE(said("He waits.") && said("Marsh & moor") && !said("Not beaten yet."));

  // An opponent of a file can be met.
  State().Games[1].RulesFile = "Marsh.txt";
  State().Games[1].OpponentFiles.Reset(1);
  State().Games[1].OpponentFiles.Append(Text("Ogre.txt"));
  WriteFile("Ogre.txt", "#GAMEFILE, Marsh.txt\r\n");
  window_.WB.LinkPointed("game:1:2");
  EXPECT_TRUE(said("Not beaten yet.") && !said("match"));
  WriteFile("Ann_Marsh & moor.results", "#RESULT, Ogre.txt, 2, 1, 1\r\n");
  struct Row {
    TrialMatches (*Trial)(int, int);
    const char* Words;
  };
  for (const Row& row :
       {Row{[](int, int) {
              return TrialMatches{"Elves", true, 20, 14};
            },
            "<b>An easy match</b> for your deck Elves: the computer tried it 20 times and won 14."},
        Row{[](int, int) {
              return TrialMatches{"the Chest", false, 20, 13};
            },
            "<b>An even match</b> for the cards of the Chest:"},
        Row{[](int, int) {
              return TrialMatches{"Elves", true, 20, 5};
            },
            "<b>A hard match</b>"}}) {
    ShowFirstSteps();
    State().TryOpponent = row.Trial;
    window_.WB.LinkPointed("game:1:2");
    EXPECT_TRUE(said(row.Words)) << desktop_->Pages["CardDescWB"];
    EXPECT_TRUE(said("Beaten: you won 2 of 4 matches.")) << desktop_->Pages["CardDescWB"];
  }
  ShowFirstSteps();
  State().TryOpponent = [](int, int) { return TrialMatches{"Elves", true, 4, 4}; };
  window_.WB.LinkPointed("game:1:2");
  EXPECT_FALSE(said("the computer")) << "too few";
}

TEST_F(MainWindowTest, ASnapshotHoldsThePageWithItsPictures) {
  WriteFile("a b.png", "\x01\xFE!");
  State().PageText =
      "one<img src='file:///game/a%20b.png' width=4><img src=none.png><img src=secret.txt>"
      "<a href=\"CARD1\">two</a><img src=/game/a%20b.png>";
  WritePage("Page#1.html", "");
  ShowInView(window_.WB, "Page#1.html", "there");
  desktop_->FileAnswers.emplace_back("/game/kept.html");
  window_.savehtmlmen.Click();
  const std::string kept = ReadFile("kept.html");
  const std::string picture = "<img src=\"data:image/png;base64,Af4h\"";
  EXPECT_NE(kept.find(Joined("\r\none", picture,
                             " width=4><img src=\"none.png\">"
                             "<img src=\"secret.txt\"><a href=\"CARD1\">two</a>",
                             picture, ">\r\n</body>")),
            std::string::npos)
      << kept;
  files_->WriteError = "no space";
  desktop_->FileAnswers.emplace_back("/game/kept.html");
  desktop_->ExpectedMessages = {"Can't save kept.html: no space"};
  window_.savehtmlmen.Click();
  EXPECT_EQ(ReadFile("kept.html"), kept);
}

TEST_F(MainWindowTest, TheHintTellsThePlanOfWhoLooksAhead) {
  State().CurrentGame = 1;
  State().CostCard.InPlay = 1;
  PutPlayerCard(1, {"MANA:5"});
  Card& lamp = PutInPlay(MakeCard("Lamp <i>", 1));
  const int shine = GiveAction(lamp, "MENU:PHASE1:Shine", "CARD", "MODTRAIT:LIT:1");
  const int burn =
      GiveAction(lamp, "MENU:PHASE1:Burn", "OWNER", "REQTRAITMORE:MANA:3:SUBTRAIT:MANA:3");
  for (const int position : {3, 5}) {
    Card& card = State().Players[1].Hand[position] = MakeCard(position == 3 ? "Bolt" : "Elf", 1);
    GiveAction(card, "COST", "OWNER", "SUBTRAIT:MANA:3");
    GiveAction(card, "ENTERPLAY", "CARD", "REQTRAIT:NOWHERE:DESTROY");  // without a target now
  }
  static TurnPlan plan;
  const auto said = [this](std::optional<TurnPlan> (*think)(int side)) {
    State().ThinkOfTurn = think;
    window_.hintmen.Click();
    std::string words = desktop_->Pages["CardDescWB"];
    words.erase(0, words.rfind("the thoughtful computer ") + 24);
    return words.substr(0, words.find("</p>"));
  };
  const auto saidOf = [&said](TurnPlan thoughtOut) {
    plan = std::move(thoughtOut);
    return said([](int side) -> std::optional<TurnPlan> {
      EXPECT_EQ(State().Minds[side], kThoughtfulMind);
      return plan;
    });
  };
  const std::string digest = StateDigest();
  EXPECT_EQ(saidOf({{{3}}, {{lamp.Slot, shine, 1}}}),
            "would do this:<br>Play Bolt<br>Lamp &lt;i&gt;: Shine, on Player 1");
  EXPECT_EQ(saidOf({{{5}, {3}}, {{lamp.Slot, burn, 0}}}), "would do this:<br>Play Elf")
      << "the rest is too dear";
  EXPECT_EQ(saidOf({}), "would wait.");
  EXPECT_EQ(said([](int) -> std::optional<TurnPlan> { return std::nullopt; }),
            "finds nothing better than this.");
  EXPECT_EQ(StateDigest(), digest);
  EXPECT_EQ(State().Minds[1], kPlainMind);
}

TEST_F(MainWindowTest, TheHintShowsTheHandAndChangesNothing) {
  PutPlayerCard(1, {"HP:9"});
  PutPlayerCard(2, {"HP:9"});
  Card card = MakeCard("Bolt <i>", 1, {"PRIORITY:2"});
  card.NameColor = "";
  GiveAction(card, "ENTERPLAY", "ENEMYPLAYER", "SUBTRAIT:HP:1");
  State().Players[1].Hand[3] = card;
  State().Players[1].Hand[5] = MakeCard("Dud", 1);
  window_.Picture1.Picture = "card.jpg";
  State().SelectedSlot = 2;
  State().PageText = "half";
  window_.hintmen.Click();
  EXPECT_EQ(desktop_->Pages["CardDescWB"], "") << "the list of games has no hand";
  State().CurrentGame = 1;
  State().CostCard.InPlay = 1;
  State().ThinkOfTurn = nullptr;
  const std::string before = StateDigest();
  const std::uint64_t dice = State().Random.State;
  window_.hintmen.Click();
  EXPECT_EQ(StateDigest(), before);
  EXPECT_EQ(State().Random.State, dice);
  EXPECT_EQ(State().SelectedSlot, 2);
  EXPECT_EQ(window_.Picture1.Picture.Get(), "") << "a card that was looked at before";
  const std::string page = desktop_->Pages["CardDescWB"];
  const std::size_t bolt = page.find(
      "Bolt <i></font></b>, worth playing now<br>When it enters play, on Player 2: works.");
  const std::size_t dud =
      page.find("Dud</font></b>, better kept for later<br>It does nothing at once.");
  EXPECT_NE(bolt, std::string::npos) << page;
  EXPECT_NE(dud, std::string::npos) << page;
  EXPECT_LT(bolt, dud);
  State().Players[1].Hand.Reset(10);
  window_.hintmen.Click();
  const std::string& empty = desktop_->Pages["CardDescWB"];
  EXPECT_NE(empty.find("Your hand is empty."), std::string::npos);
  EXPECT_EQ(empty.find("Looking"), std::string::npos) << "nobody can look ahead";
  State().GameOver = 1;
  desktop_->Pages.clear();
  window_.hintmen.Click();
  EXPECT_TRUE(desktop_->Pages.empty());
}

}  // namespace
}  // namespace brindlemoor
