// The rows of the card editor: what a card becomes in them, and that it comes back whole.
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "core/strings.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/editor/card_edit_test.h"

namespace brindlemoor {
namespace {

/// A card with more of everything than there are rows, and with every form that needs care.
Card LargeCard() {
  Card card = MakeCard("Duke, the \xC3\x89mile", 1, {"BONUSHP:2", "RESIST:FIRE", "RESIST:ICE"});
  card.UniqueID = "Duke1";
  card.AuxText = "3 lamps";
  card.Rarity = 150;
  card.ActivateOn = "PHASE3";
  card.EntryScripts = "SETTRAIT:HP:3$|$";
  card.Description = "Two\r\nlines, <b>bold</b>";
  for (int item = 1; item <= 60; ++item) {
    SetTrait(card, Joined("T", item, ":a:", item, "::b"), "", 1);
    AddEffect(card, Joined("ECHO:", item, ":"), kTargetAll, "COST", 0, "ALL");
  }
  for (const int item : {1, 2, 30, 62}) card.TraitCaptions.Edit(item) = Joined("Caption ", item);
  AddEffect(card, "ECHO:x", kTargetSelf, "MENU:PHASE1:Do it, now", 0, "SELF");
  return card;
}

TEST_F(CardEditTest, ACardThatIsNotChangedComesBackWithEveryField) {
  State().TraitActions.Resize(1);
  Card& giver = State().TraitActions[1] = MakeCard("FLYING", 0);
  AddEffect(giver, "ECHO:flies", kTargetAll, "MENU:PHASE2:Fly", 1, "ALL");
  Card armed = MakeCard("Armed", 1, {"HP:"});
  armed.UniqueID = "A";
  AddEffect(armed, "ECHO:a", kTargetCard, "MENU:PHASE1:a", 0, "TARGETCARD");
  SetTrait(armed, "FLYING", "", 0);
  AddEffect(armed, "REQENEMY:ECHO:b", kTargetGidCard, "COST", 0, "GIDCARD:#LASTVAL#");
  armed.Effects.Edit(1).MenuState = kArmedMenuAction;
  armed.Effects.Edit(1).ChosenTarget = 7;
  ASSERT_EQ(armed.Effects.UpperBound(), 3);
  for (const Card& card : {LargeCard(), armed}) {
    form_.LoadCardIntoForm(card);
    const Card same = form_.BuildCardFromForm();
    EXPECT_TRUE(same.Traits.SharesStorageWith(card.Traits));
    EXPECT_TRUE(same.Effects.SharesStorageWith(card.Effects));
    EXPECT_EQ(Described(same), Described(card));
    EXPECT_EQ(same.AuxText, card.AuxText);
    EXPECT_EQ(same.TraitBits, card.TraitBits);
    EXPECT_EQ(same.ChangedTraits, card.ChangedTraits);
  }
  // What traits brought is no row; its place among the card's own actions stays.
  form_.LoadCardIntoForm(armed);
  EXPECT_EQ(form_.EffText[1].Text.Get(), "");
  EXPECT_EQ(form_.EffText[2].Text.Get(), "REQENEMY:ECHO:b");
  Type(form_.TraitText[2], "NEW");
  Card changed = form_.BuildCardFromForm();
  EXPECT_EQ(changed.Effects[1].ChosenTarget, 7);
  EXPECT_EQ(changed.Effects[1].MenuState, kArmedMenuAction);
  EXPECT_EQ(changed.Effects[2].Script, "TRAIT:TRAITEFFECT:FLYING:ECHO:flies");
  EXPECT_EQ(changed.Traits[1], "HP:");
  EXPECT_EQ(changed.Traits[3], "NEW");
  EXPECT_NE(changed.TraitBits, armed.TraitBits);
  // It goes with its trait.
  Type(form_.TraitText[1], "");
  changed = form_.BuildCardFromForm();
  ASSERT_EQ(changed.Effects.UpperBound(), 2);
  EXPECT_EQ(changed.Effects[2].Script, "REQENEMY:ECHO:b");
  EXPECT_EQ(changed.Effects[2].TargetType, kTargetGidCard);
}

TEST_F(CardEditTest, WhatDoesNotFitIntoTheRowsIsKeptBehindThem) {
  const Card large = LargeCard();
  form_.LoadCardIntoForm(large);
  EXPECT_EQ(form_.KeptLabel.Caption.Get(),
            "14 traits, 11 actions and 1 caption do not fit into these rows; they are kept.");
  Type(form_.TraitText[0], "x");
  Type(form_.EffText[0], "y");
  const Card changed = form_.BuildCardFromForm();
  EXPECT_EQ(changed.Traits[1], "x:2");
  EXPECT_EQ(changed.Effects[1].Script, "y");
  Card expected = large;
  expected.Traits.Edit(1) = "x:2";
  expected.TraitCaptions.Edit(1) = "";
  expected.Effects.Edit(1).Script = "y";
  EXPECT_EQ(Described(changed), Described(expected));
  form_.LoadCardIntoForm(MakeCard("Small", 1, {"HP:1"}));
  EXPECT_FALSE(form_.KeptLabel.Visible);
}

TEST_F(CardEditTest, RowsScrollAndAreBuiltInTheirOrder) {
  Type(form_.CardText[0], "Goblin");
  Scroll(form_.TraitScroll, 48);
  Type(form_.TraitText[2], "HP");
  Type(form_.ValueText[2], "007:x");
  Scroll(form_.TraitScroll, 1);
  EXPECT_EQ(form_.TraitText[2].Text.Get(), "");
  Type(form_.TraitText[0], "BONUSMANA");
  Type(form_.ValueText[0], "2");
  Type(form_.ValueText[1], "lost without a name");
  Type(form_.TraitDescName[0], "hp");
  Type(form_.TraitDescText[0], "Its health");
  Type(form_.TraitDescName[1], "ABSENT");
  Type(form_.TraitDescText[1], "dropped");
  Scroll(form_.TraitDescScroll, 2);
  EXPECT_EQ(form_.TraitDescName[0].Text.Get(), "ABSENT");
  Scroll(form_.EffScroll, 48);
  Type(form_.EffText[2], "DESTROY");
  ChooseText(form_.TargetCombo[2], "ALL");
  ChooseText(form_.TriggerCombo[2], "ONDEATH");
  Scroll(form_.EffScroll, 47);
  EXPECT_EQ(form_.TargetCombo[2].Text.Get(), "");
  EXPECT_EQ(form_.EffText[1].Text.Get(), "");
  Scroll(form_.EffScroll, 48);
  EXPECT_EQ(form_.TriggerCombo[2].Text.Get(), "ONDEATH");
  const Card card = form_.BuildCardFromForm();
  EXPECT_TRUE(card.UniqueID.View().starts_with("Goblin") && card.UniqueID.size() > 6);
  EXPECT_EQ(card.UniqueID, Edited().UniqueID);
  const std::string text = Described(card);
  EXPECT_EQ(text.substr(text.find("\ntrait")),
            "\ntrait [BONUSMANA:2][]\ntrait [HP:007:x][Its health]\ntrait [MANA:BONUS][]"
            "\naction [2][ALL][ONDEATH][0][][DESTROY]\nrarity 0\n");
}

TEST_F(CardEditTest, CaptionsOfTraitsWithOneNameStayWithTheirTraits) {
  Card card = MakeCard("Toll", 1, {"HP:1", "COST:FIRE", "COST:ICE", "COST:AIR"});
  for (const int item : {1, 2, 4}) card.TraitCaptions.Edit(item) = Joined("Caption ", item);
  struct Row {
    const char* Case;
    std::function<void()> Change;
    const char* Captions;  ///< each of a trait, in their order
  };
  TextBox& name = form_.TraitDescName[2];
  TextBox& text = form_.TraitDescText[2];
  const auto caption = [&](int row, const char* trait, const char* says) {
    Scroll(form_.TraitDescScroll, row - 2);
    Type(name, trait);
    Type(text, says);
  };
  const Row rows[] = {
      {"another row", [&] { Type(form_.ValueText[0], "2"); }, "Caption 1|Caption 2||Caption 4|"},
      {"the first of the name goes", [&] { Type(form_.TraitText[1], ""); },
       "Caption 1|Caption 2|Caption 4|"},
      {"a row of no trait", [&] { caption(40, "cost", "new"); },
       "Caption 1|Caption 2|new|Caption 4|"},
      {"more rows than traits",
       [&] {
         caption(40, "COST", "new");
         caption(41, "COST", "too many");
         caption(42, "HP", "by name");
       },
       "by name|Caption 2|new|Caption 4|"},
  };
  for (const Row& row : rows) {
    form_.LoadCardIntoForm(card);
    row.Change();
    const Card changed = form_.BuildCardFromForm();
    std::string captions;
    for (int item = 1; item <= changed.Traits.UpperBound(); ++item) {
      captions += Joined(changed.TraitCaptions[item], "|");
    }
    EXPECT_EQ(captions, row.Captions) << row.Case;
  }
}

TEST_F(CardEditTest, TriggersAndTargetsAskForWhatTheyNeed) {
  struct Row {
    ControlArray<ComboBox, 3> CardEdit::*Combo;
    const char* Chosen;
    std::vector<std::optional<std::string>> Answers;
    const char* Shown;
  };
  const Row rows[] = {
      {&CardEdit::TriggerCombo, "TRAITCHANGE", {"HP"}, "TRAITCHANGE:HP"},
      {&CardEdit::TriggerCombo, "BEFORETRAITCHANGE", {"HP"}, "BEFORETRAITCHANGE:HP"},
      {&CardEdit::TriggerCombo, "TRAITCHANGE", {std::nullopt}, "BEFORETRAITCHANGE:HP"},
      {&CardEdit::TriggerCombo, "MENU", {"PHASE1", std::nullopt}, "BEFORETRAITCHANGE:HP"},
      {&CardEdit::TriggerCombo, "MENU", {"PHASE1", "Strike"}, "MENU:PHASE1:Strike"},
      {&CardEdit::TargetCombo, "GIDCARD", {"12"}, "GIDCARD:12"},
      {&CardEdit::TargetCombo, "GIDCARD", {std::nullopt}, "GIDCARD:12"},
  };
  Type(form_.EffText[1], "DESTROY");
  for (const Row& row : rows) {
    desktop_->TextAnswers.assign(row.Answers.begin(), row.Answers.end());
    ComboBox& combo = (form_.*row.Combo)[1];
    ChooseText(combo, row.Chosen);
    EXPECT_TRUE(desktop_->TextAnswers.empty());
    EXPECT_EQ(combo.Text.Get(), row.Shown);
  }
  EXPECT_EQ(desktop_->Questions,
            (std::vector<std::string>{
                "Name of trait?", "Name of trait?", "Name of trait?", "Trigger for action?",
                "What should the menu caption for this item be?", "Trigger for action?",
                "What should the menu caption for this item be?", "Which Card?", "Which Card?"}));
  Scroll(form_.EffScroll, 20);
  Scroll(form_.EffScroll, 2);
  EXPECT_EQ(form_.TriggerCombo[0].Text.Get(), "MENU:PHASE1:Strike");
  const Card card = form_.BuildCardFromForm();
  EXPECT_EQ(card.Effects[1].Trigger, "PHASE1");
  EXPECT_EQ(card.Effects[1].MenuState, kMenuAction);
  EXPECT_EQ(card.Effects[1].MenuCaption, "Strike");
  EXPECT_EQ(card.Effects[1].TargetType, kTargetGidCard);
  EXPECT_EQ(card.Effects[1].TargetText, "GIDCARD:12");

  form_.TriggerCombo[0].Text = "COUNTER";
  form_.TriggerCombo[0].Change();
  desktop_->ExpectedMessages = {
      "The Add Effect menu cannot be used for COUNTER commands.  (See main help for details.)"};
  form_.EffButton[0].Click();
  ChooseText(form_.TriggerCombo[0], "COST");
  desktop_->ModalForms.emplace_back(
      [](Form& shown) { static_cast<EffectPicker&>(shown).Value = "REQALLY:"; });
  form_.EffButton[0].Click();
  EXPECT_EQ(form_.BuildCardFromForm().Effects[1].Script, "DESTROYREQALLY:");
}

/// Every card data file that comes with the program, its cards as the editor's own.
TEST_F(CardEditTest, ShippedFilesAreSavedAsTheyWereOpened) {
  namespace fs = std::filesystem;
  int cards = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(std::string(BRINDLEMOOR_SOURCE_DIR) + "/games")) {
    if (entry.path().extension() != ".txt") continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    WriteFile("shipped.txt", std::string(std::istreambuf_iterator<char>(stream), {}));
    Load("shipped.txt");
    for (int card = 1; card <= State().Collection.UpperBound(); ++card) {
      if (Stored(card).UniqueID.empty()) Stored(card).UniqueID = Joined("U", card);
      Stored(card).SourceFile = "copy.txt";
    }
    const std::string before = Described(State().Collection);
    for (int card = 1; card <= State().Collection.UpperBound(); ++card) {
      Choose(card);
      LetAllListsBeBuilt();
      ++cards;
    }
    SaveAs("copy.txt");
    Load("copy.txt");
    EXPECT_EQ(Described(State().Collection), before) << entry.path();
  }
  EXPECT_GT(cards, 40);
}

TEST_F(CardEditTest, OddCardsAreSavedAsTheyWereOpened) {
  Card odd = LargeCard();
  odd.Name = "#odd, \"card\"";
  odd.UniqueID = "a, b";
  odd.TraitCaptions.Edit(1) = "said \xE2\x82\xAC, so";
  AddEffect(odd, "ECHO:y", kTargetGidCard, "MENU:COST:#caption", 0, "GIDCARD:1,2");
  LoadCards({LargeCard(), odd});
  SaveAs("first.txt");
  const std::string saved = ReadFile("first.txt");
  Load("first.txt");
  for (int card = 1; card <= 2; ++card) {
    Choose(card);
    LetAllListsBeBuilt();
  }
  SaveAs("first.txt");
  EXPECT_EQ(ReadFile("first.txt"), saved);
}

}  // namespace
}  // namespace brindlemoor
