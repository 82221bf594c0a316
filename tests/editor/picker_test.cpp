// The pickers: their rows, the questions of a pick and the scripts that come of them.
#include <algorithm>
#include <set>

#include "core/strings.h"
#include "editor/editor_forms.h"
#include "language/target_types.h"
#include "script/command_table.h"
#include "script/run_action.h"
#include "tests/support/session_test.h"
#include "ui/choice_form.h"

namespace brindlemoor {
namespace {

using Answers = std::vector<std::optional<std::string>>;
using Texts = std::vector<std::string>;

class PickerTest : public SessionTest {
 protected:
  /// Picks a row in a list. An answer that begins with "=" is typed in the value generator, one
  /// with "~" chosen from a list of words; their questions are kept with the same sign before them.
  void Pick(CommandPicker& form, int list, int row, const Answers& answers = {}) {
    desktop_->Questions.clear();
    for (const auto& answer : answers) {
      if (answer.has_value() && answer->starts_with("=")) {
        desktop_->ModalForms.push_back([this, text = answer->substr(1)](Form& shown) {
          auto& values = static_cast<ValGen&>(shown);
          desktop_->Questions.push_back("=" + values.Label1.Caption.Get());
          values.Text1.Text = text;
          (text == "(cancel)" ? values.CancelButton : values.Command5).Click();
        });
      } else if (answer.has_value() && answer->starts_with("~")) {
        desktop_->ModalForms.push_back([this, word = answer->substr(1)](Form& shown) {
          auto& words = static_cast<ChoiceForm&>(shown);
          desktop_->Questions.push_back("~" + words.Label1.Caption.Get());
          const auto& items = words.List1.Items.Get();
          const auto item = std::ranges::find_if(
              items, [&](const std::string& text) { return text.starts_with(word + ": "); });
          words.List1.Selected = static_cast<int>(item - items.begin()) + 1;
          (item == items.end() ? words.Command2 : words.Command1).Click();
        });
      } else {
        desktop_->TextAnswers.push_back(answer);
      }
    }
    ComboBox& combo = *form.Combo1[static_cast<std::size_t>(list)];
    combo.Text = combo.Items.Get().at(static_cast<std::size_t>(row) - 1);
    combo.Change();
    EXPECT_TRUE(desktop_->TextAnswers.empty() && desktop_->ModalForms.empty())
        << "row " << row << " left answers";
  }
  static std::string Sentence(const CommandPicker& form, int list) {
    return form.Label1[static_cast<std::size_t>(list)]->Caption;
  }
  static std::string Done(CommandPicker& form) {
    form.Command1.Click();
    return form.Value;
  }
};

TEST_F(PickerTest, RowsAskForWhatTheyWrite) {
  const std::set<std::string_view> unknown = {"REISME",
                                              "REQEFFECTTRAIT",
                                              "REQNOEFFECTTRAIT",
                                              "REQEFFECTTRAITMORE",
                                              "REQEFFECTTRAITLESS",
                                              "ALTVAL1",
                                              "ALTVAL2",
                                              "SETVAL1",
                                              "SETVAL2",
                                              "EFFECTSOURCE"};
  std::set<std::string_view> met;
  for (const auto& rows : {EffectPickerRows(), CounterPickerRows()}) {
    for (const PickerRow& row : rows) {
      const auto holds = [](std::string_view text, std::string_view part) {
        return text.find(part) != std::string_view::npos;
      };
      EXPECT_TRUE(holds(row.MenuText, ": ")) << row.MenuText;
      EXPECT_TRUE(row.DisplayText.ends_with(".") || row.DisplayText.ends_with(")"))
          << row.DisplayText;
      EXPECT_EQ(holds(row.Template, ":AMT1"), !row.Prompt1.empty()) << row.MenuText;
      EXPECT_EQ(holds(row.Template, ":AMT2"), !row.Prompt2.empty()) << row.MenuText;
      EXPECT_LE(holds(row.DisplayText, "$AMT1"), !row.Prompt1.empty()) << row.MenuText;
      EXPECT_LE(holds(row.DisplayText, "$AMT2"), !row.Prompt2.empty()) << row.MenuText;
      for (const std::string_view prompt : {row.Prompt1, row.Prompt2}) {
        if (prompt.starts_with("VALBOX")) {
          EXPECT_EQ(prompt.find(':'), prompt.rfind(':')) << "the question would be cut: " << prompt;
        }
      }
      const std::string_view word = FieldAt(row.Template, 1, ':');
      const Command* command = FindCommand(word);
      if (command == nullptr) {
        EXPECT_TRUE(unknown.contains(word)) << word;
        met.insert(word);
      } else if (!command->TakesRest && word != "CREATECARD") {  // its row asks for a name only
        EXPECT_EQ(std::count(row.Template.begin(), row.Template.end(), ':'), command->Arguments)
            << row.Template;
      }
    }
  }
  EXPECT_EQ(met, unknown);
  EXPECT_EQ(TheEffectPicker().Combo1.back()->Items.Get().size(), 77u);
  EXPECT_EQ(TheCounterPicker().Combo1.back()->Items.Get().size(), 13u);
}

TEST_F(PickerTest, APickAsksAtOnceAndFillsTheAnswersIn) {
  const struct {
    int Row;
    Answers Given;
    Texts Questions;
    std::string Script;
    std::string Sentence;
  } cases[] = {
      {40, {}, {}, "DESTROY:", "Target card is destroyed."},
      {42,
       {"HP", "=2"},
       {"Which trait?", "=Amount to add to the trait? (This can be negative)"},
       "MODTRAIT:HP:2:",
       "Target adds 2 to it's HP trait."},
      {34,
       {"=SRCTRAIT/HP/TRAITPLUS1", "=R1Die6"},
       {"=What is the first value?", "=What is the second value?"},
       "REQISMORE:SRCTRAIT/HP/TRAITPLUS1:R1Die6:",
       "SRCTRAIT/HP/TRAITPLUS1 must equal R1Die6 or more."},
      {47,
       {"HP", "=5"},
       {"Which trait?", "=New value for the trait?"},
       "SETMYTRAIT:HP:5:",
       "Target's 5 is set to HP."},
      {53,
       {"=3"},
       {"=How many times should the card be duplicated?"},
       "DUPLICATEME:3:1:",
       "Duplicate the acting card 3 times, with costs."},
      {55,
       {},
       {},
       "RETURNTOHAND:",
       "Return target card to it's owner's hand.   (Warning: Do not put any commands that affect "
       "the target card after this one.  It will no longer be in play.)"},
      {57, {}, {}, "SETCARDTARGET:", "Target card becomes my preferred target."},
      {69,
       {},
       {},
       "RETARGETCOLLECTION:TARGETGID:",
       "This action will affect the card permanently."},
      {74,
       {"Hi"},
       {"What shall the message say?\r\n(The following special strings are available: $MYNAME, "
        "$TARGETNAME, $AMT, #TRAIT/traitname#, #MYTRAIT/traitname#, $OWNER, $MYOWNER, $MYIMG, "
        "$TARGETIMG, $EFFSTR, #CARD/globalID#, #TRANSVAL/transval string#, #IMG/image file#)"},
       "ECHOONCE:Hi:",
       "Action displays \"Hi\" to the user once, regardless of how many cards are targeted."},
      {77,
       {"AA0000"},
       {"New color (In HTML/hex, i.e. AA0000, 33FF00 etc.)?"},
       "FRAMECOLOR:AA0000:",
       "Set frame color to AA0000."},
      {38, {""}, {"Which trait?"}, "REMOVETRAIT::", "Target loses it's  trait."},
      // Triggers and targets are chosen, and ask for what they need.
      {39,
       {"~TRAITCHANGE", "HP", "~GIDCARD", "MYGID"},
       {"~What trigger should this action use?  (PHASE#, ENTERSPLAY, etc.)", "Name of trait?",
        "~What target type should this action use? (ALL, TARGETCARD, RANDOMENEMY etc.)",
        "Which Card?"},
       "ADDEFFECT:TRAITCHANGE:HP:GIDCARD:MYGID:",
       "All effects after this one are added to the target card as a new action."},
      {39,
       {"~MENU", "~PHASE2", "Hit", "~SELF"},
       {"~What trigger should this action use?  (PHASE#, ENTERSPLAY, etc.)", "~Trigger for action?",
        "What should the menu caption for this item be?",
        "~What target type should this action use? (ALL, TARGETCARD, RANDOMENEMY etc.)"},
       "ADDEFFECT:MENU:PHASE2:Hit:SELF:",
       "All effects after this one are added to the target card as a new action."},
      {67,
       {"~RANDOMALLY"},
       {"~What target type shall the action target? (triggeringcard, RANDOMENEMY, RANDOMALLY, "
        "TARGETCARD etc.)"},
       "RETARGET:RANDOMALLY:",
       "Target a new card of target type RANDOMALLY."},
      // The second answer goes into a first one that holds its placeholder.
      {10,
       {"AMT2", "7"},
       {"What trait should the action require?", "What is the required value?"},
       "REQTRAITIS:7:7:",
       "Target must have a AMT2 of 7."},
      {10,
       {"$AMT2", "7"},
       {"What trait should the action require?", "What is the required value?"},
       "REQTRAITIS:$7:7:",
       "Target must have a 7 of 7."},
      {10,
       {"AMT1", "AMT2"},
       {"What trait should the action require?", "What is the required value?"},
       "REQTRAITIS:AMT1:AMT2:",
       "Target must have a AMT1 of AMT2."},
  };
  EffectPicker& form = TheEffectPicker();
  for (const auto& testCase : cases) {
    Pick(form, 7, testCase.Row, testCase.Given);
    EXPECT_EQ(desktop_->Questions, testCase.Questions) << testCase.Row;
    EXPECT_EQ(Sentence(form, 7), testCase.Sentence);
    EXPECT_EQ(Done(form), testCase.Script);
  }
}

TEST_F(PickerTest, ACancelledQuestionLeavesThePickAsItWas) {
  EffectPicker& form = TheEffectPicker();
  const auto expectPick = [&](int list, const std::string& menu, const std::string& sentence) {
    EXPECT_EQ(form.Combo1[static_cast<std::size_t>(list)]->Text.Get(), menu);
    EXPECT_EQ(Sentence(form, list), sentence);
  };
  Pick(form, 1, 40);
  const std::string destroy = form.Combo1[1]->Text;
  const std::pair<int, Answers> cancelled[] = {
      {38, {std::nullopt}},
      {42, {std::nullopt}},
      {42, {"HP", "=(cancel)"}},
      {10, {"HP", std::nullopt}},
      {39, {"~"}},
      {39, {"~TRAITCHANGE", std::nullopt}},
      {39, {"~MENU", "~"}},
      {39, {"~ONDEATH", "~"}},
      {39, {"~ENTERSPLAY"}},  // it never runs
      {67, {"~GIDCARD"}},     // it would take the next field for the card
  };
  for (const auto& [row, answers] : cancelled) {
    Pick(form, 1, row, answers);
    expectPick(1, destroy, "Target card is destroyed.");
    Pick(form, 0, row, answers);
    expectPick(0, "", "");
  }
  EXPECT_EQ(Done(form), "DESTROY:");
  EXPECT_FALSE(form.ClearButton[0]->Enabled);
  form.ClearButton[1]->Click();
  expectPick(1, "", "");
  EXPECT_EQ(Done(form), "");
}

TEST_F(PickerTest, PicksAreJoinedInListOrderAndBeginEmptyForTheNextAction) {
  EffectPicker& form = TheEffectPicker();
  const auto use = [&](std::function<void()> user) {
    desktop_->ModalForms = {[&, user](Form&) { user(); }};
    return AskEffects();
  };
  EXPECT_EQ(use([&] { form.Command1.Click(); }), "") << "nothing picked";
  EXPECT_EQ(use([&] {
              Pick(form, 2, 62);
              Pick(form, 2, 61);
              Pick(form, 0, 4);
              form.Command1.Click();
              EXPECT_FALSE(form.Shown);
            }),
            "REQENEMY:WINGAME:");
  EXPECT_EQ(use([&] {
              EXPECT_EQ(form.Combo1[0]->Text.Get() + Sentence(form, 2), "");
              Pick(form, 2, 62);
              form.Command1.Click();
            }),
            "LOSEGAME:");
  EXPECT_EQ(use([&] {
              Pick(form, 2, 62);
              EXPECT_FALSE(form.QueryClose());
            }),
            std::nullopt)
      << "a closed window adds nothing";
}

TEST_F(PickerTest, ToolTipsTellWhatTheEngineDoes) {
  // What no engine knows is said, with words that work.
  for (const auto& [rows, notes] : {std::pair(EffectPickerRows(), EffectPickerNotes()),
                                    std::pair(CounterPickerRows(), CounterPickerNotes())}) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      const std::string_view word = FieldAt(rows[row].Template, 1, ':');
      const auto note = std::ranges::find(notes, static_cast<int>(row) + 1, &PickerNote::Row);
      if (FindCommand(word) != nullptr) continue;
      ASSERT_NE(note, notes.end()) << word;
      EXPECT_TRUE(note->Text.starts_with(Joined("The engine knows no ", word, ":"))) << note->Text;
    }
  }
  EffectPicker& form = TheEffectPicker();
  const auto& tips = form.Combo1[0]->ItemToolTips.Get();
  EXPECT_EQ(tips.size(), 77u);
  EXPECT_NE(tips[33].find("equal values fail"), std::string::npos);
  EXPECT_EQ(tips[39], "");
  Pick(form, 0, 34, {"=1", "=1"});
  EXPECT_EQ(form.Combo1[0]->ToolTip.Get(), tips[33]);
  EXPECT_EQ(form.Label1[0]->ToolTip.Get(), tips[33]);
  // The notes hold: on equal values, and as large as the amount.
  Card card = MakeCard("Ape", 1, {"HP:2"});
  const struct {
    const char* Script;
    bool Passes;
  } claims[] = {{"REQISMORE:1:1", false},     {"REQISLESS:1:1", false},
                {"REQTRAITMORE:HP:2", true},  {"REQTRAITLESS:HP:2", true},
                {"REQTRAITIS:KIND:x", false}, {"REISME", true}};
  for (const auto& claim : claims) {
    AddEffect(card, Joined(claim.Script, ":MODTRAIT:MET:1"), kTargetSelf, "COST", 0, "SELF");
    Card target = card;
    RunAction(card, target, card.Effects.UpperBound(),
              {.CostMode = -1, .TestRun = 1, .NoCounters = 1, .Nested = 1});
    EXPECT_EQ(HasTrait(target, "MET"), claim.Passes) << claim.Script;
  }
}

TEST_F(PickerTest, TheCounterPickerTakesAScriptFromTheEffectPicker) {
  CounterPicker& form = TheCounterPicker();
  Pick(form, 0, 6, {"HP", "2"});
  EXPECT_EQ(desktop_->Questions, (Texts{"What trait should this counter require?",
                                        "What is the minimum for this trait?"}));
  desktop_->ModalForms = {[&](Form& shown) {
    auto& effects = static_cast<EffectPicker&>(shown);
    Pick(effects, 0, 42, {"HP", "=-1"});
    Pick(effects, 1, 41);
    effects.Command1.Click();
  }};
  Pick(form, 13, 13);
  EXPECT_EQ(Sentence(form, 13), "Take the action MODTRAIT:HP:-1:DESTROYME:.");
  EXPECT_EQ(Done(form), "REQEFFECTTRAITMORE:HP:2:EFFECTSOURCE:MODTRAIT:HP:-1:DESTROYME::");

  // Each form knows its own special prompt only.
  form.Commands[1].Prompt1 = "VALBOX:How much?";
  Pick(form, 0, 1, {"5"});
  EXPECT_EQ(desktop_->Questions, Texts{"VALBOX:How much?"});
  TheEffectPicker().Commands[1].Prompt1 = "#EFFECTPICKER";
  Pick(TheEffectPicker(), 0, 1, {"a", "b"});
  EXPECT_EQ(desktop_->Questions.front(), "#EFFECTPICKER");
}

TEST_F(PickerTest, ACommandTextMakesAScriptWithoutTheForm) {
  const struct {
    std::string Command;
    Answers Given;
    std::string Script;
  } cases[] = {
      {"", {}, ""},
      {"SET#DESTROY", {}, ""},
      {"x#SET#DESTROY", {}, "DESTROY:"},
      {"x#OTHER#SET#A#SET#B", {}, "A:B:"},
      {"x#SET#A##SET#B", {}, "A:"},
      {"x#SET", {}, ":"},
      {"x#SET#SET#A", {}, "SET:A:"},
      {"x#SET#MODTRAIT#QUESTION#Which?#QUESTION#Amount?", {"HP", std::nullopt}, "MODTRAIT:HP::"},
      {"x#SET#QUESTION#Who?", {"Bo"}, "QUESTION:Bo:"},
  };
  for (const auto& testCase : cases) {
    desktop_->TextAnswers = {testCase.Given.begin(), testCase.Given.end()};
    TheCounterPicker().RunCommand(testCase.Command);
    EXPECT_EQ(TheCounterPicker().Value, testCase.Script) << testCase.Command;
    EXPECT_TRUE(desktop_->TextAnswers.empty()) << testCase.Command;
  }
  EXPECT_EQ(desktop_->Questions, (Texts{"Which?", "Amount?", "Who?"}));
}

}  // namespace
}  // namespace brindlemoor
