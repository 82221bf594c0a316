// Listening why actions do nothing: what a file of scenarios can't show.
#include "script/action_trace.h"

#include <gtest/gtest.h>
#include <vector>

#include "core/limits.h"
#include "game/looking.h"
#include "game/opponent.h"
#include "script/triggers.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class ActionTraceTest : public RunTest {
 protected:
  ActionTraceTest() { State().Trace = &trace_; }
  ~ActionTraceTest() override { State().Trace = nullptr; }
  ActionTraceTest(const ActionTraceTest&) = delete;
  ActionTraceTest& operator=(const ActionTraceTest&) = delete;

  void Act(std::string_view script, int target = kTargetSelf) {
    AddEffect(ada, script, target, "PHASE1", 0, TargetTypeName(target));
  }
  /// What was told since the last call, a line each.
  std::string TakeTold() { return std::exchange(told_, {}); }

  std::string told_;
  ActionTrace trace_{[this](const AskedAction& asked) {
    told_ += (asked.Acted ? Joined(asked.Name, " acted") : RefusalLine(asked)) + "\n";
  }};
};

TEST_F(ActionTraceTest, LinesNameTheCardAndTheActionAsItIsWritten) {
  ada.GlobalID = 77;
  ada.UniqueID = "AD-1";
  Act("REQTRAIT:FLY:MODTRAIT:HP:1", kTargetAll);
  AddEffect(ada, "MODTRAIT:HP:1", kTargetSelf, "MENU:PHASE1:Sing\nloud", 0, "SELF");
  FireTrigger(ada, "PHASE1");
  EXPECT_EQ(
      TakeTold(),
      "Ada #77 (AD-1), #EFFECT, ALL, PHASE1, \"REQTRAIT:FLY:MODTRAIT:HP:1\": filter: the target "
      "has no FLY (Bob)\n"
      "Ada #77 (AD-1), #EFFECT, SELF, MENU:PHASE1:Sing loud, \"MODTRAIT:HP:1\": menu not armed: "
      "nobody chose it this turn\n");
}

TEST_F(ActionTraceTest, LongTextsAndManyCardsAreCut) {
  for (int card = 0; card < 20; ++card) PutInPlay(MakeCard("Bob", 2));
  Act("REQTRAIT:FLY:ECHO:" + std::string(5000, 'x'), kTargetAll);
  FireTrigger(State().CardTable[ada.Slot], "PHASE1");
  const std::string told = TakeTold();
  EXPECT_LT(told.size(), 500U);
  EXPECT_NE(told.find("(Bob, Bob, Bob and 18 more)"), std::string::npos) << told;
}

TEST_F(ActionTraceTest, SpentStepsAndDeepRunsAreNamed) {
  Act("MODTRAIT:HP:1:MODTRAIT:HP:1");
  {
    State().Work.Limit = 1;
    const WorkAccount account;
    SpendWork(1);
    FireTrigger(ada, "PHASE1");
    State().Work.Limit = 0;
  }
  EXPECT_NE(TakeTold().find(": budget: the scripts of this turn have taken all their steps\n"),
            std::string::npos);
  State().RunDepth = limits::kNestedRuns;
  RunAction(ada, ada, 1);
  State().RunDepth = 0;
  EXPECT_NE(TakeTold().find(": ended: too many runs have started one another\n"),
            std::string::npos);
}

TEST_F(ActionTraceTest, WhatIsOnlyTriedIsNotTold) {
  Act("REQTRAIT:FLY:MODTRAIT:HP:1", kTargetRandom);
  Card valued = ada;
  ValueCardForAI(valued);
  {
    const Looking looking;
    FireTrigger(State().CardTable[ada.Slot], "PHASE1");
  }
  EXPECT_EQ(State().Trace, &trace_);
  EXPECT_EQ(TakeTold(), "");
}

TEST_F(ActionTraceTest, AnActionThatFindsATargetAtLastActs) {
  PutInPlay(MakeCard("Cid", 2));
  Act("REQNAME:Cid:MODTRAIT:HP:1", kTargetRandom);
  Act("REQNAME:Cid:MODTRAIT:HP:1", kTargetAll);
  Act("RETARGET:RANDOM:REQNAME:Cid:MODTRAIT:HP:1");
  FireTrigger(State().CardTable[ada.Slot], "PHASE1");
  EXPECT_EQ(TakeTold(), "Ada acted\nAda acted\nAda acted\n");
}

TEST_F(ActionTraceTest, ActionsWithinAnActionAreToldOfTheirOwn) {
  AddEffect(bob, "REQTRAIT:FLY:MODTRAIT:HP:1", kTargetSelf, "ONDEATH", 0, "SELF");
  RunScript("DESTROY");
  const std::string told = TakeTold();
  EXPECT_TRUE(told.starts_with("Bob #")) << told;
  EXPECT_TRUE(told.ends_with("filter: the target has no FLY\nAda acted\n")) << told;
}

}  // namespace
}  // namespace brindlemoor
