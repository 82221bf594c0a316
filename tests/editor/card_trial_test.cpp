// Trying a card: what the small table shows is what the engine does, and nothing comes of it.
#include "editor/card_trial.h"

#include <utility>

#include "language/target_types.h"
#include "scenario/scenario_run.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"

namespace brindlemoor {
namespace {

class CardTrialTest : public CardEditTest {
 protected:
  void SetUp() override {
    WriteFile("rules.txt",
              "#GAMERULES, Goblins, , , goblins,\n#TRAITACTION, GOLD\n"
              "#EFFECT, OWNER, COST, \"REQTRAITMORE:MANA:TRAITEFFECT:MODTRAIT:MANA:-5\"\n");
    State().GameFileName = "rules.txt";
    Card tried = MakeCard("Imp", 1, {"HP:3", "CREATURE"});
    AddEffect(tried, "MODTRAIT:HP:-2:ECHO:$MYNAME <b>bites</b> $TARGETNAME.",
              TargetTypeCode("TARGETCARD"), "PHASE1", 0, "TARGETCARD");
    AddEffect(tried, "SETMYTRAIT:FLYING:1", TargetTypeCode("SELF"), "MENU:TURNSTART:Take off", 0,
              "SELF");
    AddEffect(tried, "MODTRAIT:MANA:-5", TargetTypeCode("OWNER"), "COST", 0, "OWNER");
    AddEffect(tried, "MODTRAIT:HP:1", TargetTypeCode("SELF"), "ENTERPLAY", 0, "SELF");
    Card wolf = MakeCard("Wolf", 1, {"HP:2", "CREATURE"});
    Card king = MakeCard("King", 1, {"PLAYER:1", "HP:40"});
    LoadCards({tried, wolf, king});
    State().GameFileName = "rules.txt";
    tried_ = Stored(1);
  }
  /// "CARD TRAIT BEFORE>AFTER" of all changes.
  static std::string Told(const TrialResult& result) {
    std::string told;
    for (const TrialChange& change : result.Changes) {
      told += Joined(change.Card, " ", change.Trait, " ", change.Before, ">", change.After, "|");
    }
    return told;
  }
  /// Carries the scenario of a trial out from a file. What failed.
  std::string Again(const std::string& scenario) {
    WriteFile("kept.txt", scenario);
    ScenarioReport report;
    Session kept = std::exchange(State(), Session{});
    {
      ScenarioLibrary library(kept.Desktop->Files());
      RunScenarioFile("/game/kept.txt", library, report);
    }
    State() = std::move(kept);
    EXPECT_GT(report.Expectations, 0) << scenario;
    return report.Findings.empty() ? "" : ScenarioFindingLine(report.Findings.front());
  }

  Card tried_;
};

/// What no trait tells of is seen as well, and kept.
TEST_F(CardTrialTest, SidesNamesActionsCopiesAndTheEndAreTold) {
  const std::pair<const char*, const char*> cases[] = {
      {"MINDCONTROL", "Enemy owner 2>1|"},
      {"CHANGENAME:Bob", "Enemy name Wolf>Bob|"},
      {"ADDEFFECT:TURNEND:SELF:DESTROYME", "Enemy actions 0>1|"},
      {"DUPLICATEME:1:0", "Imp  >in play|"},
      {"WINGAME", " gameover 0>1|"},
  };
  for (const auto& [script, told] : cases) {
    Card tried = MakeCard("Imp", 1, {"HP:3", "CREATURE"});
    AddEffect(tried, script, TargetTypeCode("TARGETCARD"), "PHASE1", 0, "TARGETCARD");
    const TrialResult result = TryCard({tried, 1, "Enemy"});
    EXPECT_EQ(Told(result), told) << script;
    EXPECT_EQ(Again(result.Scenario), "") << result.Scenario;
  }
}

TEST_F(CardTrialTest, CaptionsOfTheCardAreLaidOut) {
  tried_.TraitCaptions.Edit(1) = "bites the dust";
  const TrialResult result = TryCard({tried_, 1, "Enemy"});
  EXPECT_NE(result.Scenario.find("  caption \"HP\" \"bites the dust\"\n"), std::string::npos);
  EXPECT_EQ(Again(result.Scenario), "");
}

TEST_F(CardTrialTest, ActionsAndPlaysDoWhatTheyDoInAMatch) {
  struct Case {
    int Action;
    const char* Aim;
    const char* Told;
    const char* Said;
  };
  const Case cases[] = {
      {1, "Enemy", "Enemy HP 2>0|", "Imp bites Wolf."},
      {1, "player2", "player2 HP 40>38|", "Imp bites The enemy's player card."},
      {2, "", "Tried FLYING >1|", ""},
      {0, "", "Tried  in hand>in play|Tried HP 3>4|player1 MANA 20>15|", ""},
  };
  const Session& state = State();
  const std::uint64_t random = state.Random.State;
  for (const Case& one : cases) {
    const TrialResult result = TryCard({tried_, one.Action, one.Aim});
    EXPECT_EQ(Told(result), one.Told) << one.Action;
    EXPECT_NE(result.Said.find(one.Said), std::string::npos) << result.Said;
    EXPECT_EQ(Again(result.Scenario), "") << result.Scenario;
  }
  EXPECT_EQ(state.Random.State, random);
  EXPECT_EQ(state.Collection.UpperBound(), 3);
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
}

TEST_F(CardTrialTest, WhatDoesNothingSaysSo) {
  Card idle = tried_;
  idle.Effects.Edit(1).Script = "REQTRAIT:NEVER:MODTRAIT:HP:-2";
  EXPECT_EQ(TryCard({idle, 1, "Enemy"}).Outcome, "Nothing happened.");
  Card dear = tried_;
  dear.Effects.Edit(3).Script = "REQTRAITMORE:MANA:500:MODTRAIT:MANA:-500";
  EXPECT_NE(TryCard({dear, 0, ""}).Outcome.find("The price could not be paid."), std::string::npos);
  Card odd = tried_;
  odd.Name = "The \"Imp\", {gid:Enemy}";
  odd.Effects.Edit(1).Script = "ECHO:He says \"no\" {x}\nand leaves";
  const TrialResult result = TryCard({odd, 1, "Enemy"});
  EXPECT_NE(result.Said.find("He says \"no\" {x}"), std::string::npos) << result.Outcome;
}

TEST_F(CardTrialTest, TheWindowsAreServedWhileALongScriptIsTried) {
  tried_.Effects = {};
  AddEffect(tried_, "MODTRAIT:GRIST:1:REPEAT:ALL:1000:MODTRAIT:GRIST:1:REPEAT:ALL:1000",
            TargetTypeCode("ALL"), "PHASE1", 0, "ALL");
  int served = 0;
  desktop_->OnWork = [&served] { ++served; };
  EXPECT_NE(Told(TryCard({tried_, 1})).find("Tried GRIST >"), std::string::npos);
  EXPECT_GT(served, 0);
}

TEST_F(CardTrialTest, TheFormShowsAndKeepsATrial) {
  Choose(1);
  desktop_->FileAnswers = {"/game/scenarios/imp.txt"};
  desktop_->ModalForms.emplace_back([](Form&) {
    TrialForm& trial = TheTrialForm();
    EXPECT_EQ(trial.WhatCombo.Items.Get().size(), 5U);
    trial.WhatCombo.Select(2);
    trial.WhatCombo.Click();
    ASSERT_EQ(trial.Changes.RowCount.Get(), 1);
    std::string row;
    for (int column = 1; column <= 4; ++column) row += trial.Changes.CellText(1, column) + "|";
    EXPECT_EQ(row, "Enemy: Wolf|HP|2|0|");
    trial.KeepButton.Click();
  });
  form_.TryButton.Click();
  const std::string kept = ReadFile("scenarios/imp.txt");
  EXPECT_NE(kept.find("\nfolder \"..\"\n"), std::string::npos) << kept;
  EXPECT_NE(kept.find("\nexpect trait \"Enemy\" \"HP\" \"0\"\n"), std::string::npos) << kept;
  form_.NewCardButton.Click();
  Type(form_.CardText[0], "");
  desktop_->ExpectedMessages = {"Give the card a name first."};
  form_.TryButton.Click();
}

}  // namespace
}  // namespace brindlemoor
