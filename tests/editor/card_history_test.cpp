// Undo and redo in the card editor.
#include "editor/card_history.h"

#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"
#include "tests/support/played_pictures.h"

namespace brindlemoor {
namespace {

class CardHistoryTest : public CardEditTest {
 protected:
  CardHistoryTest() {
    Card ape = MakeCard("Ape", 1, {"HP:1"});
    Card bat = MakeCard("Bat", 1);
    ape.UniqueID = "Ape1";
    bat.UniqueID = "Bat1";
    LoadCards({ape, bat});
    Choose(1);
  }
  /// All that the steps of these tests change: in the card that would be stored, and in a row that
  /// is no action yet.
  std::string Content() const {
    const Card card = form_.Edited.WithRows();
    std::string content = Joined(card.Name, "|", card.Description, "|", int{card.Rarity}, "|",
                                 card.NameColor, "|", card.Picture);
    for (const Text& trait : card.Traits) content += Joined("|", trait);
    const EffectRow& action = form_.Edited.Rows.Effects[1];
    content += Joined("|", action.Target, ">", action.Trigger, ">", action.Script);
    return content;
  }
  void Undo() { form_.undomen.Click(); }
  void Redo() { form_.redomen.Click(); }
};

TEST_F(CardHistoryTest, EveryChangeIsOneStepThereAndBack) {
  EXPECT_FALSE(form_.undomen.Enabled || form_.redomen.Enabled);
  WriteFile("ape.jpg", PictureBytes(2, 3, 0));
  const std::function<void()> changes[] = {
      [&] {
        Type(form_.CardText[0], "Ap");
        Type(form_.CardText[0], "Gnu");
      },
      [&] { Type(form_.DescText, "runs"); },
      [&] { ChooseText(form_.RarityCombo, "7"); },
      [&] {
        desktop_->ColorAnswers.emplace_back(0x0A80FF);
        form_.ColorLabel.Click();
      },
      [&] {
        desktop_->ModalForms = {Pick("/game/ape.jpg"), Pick("/game/ape.jpg")};
        form_.loadgraphicmen.Click();
      },
      [&] { ChooseText(form_.TargetCombo[0], "SELF"); },
      [&] { ChooseText(form_.TriggerCombo[0], "PHASE1"); },
      [&] { ChooseText(form_.TriggerCombo[0], "PHASE2"); },
      [&] { Type(form_.EffText[0], "ECHO:hi"); },
      [&] { Type(form_.ValueText[0], "5"); },
      [&] { Type(form_.TraitText[1], "FLYING"); },
  };
  std::vector<std::string> states;
  for (const auto& change : changes) {
    states.push_back(Content());
    change();
  }
  const std::string last = Content();
  desktop_->ColorAnswers.emplace_back(std::nullopt);
  form_.ColorLabel.Click();  // cancelled: no step
  for (std::size_t step = states.size(); step-- > 0;) {
    ASSERT_TRUE(form_.undomen.Enabled) << step;
    Undo();
    EXPECT_EQ(Content(), states[step]) << step;
  }
  EXPECT_FALSE(form_.undomen.Enabled);
  EXPECT_EQ(form_.CardText[0].Text.Get() + form_.ValueText[0].Text.Get(), "Ape1");
  Undo();
  while (form_.redomen.Enabled) Redo();
  EXPECT_EQ(Content(), last);
  EXPECT_EQ(form_.TraitText[1].Text.Get(), "FLYING");
  Undo();
  Type(form_.CardText[0], "Emu");
  EXPECT_FALSE(form_.redomen.Enabled) << "another way was taken";
}

TEST_F(CardHistoryTest, TypingIsOneStepUntilAnotherControlIsUsed) {
  Type(form_.DescText, "a");
  Type(form_.DescText, "ab");
  Scroll(form_.TraitScroll, 20);
  Type(form_.TraitText[0], "X");
  Scroll(form_.TraitScroll, 40);
  Type(form_.TraitText[0], "Y");
  Scroll(form_.TraitScroll, 1);
  Type(form_.DescText, "abc");
  Undo();
  EXPECT_EQ(form_.DescText.Text.Get(), "ab");
  Undo();
  EXPECT_EQ(form_.TraitScroll.Value, 40) << "what is undone is seen";
  EXPECT_EQ(form_.TraitText[0].Text.Get(), "");
  Undo();
  EXPECT_EQ(form_.Edited.Rows.Tops.Trait, 20);
  Redo();
  EXPECT_EQ(form_.TraitScroll.Value, 20);
  EXPECT_EQ(form_.TraitText[0].Text.Get(), "X");
  Undo();
  Undo();
  EXPECT_EQ(form_.DescText.Text.Get(), "");
  EXPECT_FALSE(form_.undomen.Enabled);
}

TEST_F(CardHistoryTest, AHistoryBelongsToOneCardAndLastsThroughASave) {
  const std::string before = Content();
  Type(form_.CardText[0], "Gnu");
  form_.Command6.Click();
  Type(form_.CardText[0], "Gnus");
  SaveAs("saved.txt");
  Undo();
  Undo();
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(Edited().SourceFile, "saved.txt");
  Choose(2);
  EXPECT_EQ(Stored(1).Name, "Ape");
  EXPECT_EQ(Listed(form_.CardCombo), "Ape|Bat|") << "the list does not keep the name undone";
  EXPECT_FALSE(form_.undomen.Enabled || form_.redomen.Enabled);
  Type(form_.DescText, "b");
  desktop_->YesNoAnswers = {true};
  form_.Command4.Click();
  EXPECT_FALSE(form_.undomen.Enabled) << "a deletion is for good";
}

TEST_F(CardHistoryTest, ANewUniqueIDIsNotTakenBack) {
  Stored(2).UniqueID = Text();
  Choose(2);
  Type(form_.DescText, "b");
  form_.Command6.Click();
  const Text id = Stored(2).UniqueID;
  EXPECT_FALSE(id.empty());
  Undo();
  form_.Command6.Click();
  EXPECT_EQ(Stored(2).UniqueID, id);
  EXPECT_EQ(Stored(2).Description, "");
}

TEST_F(CardHistoryTest, ACostIsUndoneAndSuperChangeIsNot) {
  State().CostCard = MakeCard("CostCard", 1);
  AddEffect(State().CostCard, "MODTRAIT:HP:2", kTargetSelf, "COST", 0, "SELF");
  Type(form_.TraitText[1], "CHARACTER");
  form_.CostButton.Click();
  EXPECT_EQ(form_.ValueText[0].Text.Get(), "3");
  Undo();
  EXPECT_EQ(form_.ValueText[0].Text.Get(), "1");
  Choose(2);
  EXPECT_EQ(Stored(1).Traits[1], "HP:1");
  Choose(1);
  form_.Command8.Click();
  EXPECT_FALSE(form_.undomen.Enabled);
  EXPECT_EQ(Edited().ActivateOn, "TURNEND");
}

TEST_F(CardHistoryTest, TheOldestStepsAreForgotten) {
  const int most = static_cast<int>(CardHistory::kSteps);
  for (int step = 1; step <= most + 5; ++step) {
    ChooseText(form_.RarityCombo, Joined(step % 2));
    Type(form_.DescText, Joined(step));
  }
  int undone = 0;
  for (; form_.undomen.Enabled; ++undone) Undo();
  EXPECT_EQ(undone, most);
  EXPECT_EQ(form_.DescText.Text.Get(), Joined(most + 5 - most / 2));
}

}  // namespace
}  // namespace brindlemoor
