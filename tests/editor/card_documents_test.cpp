// All files of a game in the editor: each card stays in its file, and goes where it is sent.
#include "editor/card_documents.h"

#include "core/cards.h"
#include "game/game_list.h"
#include "script/trait_changes.h"
#include "tests/editor/card_edit_test.h"
#include "tests/support/shipped_games.h"

namespace brindlemoor {
namespace {

constexpr const char* kRules =
    "#GAMERULES, Marsh, , #000000, marsh, \n#DECKRULES, \"\"\n#RULESCARD\n"
    "#EFFECT, SELF, PHASE1, \"ECHO:rules\"\n#INCLUDE, Shared.txt\n";
constexpr const char* kShared = "#CARD, INDECK, \"Toad\", \"T1\", , , , , \"\"\n#TRAIT, HP:2\n";
constexpr const char* kCards =
    "the cards of the marsh\n\n"
    "#CARD, INDECK, \"Elf\", \"E1\", Cards.txt, e.jpg, , #00FF00, \"small\"\n#TRAIT, HP:3\n\n"
    "remark\n"
    "#CARD, INDECK, \"Frog\", \"F1\", Cards.txt, , , , \"\"\n#TRAIT, HP:1\n";
constexpr const char* kEnemy =
    "#CARD, #PLAYERCARD, \"Ogre\", \"O1\", , , , , \"waits\"\n"
    "#CARD, INDECK, \"Ogre\", \"O1\", , , , , \"\"\n#TRAIT, PLAYER:1, #TRAIT, HP:9\n"
    "*** his deck\n"
    "#CARD, INDECK, \"Frog\", \"F1\", Cards.txt, , , , \"\"\n#DUPLICATE, 2\n"
    "#INCLUDE, Cards.txt, INDECK\n";

class CardDocumentsTest : public CardEditTest {
 protected:
  void SetUp() override {
    WriteFile("Marsh.txt", kRules);
    WriteFile("Shared.txt", kShared);
    WriteFile("marsh/Cards.txt", kCards);
    WriteFile("marsh/1_Ogre.txt", kEnemy);
  }
  void OpenGame() { form_.opengamemen.Click(); }
  std::string Names() const { return Listed(form_.CardCombo); }
  int PlaceOf(std::string_view name) const {
    const Pile& cards = State().Collection;
    for (int place = 1; place <= cards.UpperBound(); ++place) {
      if (cards[place].Name == name) return place;
    }
    ADD_FAILURE() << "no card " << name;
    return 1;
  }
  void ExpectFiles(const std::string& shared, const std::string& cards, const std::string& enemy) {
    EXPECT_EQ(ReadFile("Marsh.txt"), kRules);
    EXPECT_EQ(ReadFile("Shared.txt"), shared);
    EXPECT_EQ(ReadFile("marsh/Cards.txt"), cards);
    EXPECT_EQ(ReadFile("marsh/1_Ogre.txt"), enemy);
  }
  static std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return text.replace(found, from.size(), to);
  }
};

TEST_F(CardDocumentsTest, EveryCardOfAGameIsThereOnceAndChangesInItsFileOnly) {
  OpenGame();
  EXPECT_EQ(Names(), "Ogre  (1_Ogre.txt)|Elf  (Cards.txt)|Frog  (Cards.txt)|Toad  (Shared.txt)|");
  form_.savedeckmen.Click();
  ExpectFiles(kShared, kCards, kEnemy);

  Choose(PlaceOf("Ogre"));
  EXPECT_EQ(form_.FileCombo.Text.Get(), "1_Ogre.txt");
  Type(form_.ValueText[1], "12");
  Choose(PlaceOf("Toad"));
  Type(form_.ValueText[0], "5");
  EXPECT_EQ(form_.Caption.Get(), "Card Editor *");
  form_.savedeckmen.Click();
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
  ExpectFiles(Replaced(kShared, "#TRAIT, HP:2\n", "#TRAIT, \"HP:5\"\n"), kCards,
              Replaced(kEnemy, "#TRAIT, HP:9\n", "#TRAIT, \"HP:12\"\n"));
}

TEST_F(CardDocumentsTest, ACardMovesToAnotherFileAndBack) {
  OpenGame();
  Choose(PlaceOf("Frog"));
  ChooseText(form_.FileCombo, "Shared.txt");
  form_.savedeckmen.Click();
  const std::string all = kCards;
  const std::string without = all.substr(all.find("#CARD, INDECK, \"Frog\""));
  EXPECT_EQ(ReadFile("marsh/Cards.txt"), Replaced(kCards, without, ""));
  const std::string shared = ReadFile("Shared.txt");
  EXPECT_TRUE(shared.starts_with(kShared));
  EXPECT_NE(shared.find("#CARD, INDECK, \"Frog\", \"F1\", Shared.txt,"), std::string::npos)
      << "where the file's other cards go";
  form_.undomen.Click();
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile("Shared.txt"), kShared);
  EXPECT_NE(ReadFile("marsh/Cards.txt").find("\"Frog\", \"F1\", Cards.txt,"), std::string::npos);
  EXPECT_EQ(ReadFile("marsh/1_Ogre.txt"), kEnemy) << "deck lines are nobody's cards";
}

TEST_F(CardDocumentsTest, NewCardsComeToTheFileOfTheCardBefore) {
  OpenGame();
  Choose(PlaceOf("Toad"));
  form_.NewCardButton.Click();
  Type(form_.CardText[0], "Newt");
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("Shared.txt").find("#CARD, INDECK, \"Newt\""), std::string::npos);
  ExpectFiles(ReadFile("Shared.txt"), kCards, kEnemy);
  Choose(PlaceOf("Newt"));
  desktop_->YesNoAnswers = {true};
  form_.Command4.Click();
  form_.savedeckmen.Click();
  ExpectFiles(kShared, kCards, kEnemy);
}

TEST_F(CardDocumentsTest, AFileThatOthersHaveChangedIsAskedFor) {
  OpenGame();
  Choose(PlaceOf("Elf"));
  Type(form_.ValueText[0], "7");
  WriteFile("marsh/1_Ogre.txt", "theirs");
  form_.savedeckmen.Click();  // that one is not written
  EXPECT_EQ(ReadFile("marsh/1_Ogre.txt"), "theirs");
  EXPECT_NE(ReadFile("marsh/Cards.txt").find("HP:7"), std::string::npos);
  WriteFile("marsh/Cards.txt", "theirs");
  Type(form_.ValueText[0], "8");
  desktop_->YesNoAnswers = {false, true};
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile("marsh/Cards.txt"), "theirs");
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile("marsh/Cards.txt.other"), "theirs");
  EXPECT_NE(ReadFile("marsh/Cards.txt").find("HP:8"), std::string::npos);
}

TEST_F(CardDocumentsTest, ACardOnItsWayBetweenTwoFilesIsInACopy) {
  OpenGame();
  Choose(PlaceOf("Frog"));
  ChooseText(form_.FileCombo, "Shared.txt");
  files_->WriteError = "disk full";
  const std::string copy = "/game/Marsh (whole game).txt.unsaved";
  desktop_->ExpectedMessages = {"Can't keep a copy of unsaved changes as " + copy + ": disk full"};
  form_.savedeckmen.Click();
  ExpectFiles(kShared, kCards, kEnemy);
  files_->WriteError = "";
  form_.savedeckmen.Click();
  EXPECT_NE(ReadFile("Shared.txt"), kShared);
  EXPECT_EQ(files_->Contents.count(copy), 0U) << "all is saved";
}

TEST_F(CardDocumentsTest, UnsavedWorkOnAGameComesBack) {
  OpenGame();
  Choose(PlaceOf("Elf"));
  Type(form_.ValueText[0], "7");
  form_.UnsavedTimer.Tick();
  form_.Form_Load();  // as after a crash
  desktop_->YesNoAnswers = {true};
  OpenGame();
  EXPECT_EQ(form_.Caption.Get(), "Card Editor *");
  form_.savedeckmen.Click();
  ExpectFiles(kShared, Replaced(kCards, "#TRAIT, HP:3\n", "#TRAIT, \"HP:7\"\n"), kEnemy);
  form_.Form_Load();
  OpenGame();  // no question
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
}

TEST_F(CardDocumentsTest, WhichGameIsAskedWhereThereAreTwo) {
  WriteFile("Bog.txt", "#GAMERULES, Bog, , , , \n");
  desktop_->ModalForms.emplace_back([](Form&) {
    TheChoiceForm().List1.Selected = 2;
    TheChoiceForm().Command2.Click();
  });
  OpenGame();
  EXPECT_EQ(Names(), "|");
  desktop_->ModalForms.emplace_back([](Form&) {
    TheChoiceForm().List1.Selected = 2;
    TheChoiceForm().Command1.Click();
  });
  OpenGame();
  EXPECT_EQ(State().Collection.UpperBound(), 4);
  desktop_->FileAnswers.emplace_back("/game/Shared.txt");
  form_.loaddeckmen.Click();
  EXPECT_EQ(Names(), "Toad|") << "a file alone is no game";
  EXPECT_FALSE(form_.FileCombo.Visible);
}

TEST_F(CardDocumentsTest, AFileThatBringsCardsOfOthersIsOpenedWithThem) {
  const std::string shop =
      "a shop\n#CARD, INDECK, \"Sign\", \"S1\", , , , , \"\"\n#INCLUDE, Stock.txt, \n";
  const std::string stock = "its goods\n#CARD, COLLECTION, \"Rope\", \"R1\", , , , , \"\"\n";
  WriteFile("Shop.txt", shop);
  WriteFile("Stock.txt", stock);
  desktop_->FileAnswers.emplace_back("/game/Shop.txt");
  form_.loaddeckmen.Click();
  EXPECT_EQ(Names(), "Sign  (Shop.txt)|Rope  (Stock.txt)|");
  EXPECT_EQ(State().CardFile, "/game/Shop.txt");
  SetTrait(State().Collection[PlaceOf("Rope")], "HP", "2", 1);
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile("Shop.txt"), shop);
  EXPECT_EQ(ReadFile("Stock.txt"), Joined(stock, "#TRAIT, \"HP:2\"\n"));
}

TEST_F(ShippedGamesTest, AreLeftAsTheyAreByTheEditor) {
  State().Games.Reset(1);
  DiscoverGames();
  int cards = 0;
  const Table<GameRec> games = State().Games;
  for (const GameRec& game : games) {
    CardDocuments documents;
    EXPECT_TRUE(documents.OpenGame(game).empty()) << game.Name.View();
    Session& state = State();
    EXPECT_TRUE(documents.Changes(state.Collection, state.Templates).empty());
    cards += state.Collection.UpperBound();
    SetTrait(state.Collection[1], "NEWTRAIT", "1", 1);
    EXPECT_EQ(documents.Changes(state.Collection, state.Templates).size(), 1U);
  }
  EXPECT_GT(cards, 100);
}

}  // namespace
}  // namespace brindlemoor
