// The value generator: what its buttons write, and that the engine reads it.
#include "editor/value_generator.h"

#include "editor/editor_forms.h"
#include "language/values.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class ValueGeneratorTest : public SessionTest {
 protected:
  /// The button that a designer sees under a caption.
  static Button& Captioned(std::string_view caption) {
    ValGen& form = TheValGen();
    std::vector<Button*> buttons = {&form.Command2, &form.Command3, &form.Command4, &form.Command5};
    for (const auto& button : form.Command1) buttons.push_back(button.get());
    for (Button* button : buttons) {
      if (button->Caption.Get() == caption) return *button;
    }
    ADD_FAILURE() << "no button " << caption;
    return form.Command5;
  }
};

TEST_F(ValueGeneratorTest, EveryButtonAsksAndAddsItsPart) {
  using Texts = std::vector<std::string>;
  const std::string trait = "Which trait?";
  const std::string sides = "How many sides on each die?";
  const struct {
    std::string Caption;
    Texts Questions;
    Texts Answers;
    std::string Part;
    double Value;  ///< with HP 4 and ARMOR 3 on the target
  } cases[] = {
      {"Roll Dice equal to one of my traits",
       {trait, sides},
       {"HP", "1"},
       "SRCTRAIT/HP/RTRAITDie1",
       4},
      {"Gain an amount equal to one of my traits", {trait}, {"HP"}, "SRCTRAIT/HP/TRAITPLUS1", 4},
      {"Roll Dice equal to one of the target card's traits",
       {trait, sides},
       {"ARMOR", "1"},
       "TARGTRAIT/ARMOR/RTRAITDie1",
       3},
      {"Gain an amount equal to one of the target card's traits",
       {trait},
       {"ARMOR"},
       "TARGTRAIT/ARMOR/TRAITPLUS1",
       3},
      {"Roll Dice", {"How many dice?", sides}, {"12", "1"}, "R12Die1", 12},
      {"Return my Global ID", {}, {}, "MYGID", 501},
      {"Return target's Global ID", {}, {}, "TARGETGID", 502},
      {"Add an arbitrary amount", {"How much?"}, {"2.5"}, "2.5", 2.5},
  };
  Card source = MakeCard("Source", 1, {"HP:4"});
  Card target = MakeCard("Target", 2, {"ARMOR:3"});
  source.GlobalID = 501;
  target.GlobalID = 502;
  TextBox& box = TheValGen().Text1;
  for (const auto& testCase : cases) {
    for (const std::string before : {"", "typed"}) {
      desktop_->Questions.clear();
      desktop_->TextAnswers = {testCase.Answers.begin(), testCase.Answers.end()};
      box.Text = before;
      Captioned(testCase.Caption).Click();
      EXPECT_EQ(box.Text.Get(), Joined(before, before.empty() ? "" : "/", testCase.Part));
      EXPECT_EQ(desktop_->Questions, testCase.Questions) << testCase.Caption;
    }
    EXPECT_EQ(EvalValue(source, target, testCase.Part).Number(), testCase.Value) << testCase.Part;
  }
}

TEST_F(ValueGeneratorTest, AnEmptyAnswerLeavesAnEmptyFieldAndACancelledOneNothing) {
  desktop_->TextAnswers = {"", std::nullopt, "2", std::nullopt};
  Captioned("Gain an amount equal to one of my traits").Click();
  Captioned("Roll Dice").Click();
  Captioned("Roll Dice").Click();
  EXPECT_EQ(TheValGen().Text1.Text.Get(), "SRCTRAIT//TRAITPLUS1");
}

TEST_F(ValueGeneratorTest, EveryQuestionBeginsEmptyAndCanBeCancelled) {
  const auto ask = [&](std::function<void(ValGen&)> user) {
    desktop_->ModalForms.push_back([user](Form& shown) {
      auto& form = static_cast<ValGen&>(shown);
      EXPECT_EQ(form.Label1.Caption.Get(), "How many?");
      EXPECT_EQ(form.Text1.Text.Get(), "");
      form.Text1.Text = "3";
      user(form);
    });
    return AskValue("How many?");
  };
  EXPECT_EQ(ask([&](ValGen& form) {
              desktop_->TextAnswers = {"HP", "2"};
              Captioned("Gain an amount equal to one of my traits").Click();
              Captioned("Add an arbitrary amount").Click();
              Captioned("DONE").Click();
              EXPECT_FALSE(form.Shown);
            }),
            "3/SRCTRAIT/HP/TRAITPLUS1/2");
  EXPECT_EQ(ask([](ValGen& form) { form.CancelButton.Click(); }), std::nullopt);
  EXPECT_EQ(ask([](ValGen&) {}), std::nullopt) << "the window was closed";
}

}  // namespace
}  // namespace brindlemoor
