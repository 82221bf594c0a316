// Runs that are refused, what they share, and bounds; the rest is in tests/scenarios/runs.txt.
#include "script/run_action.h"

#include "core/limits.h"
#include "script/card_setup.h"
#include "tests/script/run_test.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

class RunActionTest : public RunTest {};

TEST_F(RunActionTest, RefusedRunsDoNothing) {
  // The results of an ordinary run, and of a test run or one with CostMode 1.
  const Rows<const char*, void (*)(Card&, Card&), int, int> cases = {
      {"ten runs in progress", [](Card&, Card&) { State().RunDepth = 10; }, 0, 0},
      {"dead target", [](Card&, Card& target) { FreeCard(target); }, -1, -1},
      {"dead source", [](Card& source, Card&) { FreeCard(source); }, -1, -1},
      {"game over", [](Card&, Card&) { State().GameOver = 1; }, 0, 0},
      {"target not in play", [](Card&, Card& target) { target.InPlay = 0; }, -1, 2},
      {"source not in play", [](Card& source, Card&) { source.InPlay = 0; }, -1, 2}};
  const std::vector<RunOptions> forms = {{}, {.TestRun = 1}, {.CostMode = 1}};
  for (const auto& [name, prepare, ordinary, special] : cases) {
    for (const RunOptions& form : forms) {
      const int expected = &form == &forms[0] ? ordinary : special;
      Card source = ada;
      Card target = bob;
      prepare(source, target);
      EXPECT_EQ(RunOn(source, target, "SETTRAIT:SEEN:1", form), expected) << name;
      EXPECT_EQ(HasTrait(target, "SEEN"), expected == 2) << name;
      State().RunDepth = 0;
      State().GameOver = 0;
    }
  }
}

TEST_F(RunActionTest, EvenARefusedRunClearsWhatRunsShare) {
  Session& session = State();
  session.FailReason = "old";
  session.RedirectTarget = 3;
  session.RedirectScript = "old";
  session.CancelState = 1;
  session.GameOver = 1;
  double amount = -4;
  EXPECT_EQ(RunScript("ECHO:x", {.Amount = &amount}), 0);
  EXPECT_EQ(session.LastValue, -4);
  EXPECT_EQ(session.FailReason, "");
  EXPECT_EQ(session.RedirectTarget, 0);
  EXPECT_TRUE(session.RedirectScript.empty());
  EXPECT_EQ(session.CancelState, 0);
}

TEST_F(RunActionTest, RepeatsAreBounded) {
  RunOwnAction("REPEAT:SELF:2000000000:MODMYTRAIT:N:1");
  EXPECT_EQ(Trait(ada, "N"), Joined(limits::kRepeats + 1));
  EXPECT_NE(State().PhaseBanner.find("too many repeats"), std::string::npos);
}

/// The bound is for changes that answer one another, not for a run that changes much.
TEST_F(RunActionTest, EveryChangeThatARunMakesIsTold) {
  AddEffect(bob, "MODTRAIT:HEARD:1", kTargetSelf, "TRAITCHANGE:HIT", 0, "SELF");
  std::string script = "MODTRAIT:HIT:1";
  for (int change = 0; change < 3 * limits::kTraitChanges; ++change) {
    script += Joined(":SETTRAIT:T", change, ":1");
  }
  RunScript(script + ":MODTRAIT:HIT:1");
  EXPECT_EQ(Trait(bob, "HEARD"), "2");
  EXPECT_EQ(bob.ChangedTraits, "");
  EXPECT_EQ(State().PhaseBanner.find("without an end"), std::string::npos);
}

}  // namespace
}  // namespace brindlemoor
