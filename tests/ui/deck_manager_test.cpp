// The deck manager: moving, rules, previews, searching, sorting and its modes.
#include "data/card_reader.h"
#include "script/card_entry.h"
#include "script/stored_cards.h"
#include "script/trait_changes.h"
#include "tests/ui/deck_manager_session.h"

namespace brindlemoor {
namespace {

class DeckManagerTest : public DeckManagerSession {};

TEST_F(DeckManagerTest, ClicksMoveCardsAndNothingIsLost) {
  Own({"Elf", "Orc", "Bat", "Elf"});
  Open();
  EXPECT_EQ(Shown(form_.CollectPic), "Elf2 Orc Bat Elf2 ");
  EXPECT_EQ(form_.Cardcount.Caption.Get(), "Cards: 0") << "free elements are no cards";
  ClickCollection(1);
  ClickCollection(1);
  EXPECT_EQ(Deck(1), "Bat Orc ");
  EXPECT_EQ(Collection(), "Elf Elf - - ");
  EXPECT_EQ(form_.Cardcount.Caption.Get(), "Cards: 2");
  ClickCollection(2);  // behind the last card
  form_.Option1[2]->Click();
  ClickCollection(0);
  form_.Option1[0]->Click();
  ClickDeck(1);
  EXPECT_EQ(Deck(1) + "| " + Deck(3) + "| " + Collection(), "Bat | Elf | Elf Orc - - ");
  form_.Option1[2]->Click();
  form_.ClearDeck.Click();
  EXPECT_EQ(Deck(3) + "| " + Collection(), "- | Elf Orc Elf - ");
  EXPECT_EQ(Shown(form_.DeckPic), "");
  form_.Command2.Click();
  EXPECT_FALSE(form_.Shown);
  State().Collection.Reset(1);
  ReadCards("Ann_Goblins.plr", State().Players[1], 0, "", 0);
  EXPECT_EQ(Deck(1) + "| " + Collection(), "- Bat | Elf Elf Orc ");
}

TEST_F(DeckManagerTest, TheRulesOfTheGameRefuseCardsAndDecks) {
  State().DeckRules = "SAMENAMELIMIT:#ANY#:1:TRAITMINIMUM:#ANY#:2";
  Own({"Elf", "Elf", "Orc"});
  Open();
  ClickCollection(0);
  desktop_->ExpectedMessages = {"You can only have 1 \"Elf\" cards in your deck.",
                                "You must have at least 2 cards in your play deck."};
  desktop_->ChoiceAnswers = {"Stay and Mend"};
  ClickCollection(0);
  EXPECT_EQ(Deck(1) + "| " + Collection(), "Elf | Elf Orc - ");
  form_.Command2.Click();
  EXPECT_TRUE(form_.Shown);
  EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "(no such file)");
  EXPECT_TRUE(form_.QueryClose());
  EXPECT_TRUE(desktop_->Choices.back().starts_with(
      "You must have at least 2 cards in your play deck.  It has 1.\n"))
      << desktop_->Choices.back();
  EXPECT_NE(ReadFile("Ann_Goblins.plr"), "(no such file)") << "saved, though it stays open";
  State().DeckManagerInGame = 1;
  EXPECT_FALSE(form_.QueryClose()) << "a match that is going on needs no whole deck";
  form_.Command2.Click();
  EXPECT_FALSE(form_.Shown);
  State().DeckManagerInGame = 0;
  Open();
  ClickCollection(1);
  form_.Command2.Click();
  EXPECT_FALSE(form_.Shown);
}

TEST_F(DeckManagerTest, EachModeShowsWhatItNeedsAndCopiesOrMoves) {
  struct Case {
    int Mode;
    bool Plays, Back, LoadsOpponents, Decks;  ///< what is there
    const char* FirstOption;
    const char* AfterClicks;  // deck and collection after a click on each
  };
  const std::vector<Case> cases = {
      {kOwnCards, true, true, false, true, "Deck #1", "Elf | Elf - "},
      {kNewOpponent, false, false, true, true, "Deck #1", "Elf | Elf Elf "},
      {kTestPosition, true, false, true, false, "In Player's Hand", "Elf | Elf Elf "}};
  for (const Case& mode : cases) {
    Own({"Elf", "Elf"});
    State().Decks[1].Cards.Reset(1);
    Open(mode.Mode);
    EXPECT_EQ(form_.Command2.Visible, mode.Plays) << mode.Mode;
    EXPECT_EQ(form_.Command5.Visible, mode.Plays) << mode.Mode;
    EXPECT_EQ(form_.backmen.Visible, mode.Back) << mode.Mode;
    EXPECT_EQ(form_.loadoppmen.Visible, mode.LoadsOpponents) << mode.Mode;
    const bool own = mode.Mode == kOwnCards;
    EXPECT_EQ(form_.savedeckmen.Visible && form_.loadplrmen.Visible && form_.Command3.Visible, own);
    EXPECT_EQ(form_.savedeckmen.Visible || form_.loadplrmen.Visible || form_.Command3.Visible, own);
    for (const bool shown :
         {form_.Command4[0]->Visible.Get(), form_.Command4[2]->Visible.Get(),
          form_.saveasopponent.Visible.Get(), form_.savestarterdeckmen.Visible.Get()}) {
      EXPECT_EQ(shown, mode.Decks) << mode.Mode;
    }
    EXPECT_EQ(form_.Option1[0]->Caption.Get(), mode.FirstOption);
    ClickCollection(0);
    ClickCollection(0);
    ClickDeck(0);
    EXPECT_EQ(Deck(1) + "| " + Collection(), mode.AfterClicks) << mode.Mode;
    if (mode.Mode == kOwnCards) continue;
    form_.ClearDeck.Click();
    EXPECT_EQ(Deck(1) + "| " + Collection(), "- | Elf Elf ") << mode.Mode;
    EXPECT_FALSE(form_.QueryClose());
    EXPECT_EQ(ReadFile("Ann_Goblins.plr"), "(no such file)") << "these are not the player's cards";
  }
}

/// What was sold meanwhile is gone; all else lies where it lay.
TEST_F(DeckManagerTest, ADeckThatIsNotReadyCanBeLeftAsItWas) {
  State().DeckRules = "TRAITMINIMUM:#ANY#:2:TRAITMINIMUM:PLAYER:1";
  Own({"Elf", "Orc"});
  for (const char* name : {"Bat", "Cat"}) AddToDeck(MakeCard(name, 1), 1);
  AddToDeck(MakeCard("Dog", 1), 2);
  Open();
  ClickDeck(0);  // Bat
  form_.Option1[1]->Click();
  ClickCollection(0);  // Elf
  form_.Option1[0]->Click();
  State().SaleMode = 1;
  desktop_->YesNoAnswers = {true};
  desktop_->ChoiceAnswers = {"Back to the List"};
  ClickDeck(0);  // Cat
  EXPECT_FALSE(form_.QueryClose());
  EXPECT_TRUE(form_.GaveUp);
  EXPECT_EQ(desktop_->Choices.back().substr(0, 131),
            "You must have at least 2 cards in your play deck.  It has 0.\n"
            "You must have at least 1 cards in your deck with the PLAYER trait.  It");
  EXPECT_EQ(Deck(1) + "| " + Deck(2), "Bat | Dog ");
  EXPECT_EQ(Collection().substr(0, 8), "Elf Orc ");
}

TEST_F(DeckManagerTest, ThePreviewShowsTheCardAsItWillEnterPlay) {
  WriteFile("elf.jpg", "picture");
  Own({"Elf", "Orc"});
  State().Collection[1].Picture = "elf.jpg";
  State().Collection[1].Description = "An elf.";
  State().Collection[1].EntryScripts =
      "SETMYNAME:Old Elf:ECHO:psst$|$SETTRAIT:AGE:9$|$MODTOKENS:50$|$WINGAME$|$";
  const std::int32_t tokens = State().Players[1].Tokens;
  State().PhaseBanner = "said before";
  Open();
  form_.CollectPic[0]->MouseMove();
  const std::string& page = desktop_->Pages["WB"];
  EXPECT_NE(page.find("<img src=\"/game/elf.jpg\"></img><br><p><font"), std::string::npos) << page;
  EXPECT_NE(page.find("An elf."), std::string::npos);
  EXPECT_FALSE(HasTrait(State().Collection[1], "AGE"));
  EXPECT_EQ(State().Players[1].Tokens, tokens);
  EXPECT_EQ(State().GameOver, 0);
  EXPECT_EQ(State().PhaseBanner, "said before");
  const std::size_t shown = desktop_->Navigations.size();
  form_.CollectPic[0]->MouseMove();
  form_.CollectPic[7]->MouseMove();
  EXPECT_EQ(desktop_->Navigations.size(), shown) << "only another card is shown";
  ClickCollection(0);
  form_.CollectPic[0]->MouseMove();
  EXPECT_EQ(desktop_->Navigations.size(), shown + 1) << "another card lies there now";
  form_.DeckPic[0]->MouseMove();
  EXPECT_EQ(Joined(State().PickedCard, " ", int{State().PickedPile}), "1 1");
  EXPECT_NE(page.find("An elf."), std::string::npos);
}

TEST_F(DeckManagerTest, TheListsScrollByBarAndByKey) {
  std::vector<std::string> names;
  for (int card = 1; card <= 40; ++card) names.push_back(Joined(card));
  Own(names);
  Open();
  const auto key = [this](int index, PictureKey which) {
    return form_.CollectPic[static_cast<std::size_t>(index)]->KeyDown(which);
  };
  EXPECT_EQ(form_.VScroll1[1]->Maximum, 22);
  EXPECT_EQ(form_.VScroll1[0]->Maximum, 1);
  form_.VScroll1[1]->Value = 20;
  form_.VScroll1[1]->Change();
  ClickCollection(0);
  EXPECT_EQ(Deck(1), "21 ");
  EXPECT_TRUE(key(1, PictureKey::kUp));
  EXPECT_EQ(form_.CollectionTop, 17);
  EXPECT_EQ(State().PickedCard, 19) << "the card under the keyboard is previewed";
  EXPECT_TRUE(key(5, PictureKey::kEnd));
  EXPECT_EQ(form_.CollectionTop, 22);
  EXPECT_FALSE(key(17, PictureKey::kDown)) << "there is nothing more";
  EXPECT_TRUE(key(5, PictureKey::kPageUp));
  EXPECT_TRUE(key(5, PictureKey::kHome));
  EXPECT_EQ(form_.CollectionTop, 0);
  EXPECT_FALSE(form_.DeckPic[0]->KeyDown(PictureKey::kEnd)) << "a short deck stays in sight";
}

TEST_F(DeckManagerTest, TheSearchFiltersAndClicksMeanTheCardsShown) {
  Own({"Elf", "Orc", "Elf", "Bat"});
  SetTrait(State().Collection[2], "HP", "5", 1);
  SetTrait(State().Collection[4], "HP", "2", 1);
  Open();
  const auto search = [this](const char* text) {
    form_.SearchText.Text = text;
    form_.SearchText.Change();
    return Shown(form_.CollectPic);
  };
  EXPECT_EQ(search("HP>=2"), "Orc Bat ");
  EXPECT_EQ(form_.SearchCount.Caption.Get(), "2 found");
  form_.CollectPic[1]->MouseMove();
  EXPECT_EQ(State().PickedCard, 4);
  ClickCollection(1);
  EXPECT_EQ(Deck(1) + "| " + Shown(form_.CollectPic), "Bat | Orc ");
  ClickCollection(1);  // nothing lies there
  search("elf");
  State().DeckRules = "SAMENAMELIMIT:#ANY#:1";
  form_.AddAll.Click();
  EXPECT_EQ(Deck(1) + "| " + Collection(), "Bat Elf | Orc Elf ") << "as far as the rules allow";
  EXPECT_EQ(search("zzz"), "");
  EXPECT_EQ(search(""), "Orc Elf ");
}

TEST_F(DeckManagerTest, SortingShufflingAndRenaming) {
  Own({"Orc", "", "Elf", "Bat"});
  SetTrait(State().Collection[3], "HP", "10", 1);
  SetTrait(State().Collection[4], "HP", "9", 1);
  Open();
  EXPECT_EQ(form_.Text1.Items.Get(), std::vector<std::string>{"HP"});
  form_.Text1.Text = "hp";
  form_.Text1.Enter();
  EXPECT_EQ(Collection(), "Elf Bat Orc ");
  form_.Text1.Text = "HPS";
  desktop_->ExpectedMessages = {"No card of your collection has the trait HPS."};
  form_.Text1.Enter();
  EXPECT_EQ(Collection(), "Elf Bat Orc ");
  form_.Text1.Text = "";
  form_.Command1[0]->Click();
  EXPECT_EQ(Collection(), "Bat Elf Orc ") << "without a trait the names' order stands";
  form_.Command6.Click();
  form_.Command1[1]->Click();
  EXPECT_EQ(Collection(), "Bat Elf Orc ");
  desktop_->TextAnswers = {"Mine", "", std::nullopt};
  for (const std::size_t deck : {0U, 1U, 0U}) form_.Command4[deck]->Click();
  EXPECT_EQ(Joined(State().Decks[1].DeckName, "|", State().Decks[2].DeckName, "|",
                   form_.Option1[0]->Caption.Get()),
            "Mine||Mine");
}

}  // namespace
}  // namespace brindlemoor
