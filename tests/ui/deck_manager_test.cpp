// The deck manager: moving, selling, previews, searching, its modes and its files.
#include "ui/deck_manager.h"

#include "data/card_reader.h"
#include "game/game_list.h"
#include "game/match_start.h"
#include "game/player_saving.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/stored_cards.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class DeckManagerTest : public SessionTest {
 protected:
  DeckManagerTest() : form_(TheDeckManager()) {
    State().Profile.PlayerName = "Ann";
    State().Games.Reset(1);
    State().Games[1].Name = "Goblins";
    State().Games[1].Folder = "goblins";
    State().Games[1].RulesFile = "rules.txt";
    State().CurrentGame = 1;
    for (int deck = 1; deck <= 3; ++deck) State().Decks[deck].DeckName = Joined("Deck #", deck);
  }
  static void Own(const std::vector<std::string>& names) {
    State().Collection.Reset(0);
    for (const std::string& name : names) {
      const int position = State().Collection.Append(MakeCard(name, 1));
      State().Collection[position].UniqueID = name;
    }
  }
  void Open(int mode = kOwnCards) {
    State().DeckManagerMode = static_cast<std::uint8_t>(mode);
    form_.Form_Load();
    desktop_->ShowForm(form_, false);
  }
  void ClickCollection(std::size_t index) { form_.CollectPic[index]->MouseUp(MouseButton::kLeft); }
  void ClickDeck(std::size_t index) { form_.DeckPic[index]->MouseUp(MouseButton::kLeft); }
  /// The names in a pile, free records as "-".
  static std::string Names(const Pile& pile) {
    std::string names;
    for (const Card& card : pile) names += Joined(IsFree(card) ? "-" : card.Name.View(), " ");
    return names;
  }
  static std::string Deck(int number) { return Names(State().Decks[number].Cards); }
  static std::string Collection() { return Names(State().Collection); }
  /// The captions of the pictures that are shown.
  template <class Pictures>
  static std::string Shown(const Pictures& pictures) {
    std::string names;
    for (const auto& picture : pictures) {
      if (picture->Visible) names += picture->Caption.Get() + picture->Badge.Get() + " ";
    }
    return names;
  }

  DeckManager& form_;
};

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

TEST_F(DeckManagerTest, SellingPaysByRarityAndTakesTheCard) {
  Own({"Elf", "Orc"});
  State().Collection[1].Rarity = 255;
  State().Decks[1].Cards[1] = MakeCard("Bat", 1);
  State().Decks[1].Cards[1].Rarity = 9;
  Open();
  desktop_->ExpectedMessages = {
      "Click here to switch into sale mode.  Click again to return to normal mode.  To sell a card "
      "in sale mode, simply click on it."};
  for (int click = 0; click < 3; ++click) form_.Command5.Click();  // on, off, on
  const int before = State().Players[1].Tokens;
  form_.CollectPic[0]->MouseMove();
  EXPECT_NE(desktop_->Pages["WB"].find(
                "The ephemeral powers that be offer you <font color=#FFFF00>26 Tokens</font> for "
                "this card.<br>Just click to make the sale..."),
            std::string::npos);
  desktop_->YesNoAnswers = {false, true, true};
  ClickCollection(0);
  EXPECT_EQ(desktop_->YesNoQuestions.back(), "Sell Elf for 26 tokens?");
  EXPECT_EQ(Collection(), "Elf Orc ") << "not sold";
  EXPECT_FALSE(form_.UndoSale.Visible);
  ClickCollection(0);
  EXPECT_NE(desktop_->Pages["WB"].find("<font color=#FF3311>Ha ha ha!  It's mine now!</font>"),
            std::string::npos);
  ClickDeck(0);
  EXPECT_EQ(State().Players[1].Tokens, before + 26 + 1);
  EXPECT_EQ(form_.Label1.Caption.Get(), Joined("Tokens: ", before + 27));
  EXPECT_EQ(Deck(1) + "| " + Collection(), "- | Orc - ");
  EXPECT_EQ(form_.Cardcount.Caption.Get(), "Cards: 0");
  EXPECT_FALSE(form_.QueryClose());
  EXPECT_EQ(State().SaleMode, 0);
}

TEST_F(DeckManagerTest, SalesAreTakenBackUntilTheFormClosesAndTheLastPlayerCardIsAskedForTwice) {
  Own({"Elf", "Orc"});
  SetTrait(State().Collection[1], "PLAYER", "", 1);
  AddToDeck(MakeCard("Bat", 1), 2);
  Open();
  const int before = State().Players[1].Tokens;
  State().SaleMode = 1;
  desktop_->YesNoAnswers = {true, false};
  ClickCollection(0);
  EXPECT_TRUE(desktop_->YesNoQuestions.back().starts_with("Elf is your last card with the trait"));
  EXPECT_EQ(Collection(), "Elf Orc ");
  desktop_->YesNoAnswers = {true, true, true};
  ClickCollection(0);
  form_.Option1[1]->Click();
  ClickDeck(0);
  EXPECT_EQ(Collection() + "| " + Deck(2), "Orc - | - ");
  form_.Option1[0]->Click();
  form_.UndoSale.Click();
  form_.UndoSale.Click();
  EXPECT_EQ(Collection() + "| " + Deck(2), "Orc Elf | Bat ");
  EXPECT_EQ(State().Players[1].Tokens, before);
  EXPECT_FALSE(form_.UndoSale.Visible);
  desktop_->YesNoAnswers = {true};
  ClickCollection(0);
  EXPECT_TRUE(form_.UndoSale.Visible);
  State().SaleMode = 0;
  Open();
  EXPECT_FALSE(form_.UndoSale.Visible) << "what was sold before the form closed is sold";
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

TEST_F(DeckManagerTest, AnOpponentMadeFromADeckIsListedAndPlayed) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  WriteFile("goblins/readme.txt", "nothing");
  Own({"Elf", "King"});
  SetTrait(State().Collection[2], "PLAYER", "1", 1);
  Open();
  desktop_->ExpectedMessages = {"There are no cards in this deck."};
  form_.saveasopponent.Click();
  ClickCollection(0);
  desktop_->ExpectedMessages = {
      "The name is empty.",
      "The name holds one of the characters / \\ : * ? \" < > |, which no file name can hold."};
  desktop_->YesNoAnswers = {true, true, true, false};  // it has no player card
  desktop_->TextAnswers = {"", "my/../King", std::nullopt};
  for (int again = 0; again < 4; ++again) form_.saveasopponent.Click();
  ClickCollection(0);
  desktop_->TextAnswers = {"", "Rex", "Rex", "Rex"};
  desktop_->YesNoAnswers = {false, true};
  desktop_->ExpectedMessages = {"Enemy saved.", "Enemy saved.", "Enemy saved."};
  for (int again = 0; again < 4; ++again) form_.saveasopponent.Click();
  form_.Command2.Click();

  State().Games.Reset(1);
  DiscoverGames();
  const GameRec& game = State().Games[1];
  ASSERT_EQ(Names(game.Opponents), "- King Rex ");
  desktop_->ModalForms.emplace_back([this](Form&) { form_.Command2_Click(); });
  ChooseGame(1, 3);
  EXPECT_EQ(State().CardTable[State().Players[2].PlayerCard].Name, "King");
  EXPECT_NE(Names(State().Players[2].Deck).find("Elf"), std::string::npos);
}

TEST_F(DeckManagerTest, WhichGameListsANewOpponentIsAskedWhereItIsUnclear) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n");
  WriteFile("swamp.txt", "#GAMERULES, Swamp, , , swamp,\n");
  WriteFile("goblins/readme.txt", "nothing");
  WriteFile("swamp/readme.txt", "nothing");
  State().CurrentGame = 0;
  State().Games.Reset(1);
  DiscoverGames();
  Own({"King"});
  SetTrait(State().Collection[1], "PLAYER", "1", 1);
  Open(kNewOpponent);
  ClickCollection(0);
  desktop_->ModalForms.emplace_back([](Form&) { TheChoiceForm().Command2.Click(); });
  desktop_->ModalForms.emplace_back([](Form&) {
    TheChoiceForm().List1.Selected = 2;
    TheChoiceForm().List1.Open();
  });
  desktop_->TextAnswers = {"Rex", "Rex"};
  desktop_->ExpectedMessages = {"Enemy saved."};
  for (int again = 0; again < 2; ++again) form_.saveasopponent.Click();
  EXPECT_NE(ReadFile("swamp/Rex_Enemy.txt"), "");
}

TEST_F(DeckManagerTest, AStarterDeckGivesTheCardsOfTheDeckToANewPlayer) {
  WriteFile("rules.txt", "#GAMERULES, Goblins, , , goblins,\n#RULESCARD\n");
  WriteFile("goblins/readme.txt", "nothing");
  Own({"Elf", "Elf", "Orc, the big"});
  Open();
  for (int card = 0; card < 3; ++card) ClickCollection(0);
  desktop_->TextAnswers = {"First Steps"};
  desktop_->ExpectedMessages = {"Starter deck saved."};
  form_.savestarterdeckmen.Click();
  State().Profile.PlayerName = "Bea";
  State().Games.Reset(1);
  DiscoverGames();
  ASSERT_EQ(Names(State().Games[1].Opponents), "- First Steps ");
  ChooseGame(1, 2);
  form_.Command1[1]->Click();
  EXPECT_EQ(Collection(), "Elf Elf Orc, the big ");
}

TEST_F(DeckManagerTest, WrongFilesChangeNothingAndRightOnesAreRead) {
  WriteFile("picture.plr", "\xFF\xD8\xFF\xE0 JFIF");
  WriteFile("friend.plr",
            "#PLAYERDECK\n#TOKENS, 7\n#CARD, COLLECTION, Gift, , , , , , \n"
            "#DECKRULES, \"TRAITLIMIT:#ANY#:1\"\n");
  WriteFile("army.txt",
            "#CARD, INDECK, Wolf, , , , , , \n#CARD, COLLECTION, Fox, , , , , , \n"
            "#TEMPLATE, Beast, , , , , \n#GAMEFILE, wolves.txt\n#STARTERDECK\n"
            "#DECKRULES, \"TRAITLIMIT:#ANY#:1\"\n");
  Own({"Elf"});
  State().Decks[1].Cards[1] = MakeCard("Bat", 1);
  const int templates = State().Templates.UpperBound();
  Open();
  desktop_->FileAnswers = {"/game/picture.plr", "/game/none.plr", std::nullopt, "/game/picture.plr",
                           "/game/army.txt"};
  desktop_->ExpectedMessages = {"There are no cards in picture.plr.", "Can't read none.plr.",
                                "There are no cards in picture.plr.",
                                "A player can't be loaded over the cards of the editor.",
                                "These are the cards of the editor."};
  for (int file = 0; file < 3; ++file) form_.loadplrmen.Click();
  Open(kNewOpponent);
  form_.loadoppmen.Click();
  form_.loadplrmen.Click();
  form_.savedeckmen.Click();
  EXPECT_EQ(Deck(1) + "| " + Collection(), "Bat | Elf ");
  form_.loadoppmen.Click();
  EXPECT_EQ(Shown(form_.DeckPic), "Wolf Fox ") << "every card of the file, wherever it would go";
  EXPECT_EQ(Collection(), "Elf ");
  EXPECT_EQ(Joined(State().GameFileName, int{State().StarterDeckFlag}, State().DeckRules,
                   State().Templates.UpperBound()),
            Joined("0", templates))
      << "and nothing else of it";

  WriteFile("Ann_Goblins.plr", "the player's own");
  Open();
  desktop_->FileAnswers = {"/game/friend.plr", "/game/copy.plr"};
  desktop_->YesNoAnswers = {false};
  desktop_->SaveAnswers = {SaveAnswer::kDiscard};
  form_.loadplrmen.Click();
  EXPECT_EQ(Collection() + form_.Label1.Caption.Get(), "Gift Tokens: 7");
  EXPECT_EQ(ReadFile("Ann_Goblins.plr.before"), "the player's own");
  EXPECT_EQ(State().DeckRules, "") << "the match that waits has rules of its own";
  EXPECT_TRUE(PlayerIsUnsaved());
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("copy.plr").find("Gift"), std::string::npos);
  const Pile gift = std::exchange(State().Collection, Pile(1));
  desktop_->FileAnswers = {"/game/empty.plr"};
  desktop_->ExpectedMessages = {"There are no cards to save."};
  form_.savedeckmen.Click();
  State().Collection = gift;
  State().DebugMode = 1;
  desktop_->ExpectedMessages = {"Players are not saved in debug mode."};
  form_.savedeckmen.Click();
  files_->WriteError = "No space left on device";
  State().DebugMode = 0;
  desktop_->ExpectedMessages = {"Can't save Ann_Goblins.plr: No space left on device"};
  form_.Command2.Click();
  EXPECT_EQ(Collection(), "Gift ");
}

TEST_F(DeckManagerTest, ATestPositionIsLaidOutAndPlayed) {
  WriteFile("rules.txt", "#RULESCARD\n#EFFECT, SELF, TURNSTART, \"ECHO:the sun rises\"\n");
  PutPlayerCard(1);
  PutInPlay(MakeCard("Leftover", 1));
  State().Players[2].Hand[1] = MakeCard("Leftover", 2);
  State().Decks[1].Cards.Reset(0);
  for (int card = 1; card <= 12; ++card) {
    State().Decks[1].Cards.Append(MakeCard(Joined("C", card / 10, card % 10), 1));
  }
  State().Decks[2].Cards[1] = MakeCard("King", 2, {"PLAYER:1"});
  State().Decks[3].Cards[1] = MakeCard("Ogre", 1);
  Open(kTestPosition);
  desktop_->ExpectedMessages = {"Please choose the rules file to use for this card set.",
                                "Please choose the rules file to use for this card set.",
                                "Please choose the rules file to use for this card set."};
  desktop_->FileAnswers = {std::nullopt, "/else/where/none.txt", "/game/rules.txt"};
  form_.Command2.Click();
  EXPECT_TRUE(form_.Shown && State().DeckManagerMode == kTestPosition) << "cancelled";
  form_.Command2.Click();
  EXPECT_FALSE(form_.Shown);
  EXPECT_TRUE(TheMainWindow().Shown);
  EXPECT_EQ(State().GameFileName, "rules.txt");
  EXPECT_EQ(Joined(int{State().TestFromEditor}, int{State().DebugMode}), "11");
  EXPECT_EQ(Names(State().Players[1].Hand), "C01 C02 C03 C04 C05 C06 C07 C08 C09 - ");
  EXPECT_EQ(Names(State().Players[1].Deck), "- C10 C11 C12 ");
  EXPECT_EQ(Names(State().Players[2].Hand), "- - - - - - - - - - ");
  EXPECT_EQ(Names(State().CardTable), "King Ogre ");
  EXPECT_EQ(State().CardTable[1].Owner, 1);
  EXPECT_EQ(State().CardTable[2].Owner, 2);
  EXPECT_EQ(State().Players[1].PlayerCard, 1);
  EXPECT_NE(desktop_->Pages["WB"].find("the sun rises"), std::string::npos);
}

/// Else plans of an earlier game would play and discard the author's cards.
TEST_F(DeckManagerTest, ATestPositionBeginsWithoutThePlansOfTheGameBefore) {
  WriteFile("rules.txt", "#RULESCARD\n");
  State().GameFileName = "rules.txt";
  Session& state = State();
  Card& king = PutPlayerCard(1);
  AddEffect(king, "ECHO:armed in another game", kTargetSelf, "MENU:ONDEATH:Curse", 0, "SELF");
  king.Effects.Edit(1).MenuState = kArmedMenuAction;
  Card& goblin = PutInPlay(MakeCard("Goblin", 1));
  AddEffect(goblin, "MODTRAIT:HP:1", kTargetSelf, "PHASE1", 0, "SELF");
  RegisterAllHits(goblin);
  Card waiting = MakeCard("Sleeper", 1);
  waiting.ActivateOn = "PHASE3";
  AddToTable(waiting);
  QueuePending(MakeCard("Pending", 1));
  for (int position = 1; position <= 2; ++position) {
    state.Players[1].Hand[position] = MakeCard("Old", 1);
    QueuePlay(position, position == 1 ? 0 : -1);
  }
  state.AwaitingPlayTarget = state.AwaitingMenuTarget = 1;
  state.SelectedSlot = 2;
  ShowPlayMenu();
  state.Decks[1].Cards.Reset(0);
  for (const char* name : {"New1", "New2"}) state.Decks[1].Cards.Append(MakeCard(name, 1));
  state.Decks[2].Cards[1] = MakeCard("Ogre", 1);
  Open(kTestPosition);
  form_.Command2.Click();

  EXPECT_EQ(
      Joined(int{state.PlayQueue[1]}, int{state.PlayQueue[2]}, state.PlayTarget[2],
             int{state.AwaitingPlayTarget}, int{state.AwaitingMenuTarget}, state.SelectedSlot),
      "000000");
  EXPECT_EQ(desktop_->Pages["InPlayWB"].find("Old"), std::string::npos);
  EXPECT_EQ(desktop_->Pages["WB"].find("armed in another game"), std::string::npos);
  EXPECT_EQ(Names(state.CardTable), "Ogre - - ") << "nothing comes that waited before";
  for (const auto& hits : state.HitTable) EXPECT_TRUE(hits.empty());
  EXPECT_EQ(state.WaitingSlots[1], 0);
  TakeTurn(0);
  EXPECT_EQ(Names(state.Players[1].Hand), "New1 New2 - - - - - - - - ");
}

TEST_F(DeckManagerTest, InMidGameArmedActionsKeepTheirCards) {
  Own({"Elf", "Orc"});
  Card& actor = PutInPlay(MakeCard("Mage", 1));
  for (const int target : {1, 2}) {
    AddEffect(actor, "MODTRAIT:HP:1", kTargetCollection, "MENU:PHASE1:Train", 0, "COLLECTION");
    actor.Effects.Edit(target).MenuState = kArmedMenuAction;
    actor.Effects.Edit(target).ChosenTarget = target;
  }
  desktop_->ModalForms.emplace_back([this](Form&) {
    EXPECT_EQ(State().DeckManagerInGame, 1);
    form_.Option1[1]->Click();
    ClickCollection(1);  // Orc into deck 2
    desktop_->AcceptMessages = true;
    form_.Command5.Click();
    desktop_->YesNoAnswers = {true};
    ClickCollection(0);  // Elf is sold
    EXPECT_FALSE(form_.QueryClose());
  });
  const auto planned = [this] {
    const std::string& plan = desktop_->Pages["InPlayWB"];
    const auto first = plan.find("in their collection.");
    return (first != plan.npos) + (plan.find("in their collection.", first + 1) != plan.npos);
  };
  ShowPlayMenu();
  EXPECT_EQ(planned(), 2);
  TheMainWindow().deckmanagermen.Click();
  EXPECT_EQ(planned(), 1) << "the plan page says what is planned";
  EXPECT_EQ(actor.Effects[1].MenuState, kMenuAction) << "its card has gone";
  EXPECT_EQ(Joined(actor.Effects[2].MenuState, actor.Effects[2].ChosenTarget,
                   int{actor.Effects[2].PickedPile}),
            "212");
  State().TurnRunning = 1;
  TheMainWindow().deckmanagermen.Click();  // no second form: a turn runs
  EXPECT_EQ(State().DeckManagerInGame, 0);
}

}  // namespace
}  // namespace brindlemoor
