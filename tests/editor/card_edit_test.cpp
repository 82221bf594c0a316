// The card editor: its card list, templates, fields, files and cost calculator.
#include "tests/editor/card_edit_test.h"

#include "core/strings.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/support/played_pictures.h"

namespace brindlemoor {
namespace {

Card NamedCard(const std::string& name, const std::vector<std::string>& traits = {}) {
  Card card = MakeCard(name, 1, traits);
  card.UniqueID = name + "1";
  return card;
}

TEST_F(CardEditTest, FieldsAreStoredWithTheNextChoiceAndTheListFollows) {
  LoadCards({NamedCard("Bat", {"HP:1"}), NamedCard("Ape"), NamedCard("Ape", {"FLYING"})});
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Ape|Bat|");
  EXPECT_EQ(Listed(form_.TraitCombo[2]), "FLYING|HP|");
  EXPECT_EQ(form_.cardtotal.Caption.Get(), "Total Cards: 3");
  Choose(2);
  EXPECT_EQ(form_.TraitText[0].Text.Get(), "FLYING");
  Type(form_.CardText[0], "Gnu");
  Type(form_.CardText[1], "5");
  Type(form_.DescText, "runs");
  ChooseText(form_.RarityCombo, "101");
  ChooseText(form_.ActivateCombo, "PHASE10");
  form_.ActivateCombo.Text = "DUSK";
  form_.ActivateCombo.Change();
  ChooseText(form_.TraitCombo[1], "HP");
  desktop_->ColorAnswers.emplace_back(0x0A80FF);
  form_.ColorLabel.Click();
  EXPECT_EQ(Stored(2).Name, "Ape");
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Ape|Bat|");
  Choose(3);
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Gnu|Bat|");
  EXPECT_EQ(form_.CardCombo.Selected, 3);
  EXPECT_EQ(form_.Lists.Place(), 3);
  const Card& gnu = Stored(2);
  EXPECT_EQ(Joined(gnu.Name, gnu.AuxText, gnu.Description, int{gnu.Rarity}, gnu.ActivateOn,
                   gnu.NameColor, gnu.Traits[2]),
            "Gnu5runs101DUSK#0A80FFHP");
  EXPECT_EQ(form_.ColorLabel.TextColor, 0xFFFFFF);
  Edited().NameColor = "teal";
  form_.UpdateCard();
  EXPECT_EQ(EditedImage::FrameColor(), 0);
  // A card of no list is added by "Save Card".
  Type(form_.CardText[0], "Bee");
  form_.Command6.Click();
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Gnu|Bee|");
}

TEST_F(CardEditTest, DuplicatesAndTemplatesMakeCardsOfTheirOwn) {
  LoadCards({NamedCard("Ape", {"HP:1"})});
  Choose(1);
  Edited().Picture = "ape.jpg";
  form_.DuplicateButton.Click();
  EXPECT_EQ(Edited().Name, "Copy of Ape");
  EXPECT_TRUE(Edited().UniqueID.View().starts_with("Ape") && Edited().UniqueID != "Ape1");
  EXPECT_EQ(Edited().Picture, "ape.jpg");
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Copy of Ape|");
  EXPECT_NE(Edited().GlobalID, Stored(1).GlobalID);
  form_.Image.BackFile = "back.bmp";
  form_.Image.MiniBorderFile = "mini.bmp";
  form_.Command5.Click();
  form_.Command5.Click();  // the same name: the same template
  EXPECT_EQ(Listed(form_.TemplateCombo), "Blank Card|Copy of Ape|");
  form_.Image.BackFile = form_.Image.MiniBorderFile = "";
  Type(form_.DescText, "typed");
  form_.TemplateCombo.Select(2);
  form_.NewCardButton.Click();
  EXPECT_EQ(Edited().Name, "New Copy of Ape");
  EXPECT_TRUE(Edited().UniqueID.View().starts_with("New Copy of Ape"));
  EXPECT_EQ(form_.Image.BackFile + form_.Image.MiniBorderFile, "back.bmpmini.bmp");
  EXPECT_EQ(form_.TraitText[0].Text.Get(), "HP");
  EXPECT_EQ(Stored(2).Description, "typed");
  form_.TemplateCombo.Select(1);
  form_.NewCardButton.Click();
  EXPECT_EQ(Edited().Name, "New New Card");
  EXPECT_EQ(form_.Lists.Place(), 4);
  SaveAs("saved.txt");
  Load("saved.txt");
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Copy of Ape|New Copy of Ape|New New Card|");
  EXPECT_EQ(State().Templates[1].BackImage, "back.bmp");
}

TEST_F(CardEditTest, ADeletedCardTakesNoOtherWithIt) {
  LoadCards({NamedCard("Ape", {"HP:1"}), NamedCard("Bat"), NamedCard("Cat")});
  Choose(1);
  desktop_->YesNoAnswers = {false, true};
  form_.Command4.Click();
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Bat|Cat|");
  form_.Command4.Click();
  EXPECT_EQ(Listed(form_.CardCombo), "Bat|Cat||");
  EXPECT_EQ(form_.TraitText[0].Text.Get(), "");
  Choose(2);
  Choose(3);
  Choose(1);
  EXPECT_EQ(Listed(form_.CardCombo), "Bat|Cat||");
  EXPECT_EQ(Stored(1).Name, "Bat");
  SaveAs("saved.txt");
  EXPECT_EQ(ReadFile("saved.txt").find("Ape"), std::string::npos);
  Load("saved.txt");
  EXPECT_EQ(Listed(form_.CardCombo), "Bat|Cat|");
}

TEST_F(CardEditTest, TheEditedCardIsFoundAgainWhereverItLies) {
  LoadCards({NamedCard("Ape"), NamedCard("Bat"), NamedCard("Cat")});
  Choose(1);
  std::swap(Stored(1), Stored(3));
  Type(form_.CardText[0], "Zebra");
  form_.CollectionChanged();
  EXPECT_EQ(form_.Lists.Place(), 3);
  EXPECT_EQ(form_.CardCombo.Selected, 3);
  Choose(2);
  EXPECT_EQ(Listed(form_.CardCombo), "Cat|Bat|Zebra|");
  Stored(2) = NamedCard("Bat");  // one of the same name
  form_.CollectionChanged();
  EXPECT_EQ(form_.Lists.Place(), 0);
}

TEST_F(CardEditTest, SuperChangeIsNotUndoneByTheEditedCard) {
  LoadCards({NamedCard("Ape", {"CHARACTER"}), NamedCard("Bat"), NamedCard("Cat", {"character"})});
  Choose(1);
  form_.Command8.Click();
  Choose(2);
  EXPECT_EQ(Joined(Stored(1).ActivateOn, "|", Stored(2).ActivateOn, "|", Stored(3).ActivateOn),
            "TURNEND||TURNEND");
}

TEST_F(CardEditTest, CommonTraitsFillAHundredPlacesAndStay) {
  std::vector<std::string> traits;
  for (int trait = 1; trait <= 120; ++trait) traits.push_back(Joined("T", trait, ":1"));
  LoadCards({NamedCard("Ape", {"LONE"})});
  EXPECT_EQ(Listed(form_.TraitCombo[0]), "") << "a file of one card fills nothing";
  LoadCards({NamedCard("Bat", {"HP:1", "hp:2"}), NamedCard("Cat", traits)});
  LoadCards({NamedCard("Dog", {"HP:3"}), NamedCard("Emu")});
  const auto& names = form_.TraitCombo[1].Items.Get();
  ASSERT_EQ(names.size(), 100U);
  EXPECT_EQ(names[0] + names[1] + names[2] + names[99], "HPhpT1T98");
}

TEST_F(CardEditTest, NothingIsWrittenOrLostWhenADialogIsCancelled) {
  LoadCards({NamedCard("Ape")});
  Choose(1);
  const auto files = files_->Contents;
  Type(form_.CardText[0], "Gnu");
  desktop_->FileAnswers = {std::nullopt, "/game/*.txt", "/game/absent.txt",
                           std::nullopt, std::nullopt,  "/game/store.txt"};
  desktop_->TextAnswers = {std::nullopt};
  desktop_->ExpectedMessages = {"There is no file /game/absent.txt."};
  for (int time = 0; time < 3; ++time) form_.loaddeckmen.Click();
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|");
  EXPECT_EQ(State().CardFile, "/game/cards.txt");
  form_.savedeckasmen.Click();
  form_.Cardstoremen.Click();
  form_.starterdeckmen.Click();
  EXPECT_EQ(files_->Contents, files);
  EXPECT_TRUE(desktop_->FileAnswers.empty());
  files_->WriteError = "disk full";
  desktop_->AcceptMessages = true;
  SaveAs("other.txt");
  EXPECT_EQ(State().CardFile, "/game/cards.txt");
}

TEST_F(CardEditTest, SavesStampTheCardsThatChangeAndKeepTheRules) {
  WriteFile("rules.txt",
            "#TRAITACTION, FLYING\r\n#CARD, INDECK, \"Ape\", , , , , #FF0000, \"\"\r\n"
            "#TRAIT, HP:1\r\n");
  Load("rules.txt");
  EXPECT_EQ(form_.Image.CardFolder, "/game/");
  Choose(1);
  EXPECT_EQ(EditedImage::FrameColor(), 0xFF0000);
  const std::string rules = ReadFile("rules.txt");
  form_.savedeckmen.Click();
  EXPECT_EQ(ReadFile("rules.txt"), rules);
  Type(form_.DescText, "swings");
  form_.savedeckmen.Click();
  form_.savedeckmen.Click();
  EXPECT_EQ(Stored(1).SourceFile, "rules.txt");
  EXPECT_EQ(Edited().SourceFile, "rules.txt");
  EXPECT_TRUE(
      ReadFile("rules.txt").starts_with("#TRAITACTION, FLYING\r\n#CARD, INDECK, \"Ape\", \"Ape"));
  EXPECT_NE(ReadFile("rules.txt").find("rules.txt, , , #FF0000, \"swings\"\r\n#TRAIT, HP:1"),
            std::string::npos);
  const std::string saved = ReadFile("rules.txt");
  Load("rules.txt");
  SaveAs("rules.txt");
  EXPECT_EQ(ReadFile("rules.txt"), saved);
}

TEST_F(CardEditTest, StoresAndStarterDecksIncludeTheCardFile) {
  LoadCards({NamedCard("Ape")});
  Choose(1);
  Type(form_.CardText[0], "Gnu");
  desktop_->FileAnswers = {"/game/store.txt", "/game/starter.txt"};
  desktop_->TextAnswers = {"Lamps", "Sparks"};
  form_.Cardstoremen.Click();
  form_.starterdeckmen.Click();
  EXPECT_EQ(desktop_->Questions,
            (std::vector<std::string>{"Name of store?", "Name of starter deck?"}));
  EXPECT_EQ(Stored(1).Name, "Gnu");
  EXPECT_NE(ReadFile("store.txt").find("8 new cards from the Lamps set"), std::string::npos);
  EXPECT_NE(ReadFile("starter.txt").find("#NEUTRALCARD, Sparks"), std::string::npos);
  for (const char* file : {"store.txt", "starter.txt"}) {
    EXPECT_NE(ReadFile(file).find("#INCLUDE, cards.txt"), std::string::npos);
    EXPECT_EQ(ReadFile(file).find("Gnu"), std::string::npos);
  }
  EXPECT_EQ(State().CardFile, "/game/cards.txt");
}

TEST_F(CardEditTest, TheCostCardsActionsRunOnTheChosenCard) {
  LoadCards({NamedCard("Ape", {"PRICE:1"}), NamedCard("Bat", {"PRICE:1"})});
  State().CostCard = MakeCard("CostCard", 1);
  Card& cost = State().CostCard;
  AddEffect(cost, "REQTRAIT:FLYING:SETTRAIT:COST:99", kTargetSelf, "COST", 0, "SELF");
  AddEffect(cost, "MODTRAIT:PRICE:2", kTargetAll, "TURNSTART", 0, "ALL");
  AddEffect(cost, "", kTargetAll, "", 0, "ALL");
  form_.UpdateCard();
  desktop_->ExpectedMessages = {"Save the card first: costs are calculated for cards of the list."};
  form_.CostButton.Click();
  EXPECT_TRUE(form_.CostButton.Visible);
  Choose(2);
  Type(form_.ValueText[0], "5");
  Scroll(form_.TraitScroll, 30);
  form_.CostButton.Click();
  form_.CostButton.Click();
  EXPECT_EQ(form_.Edited.Rows.Tops.Trait, 1);
  EXPECT_EQ(form_.ValueText[0].Text.Get(), "9");
  EXPECT_EQ(Stored(2).Traits[1], "PRICE:9");
  EXPECT_EQ(Stored(2).Traits.UpperBound(), 1);
  EXPECT_EQ(Stored(1).Traits[1], "PRICE:1");
  AddEffect(cost, "ADDEFFECT:COST:OWNER:SUBTRAIT:MANA:1", kTargetAll, "TURNSTART", 0, "ALL");
  form_.CostButton.Click();
  EXPECT_EQ(form_.EffText[0].Text.Get(), "SUBTRAIT:MANA:1");
  EXPECT_EQ(Joined(Stored(2).Effects[1].Trigger, "|", Stored(2).Effects[1].TargetText),
            "COST|OWNER");
  EXPECT_EQ(Stored(1).Effects[1].Script, "");
  EXPECT_EQ(State().PendingEffectText, "");
  // A file with a cost card of its own replaces it, however often it is loaded.
  WriteFile("own.txt", "#COSTCARD\r\n#EFFECT, SELF, COST, \"MODTRAIT:PRICE:1\"\r\n");
  Load("own.txt");
  Load("own.txt");
  EXPECT_EQ(State().CostCard.Effects.UpperBound(), 1);
  State().CostCard = Card{};
  form_.UpdateCard();
  EXPECT_FALSE(form_.CostButton.Visible);
}

TEST_F(CardEditTest, AFileThatIsLoadedEndsWhatTheLastOneDeclared) {
  WriteFile("store.txt",
            "#COSTCARD\r\n#EFFECT, SELF, COST, \"MODTRAIT:PRICE:1\"\r\n#STARTERDECK\r\n"
            "#TEMPLATE, Beast, , , , , \r\n#RULESCARD\r\n#EFFECT, SELF, PHASE1, \"ECHO:x\"\r\n");
  WriteFile("plain.txt", "#CARD, COLLECTION, Ape, , , , , , \r\n");
  const auto declared = [] {
    const Session& state = State();
    return Joined(state.CostCard.Name, " ", int{state.StarterDeckFlag}, " ",
                  state.Templates[1].Card.Name, " ", state.RulesCard.Effects.UpperBound());
  };
  const std::string before = declared();
  Load("store.txt");
  EXPECT_EQ(declared(), "CostCard 1 Beast 1");
  Load("plain.txt");
  EXPECT_EQ(declared(), before);
}

TEST_F(CardEditTest, TheReducedFormChangesOnlyThePicture) {
  LoadCards({NamedCard("Ape")});
  State().SingleCardEdit = 1;
  State().TestFromEditor = 1;
  State().EditCard = NamedCard("Own", {"HP:3"});
  State().Collection[1].Name = "Owned";
  form_.Form_Load();
  EXPECT_EQ(form_.CardText[0].Text.Get(), "Own");
  EXPECT_FALSE(form_.filemen.Visible || form_.CardCombo.Visible || form_.ButtonFrame.Visible ||
               form_.CardActionFrame.Visible || form_.RarityCombo.Visible);
  EXPECT_TRUE(form_.TraitText[1].ReadOnly && form_.ValueText[0].ReadOnly);
  WriteFile("own.jpg", PictureBytes(2, 3, 0));
  WriteFile("own-mini.jpg", PictureBytes(2, 2, 0));
  desktop_->ModalForms = {Pick("/game/own.jpg"), Pick("/game/own-mini.jpg")};
  form_.loadgraphicmen.Click();
  EXPECT_EQ(form_.MiniPic.Picture.Get(), "/game/own-mini.jpg");
  EXPECT_FALSE(form_.QueryClose()) << "no file has changed: nothing to ask";
  EXPECT_EQ(State().CardFile, "/game/cards.txt");
  EXPECT_FALSE(form_.QueryClose());
  EXPECT_EQ(State().TestFromEditor, 0);
  EXPECT_EQ(Joined(Edited().Name, Edited().Picture, Edited().Thumb, Edited().Traits[1]),
            "Ownown.jpgown-mini.jpgHP:3");
  State().SingleCardEdit = 0;
  form_.Form_Load();
  EXPECT_TRUE(form_.filemen.Visible && form_.CardCombo.Visible && !form_.ValueText[0].ReadOnly);
  EXPECT_EQ(Listed(form_.CardCombo), "|");
  EXPECT_EQ(Edited().Name, "");
  EXPECT_EQ(State().CardFile, "");
}

TEST_F(CardEditTest, HelpAndTexts) {
  for (const int index : {0, 1, 2, 3, 4}) {
    desktop_->AcceptMessages = true;
    form_.Command1[index].Click();
  }
  ASSERT_EQ(desktop_->Messages.size(), 4U) << "button 3 says nothing";
  EXPECT_EQ(desktop_->Messages[3], form_.DescText.ToolTip.Get());
  form_.testcardsmen.Click();
  EXPECT_EQ(desktop_->Messages.back(), "You need to load a card file first.");
  Type(form_.CardText[0], "Goblin");
  form_.gencardtextmen.Click();
  EXPECT_TRUE(form_.OutputText.Visible);
  EXPECT_NE(form_.OutputText.Text.Get().find("#CARD, INDECK, \"Goblin\""), std::string::npos);
  form_.OutputText.RightClick();
  EXPECT_FALSE(form_.OutputText.Visible);
}

TEST_F(CardEditTest, ButtonsThatCanDoNothingSayWhy) {
  desktop_->FileAnswers = {"/game/shop.txt"};
  desktop_->TextAnswers = {""};
  desktop_->ExpectedMessages = {"Give the card a name first: templates are chosen by it.",
                                "No card has the trait CHARACTER.",
                                "Without a name nothing is saved."};
  form_.Command5.Click();
  form_.Command8.Click();
  form_.Cardstoremen.Click();
  form_.FindNext.Click();
  EXPECT_EQ(form_.FindNote.Caption.Get(), "Type what to look for.");
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
}

}  // namespace
}  // namespace brindlemoor
