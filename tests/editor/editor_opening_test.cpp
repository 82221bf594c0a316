// The way into the card editor and back, its test games, and what the player owns meanwhile.
#include "editor/editor_opening.h"

#include "game/match_start.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"
#include "tests/support/played_pictures.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class EditorOpeningTest : public CardEditTest {
 protected:
  EditorOpeningTest() : decks_(TheDeckManager()), main_(TheMainWindow()) {
    Session& session = State();
    session.Profile.PlayerName = "Ann";
    session.Games.Reset(1);
    session.Games[1].Name = "Goblins";
    session.Games[1].Folder = "goblins";
    session.Games[1].RulesFile = "rules.txt";
    session.CurrentGame = 1;
    WriteFile("rules.txt", "#RULESCARD\n#EFFECT, SELF, TURNSTART, \"ECHO:dawn\"\n");
    WriteFile("goblins/readme.txt", "nothing");
    WriteFile("cards.txt",
              "#GAMEFILE, rules.txt\n#CARD, COLLECTION, Imp, Imp1, , , , , \n"
              "#CARD, COLLECTION, Ogre, Ogre1, , , , , \n#TRAIT, PLAYER:1\n");
    session.Collection[1] = MakeCard("Own", 1);
    session.Decks[1].Cards[1] = MakeCard("Decked", 1);
    session.Players[1].Tokens = 77;
    PutPlayerCard(1);
    PutPlayerCard(2);
    main_.Shown = true;
    TakeTurn(0);
    report_ = desktop_->Pages["WB"];
  }
  static std::string Names(const Pile& pile) {
    std::string names;
    for (const Card& card : pile) names += Joined(IsFree(card) ? "-" : card.Name.View(), " ");
    return names;
  }
  void EnterWithCards() {
    main_.EditMen.Click();
    Load("cards.txt");
  }
  void LeaveEditor() {
    desktop_->SaveAnswers = {SaveAnswer::kDiscard};
    EXPECT_FALSE(form_.QueryClose());
    desktop_->SaveAnswers.clear();
    form_.Shown = false;
  }
  void BeginTest() {
    desktop_->ExpectedMessages = {
        "Choose the cards you would like to test.  You may place cards in the player's starting "
        "hand or already in play.  When done, click the Play button."};
    form_.testcardsmen.Click();
    EXPECT_TRUE(decks_.Shown && !form_.Shown);
  }

  DeckManager& decks_;
  MainWindow& main_;
  std::string report_;
};

TEST_F(EditorOpeningTest, TheGameGoesOnWhereItWasWhenTheEditorIsLeft) {
  State().Links.Cards = {77};  // what its report links to
  EnterWithCards();
  EXPECT_TRUE(form_.Shown && !main_.Shown);
  EXPECT_EQ(Names(State().Collection), "Imp Ogre ");
  EXPECT_EQ(Names(State().Decks[1].Cards), "- ");
  const std::string saved = ReadFile("Ann_Goblins.plr");
  EXPECT_NE(saved.find("Decked"), std::string::npos) << "saved before the editor opens";
  State().Players[1].Tokens = 3;
  WritePlayerFile(PlayerFileName(1));
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), saved) << "these are not Ann's cards";

  BeginTest();
  decks_.CollectPic[0]->MouseUp(MouseButton::kLeft);
  decks_.Option1[1]->Click();
  decks_.CollectPic[1]->MouseUp(MouseButton::kLeft);
  decks_.Command2.Click();
  EXPECT_TRUE(main_.Shown && !decks_.Shown);
  EXPECT_EQ(State().Players[1].Hand[1].Name, "Imp");
  EXPECT_EQ(Names(State().CardTable), "Ogre - ");
  EXPECT_NE(desktop_->Pages["WB"].find("dawn"), std::string::npos);
  main_.Command1.Click();
  main_.debugmen.Click();
  State().CostCard.Name = "CostCard of the rules";
  main_.EditMen.Click();  // not a fresh editor: the one that began the test
  EXPECT_EQ(Names(State().Collection), "Imp Ogre ");
  EXPECT_TRUE(IsFree(State().CostCard));
  main_.Shown = true;
  EndGame();
  main_.Command1.Click();  // "End Game" leads back to the editor
  EXPECT_TRUE(form_.Shown && !main_.Shown);
  EXPECT_EQ(Names(State().Collection), "Imp Ogre ");
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), saved);

  LeaveEditor();
  EXPECT_TRUE(main_.Shown);
  EXPECT_EQ(Names(State().Collection) + Names(State().Decks[1].Cards), "Own Decked ");
  EXPECT_EQ(Names(State().CardTable), "Player 1 Player 2 ");
  EXPECT_EQ(Joined(State().Players[1].Tokens, int{State().DebugMode}, int{State().GameOver},
                   int{State().TestFromEditor}, main_.Command1.Caption.Get()),
            "77000Take Turn");
  EXPECT_EQ(desktop_->Pages["WB"], report_);
  EXPECT_EQ(State().Links.Cards, (std::set<std::int32_t>{77})) << "its cards can be clicked again";
  main_.saveplrmen.Click();
  EXPECT_NE(ReadFile("Ann_Goblins.plr").find("Decked"), std::string::npos);
}

TEST_F(EditorOpeningTest, AMatchKeepsItsPlansBehindTestGames) {
  const auto plans = [] {
    const Session& state = State();
    return Joined(int{state.PlayQueue[1]}, " at ", state.PlayTarget[1], ", ",
                  int{state.PlayQueue[2]}, " at ", state.PlayTarget[2], ", ",
                  int{state.AwaitingPlayTarget}, " ", state.SelectedSlot, " ",
                  int{state.CardTable[1].Effects[1].MenuState});
  };
  AddEffect(State().CardTable[1], "MODTRAIT:HP:1", kTargetSelf, "MENU:PHASE1:Heal", 0, "SELF");
  State().CardTable[1].Effects.Edit(1).MenuState = kArmedMenuAction;
  for (const int position : {3, 4}) State().Players[1].Hand[position] = MakeCard("Planned", 1);
  QueuePlay(3, 2);
  QueuePlay(4, 0);
  ShowPlayMenu();
  const std::string planned = plans();
  const std::string page = desktop_->Pages["InPlayWB"];
  EXPECT_EQ(planned, "3 at 2, 4 at 0, 2 0 2");
  EnterWithCards();
  for (int game = 0; game < 2; ++game) {
    BeginTest();
    State().Decks[1].Cards[1] = MakeCard("Held", 1);
    decks_.Command2.Click();
    EXPECT_EQ(desktop_->Pages["InPlayWB"].find("Planned"), std::string::npos);
    main_.Picture2[1]->MouseUp(MouseButton::kLeft);  // a plan of the test game
    EXPECT_EQ(State().PlayQueue[1], 1);
    EXPECT_EQ(State().PlayQueue[2], 0) << game;
    main_.EditMen.Click();
    main_.Shown = true;
  }
  LeaveEditor();
  EXPECT_EQ(plans(), planned);
  EXPECT_EQ(desktop_->Pages["InPlayWB"], page);
}

TEST_F(EditorOpeningTest, WhatIsNotSavedYetSurvivesATestGame) {
  EnterWithCards();
  Choose(1);
  Type(form_.CardText[0], "Imp of Fire");
  form_.Command6.Click();
  BeginTest();
  EXPECT_FALSE(decks_.QueryClose());  // no position after all
  EXPECT_TRUE(form_.Shown);
  BeginTest();
  decks_.Option1[1]->Click();
  decks_.CollectPic[1]->MouseUp(MouseButton::kLeft);
  decks_.Command2.Click();
  State().Collection.Append(MakeCard("Won in the test", 1));
  EXPECT_TRUE(main_.QueryClose());
  EXPECT_TRUE(form_.Shown && !main_.Shown);
  EXPECT_EQ(Names(State().Collection), "Imp of Fire Ogre ");
  EXPECT_EQ(form_.CardText[0].Text.Get(), "Imp of Fire");
}

TEST_F(EditorOpeningTest, AnOpponentIsBuiltOfTheEditorsCards) {
  State().CurrentGame = 0;
  EnterWithCards();
  desktop_->ModalForms.emplace_back([this](Form&) {
    EXPECT_FALSE(decks_.Command2.Visible);
    for (int click = 0; click < 2; ++click) decks_.CollectPic[0]->MouseUp(MouseButton::kLeft);
    decks_.CollectPic[1]->MouseUp(MouseButton::kLeft);
    desktop_->TextAnswers = {""};
    desktop_->ExpectedMessages = {"Enemy saved."};
    decks_.saveasopponent.Click();
    EXPECT_FALSE(decks_.QueryClose());
  });
  form_.createoppmen.Click();
  EXPECT_EQ(State().DeckManagerMode, kOwnCards);
  EXPECT_EQ(Names(State().Collection), "Imp Ogre ");
  const std::string file = ReadFile("goblins/Ogre_Enemy.txt");
  EXPECT_NE(file.find("#CARD, #PLAYERCARD, \"Ogre\""), std::string::npos) << file;
}

TEST_F(EditorOpeningTest, StoresAndStarterDecksOfTheEditorOpenFromTheGameList) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  EnterWithCards();
  desktop_->TextAnswers = {"Imp Shop", "First Imps"};
  desktop_->FileAnswers = {"/game/goblins/shop.txt", "/game/first.txt"};
  form_.Cardstoremen.Click();
  form_.starterdeckmen.Click();
  LeaveEditor();
  NewGame();
  const Pile& listed = State().Games[1].Opponents;
  ASSERT_EQ(Names(listed), "- Imp Shop First Imps ");
  ChooseGame(1, 3);
  EXPECT_EQ(Names(State().CardTable), "- - First Imps ");
  EXPECT_EQ(State().Collection.UpperBound(), 81) << "with the one that was there";
  EXPECT_NE(desktop_->Pages["WB"].find("Your new starter deck"), std::string::npos);
  EndGame();
  NewGame();
  EXPECT_EQ(desktop_->Pages["CardDescWB"].find("First Imps"), std::string::npos);
  WB_BeforeNavigate("GAME:1:2");
  Card& shop = State().CardTable[3];
  ASSERT_EQ(shop.Name, "Imp Shop");
  const int tokens = State().Players[1].Tokens;
  const std::string link = Joined("MENUACTION:", shop.GlobalID, ":2");
  EXPECT_NE(desktop_->Pages["CardDescWB"].find(link), std::string::npos);
  CardDescWB_BeforeNavigate(link);
  main_.Command1.Click();
  EXPECT_EQ(State().Players[1].Tokens, tokens - 5);
  EXPECT_EQ(State().Collection.UpperBound(), 89);
}

/// What was made is there as soon as the editor is left for the list.
TEST_F(EditorOpeningTest, TheListShowsWhatTheEditorMade) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  NewGame();
  EnterWithCards();
  desktop_->TextAnswers = {"Imp Shop"};
  desktop_->FileAnswers = {"/game/goblins/shop.txt"};
  form_.Cardstoremen.Click();
  LeaveEditor();
  EXPECT_NE(desktop_->Pages["WB"].find("Imp Shop"), std::string::npos);
  EXPECT_EQ(State().Games.UpperBound(), 1);
}

TEST_F(EditorOpeningTest, AnOwnedCardGetsAnotherImageInTheReducedForm) {
  WriteFile("new.jpg", PictureBytes(2, 3, 0));
  WriteFile("new-mini.jpg", PictureBytes(2, 2, 0));
  desktop_->ModalForms.emplace_back([this](Form&) {
    decks_.Command3.Click();
    desktop_->ModalForms.emplace_back([this](Form&) {
      EXPECT_FALSE(form_.CardCombo.Visible || form_.filemen.Visible);
      EXPECT_EQ(form_.CardText[0].Text.Get(), "Own");
      desktop_->ModalForms = {Pick("/game/new.jpg"), Pick("/game/new-mini.jpg")};
      form_.loadgraphicmen.Click();
      Type(form_.DescText, "typed");
      EXPECT_FALSE(form_.QueryClose());
    });
    decks_.CollectPic[0]->MouseUp(MouseButton::kLeft);
    EXPECT_EQ(decks_.CollectPic[0]->Picture.Get(), "/game/new-mini.jpg");
    decks_.CollectPic[0]->MouseUp(MouseButton::kLeft);  // once only: now it moves
    EXPECT_EQ(Names(State().Decks[1].Cards), "Decked Own ");
  });
  main_.deckmanagermen.Click();
  EXPECT_EQ(State().Decks[1].Cards[2].Picture, "new.jpg");
  EXPECT_EQ(State().Decks[1].Cards[2].Description, "") << "the picture, and nothing else";
  EXPECT_EQ(State().SingleCardEdit, 0);
}

TEST_F(EditorOpeningTest, AComposedThumbnailIsSeenAtOnceOverAShippedOneOfItsName) {
  const std::string mini = PictureBytes(2, 2, 0);
  files_->Contents["/game/shipped/Card-Own1-mini.jpg"] = mini;
  State().Collection[1].UniqueID = "Own1";
  State().Collection[1].Thumb = "Card-Own1-mini.jpg";
  const auto compose = [&](const char* before) {
    PictureBox& box = *decks_.CollectPic[0];
    EXPECT_EQ(box.Picture.Get(), before);
    std::vector<std::string> seen;
    const auto bound = std::exchange(box.OnChange, [&] { seen.push_back(box.Picture); });
    decks_.Command3.Click();
    desktop_->ModalForms.emplace_back([&](Form&) {
      WriteFile("Card-Own1-mini.jpg", mini);
      EXPECT_FALSE(form_.QueryClose());
    });
    box.MouseUp(MouseButton::kLeft);
    EXPECT_EQ(seen.back(), "/game/Card-Own1-mini.jpg");
    EXPECT_EQ(seen.front(), "") << "the box read the file that was there before";
    box.OnChange = bound;
  };
  desktop_->ModalForms.emplace_back([&](Form&) {
    compose("/game/shipped/Card-Own1-mini.jpg");
    compose("/game/Card-Own1-mini.jpg");
  });
  main_.deckmanagermen.Click();
}

}  // namespace
}  // namespace brindlemoor
