// The frame of a run: refusals, the mask filter, the walk, the result and what a run leaves behind.
#include "script/run_action.h"

#include "core/limits.h"
#include "core/text.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class RunActionTest : public RunTest {};

TEST_F(RunActionTest, TheResultFollowsFromWhatWasAppliedAndWhatFailed) {
  const Rows<const char*, int> cases = {{"", kRunClean},
                                        {"REQTRAIT:GONE", kRunFailed},
                                        {"AIREQTRAIT:GONE:CHANCE:0", kRunFailed},
                                        {"MODTRAIT:N:1:REQTRAIT:GONE", kRunMixed},
                                        {"MODTRAIT:N:1:CHANCE:0", kRunMixed},
                                        {"AIREQTRAIT:GONE:MODTRAIT:N:1", kRunMixed},
                                        {"echo:REQTRAIT", kRunFailed},
                                        {"AIAIECHO:REQTRAIT", kRunFailed},
                                        {"ECHO:a::REQTRAIT:GONE", kRunClean},
                                        {"MODTRAIT:N", kRunClean}};
  for (const auto& [script, result] : cases) {
    EXPECT_EQ(RunScript(script), result) << script;
    EXPECT_EQ(State().RunDepth, 0) << script;
  }
}

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
      EXPECT_EQ(HasTrait(target, "SEEN", ""), expected == 2) << name;
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

TEST_F(RunActionTest, TheMaskFilterRefusesOwnActionsWithoutAReason) {
  EXPECT_EQ(RunOwnAction("REQALLY"), kRunFailed);
  EXPECT_EQ(RunOwnAction("REQENEMY:REQTRAITMORE:HP:0"), kRunFailed)
      << "the mask asks for the trait, though the requirement itself counts a missing one as 0";
  SetTrait(bob, "HP", "3", 1);
  EXPECT_EQ(RunOwnAction("REQENEMY:REQTRAITMORE:HP:0"), kRunClean);
  EXPECT_EQ(RunOwnAction("REQTRAIT:GONE:ECHO:x"), kRunFailed);
  EXPECT_EQ(State().FailReason, "");

  // Scripts from elsewhere are not filtered.
  EXPECT_EQ(RunScript("REQTRAIT:OTHER"), kRunFailed);
  EXPECT_EQ(State().FailReason, "Requires OTHER trait.");
  EXPECT_EQ(RunAction(ada, bob, 1, {.Redirected = true}), kRunFailed);
  EXPECT_EQ(State().FailReason, "Requires GONE trait.");
  EXPECT_EQ(RunAction(ada, bob, 1, {.IncomingScript = "TRAIT:GONE:1"}), kRunClean)
      << "the answered action has the trait";
}

TEST_F(RunActionTest, UnknownWordsAreReportedAndTheirArgumentsWalked) {
  EXPECT_EQ(RunScript("AIHOP:SETTRAIT:A:1:ECHO:x"), kRunClean);
  EXPECT_EQ(Trait(bob, "A"), "1");
  EXPECT_EQ(TakeBanner(),
            "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\"><p align=left>"
            "Unrecognized command in <font color=\"#FFFFFF\">Ada</font>, targeting <font "
            "color=\"#FFFFFF\">Bob</font>: \"HOP\" (Full string: \"AIHOP:SETTRAIT:A:1:ECHO:x\")"
            "<br><br>x<br><br></font></p></table></tr></td>");
  RunScript("HOP:SETTRAIT:A:2");
  EXPECT_EQ(TakeBanner(), "") << "no command of the run shows its text";
}

TEST_F(RunActionTest, RunsNestTenDeepAndTheRestDoesNotAct) {
  GiveAction(bob, "BEFORETRAITCHANGE:HP", "MODMYTRAIT:HP:1");
  EXPECT_EQ(RunScript("MODTRAIT:HP:1:SETTRAIT:DONE:1"), kRunClean);
  EXPECT_EQ(Trait(bob, "HP"), "10") << "one change from each run in progress";
  EXPECT_EQ(Trait(bob, "DONE"), "1");
}

TEST_F(RunActionTest, RunsThatSetTooManyOthersGoingAreStopped) {
  State().RunDepth = State().RunFrames = 1;
  State().NestedCommands = limits::kActionCommands - 1;
  EXPECT_EQ(RunScript("SETTRAIT:A:1:SETTRAIT:B:1"), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "A", ""));
  EXPECT_FALSE(HasTrait(bob, "B", ""));
  EXPECT_NE(State().PhaseBanner.find("set too many others going"), std::string::npos);

  State().RunDepth = State().RunFrames = 0;
  RunScript("SETTRAIT:B:1");
  EXPECT_TRUE(HasTrait(bob, "B", "")) << "the next action starts afresh";
}

TEST_F(RunActionTest, ACancelFromAReactionStopsTheRunAtItsNextCommand) {
  GiveAction(bob, "BEFORETRAITCHANGE:HP", "REQMYTRAITMORE:WEAK:1");
  const std::string script = "MODTRAIT:HP:1:SETTRAIT:SEEN:1";
  EXPECT_EQ(RunScript(script), kRunMixed);
  EXPECT_FALSE(HasTrait(bob, "HP", "")) << "the reaction failed on its source: no change";
  EXPECT_FALSE(HasTrait(bob, "SEEN", ""));
  EXPECT_EQ(RunScript("MODTRAIT:HP:1"), kRunClean) << "no command is left to stop at";

  const auto runsOn = [&](const std::string& unanswered, const RunOptions& options) {
    RemoveTrait(bob, "SEEN");
    return RunScript(unanswered, options) == kRunClean && HasTrait(bob, "SEEN", "");
  };
  EXPECT_TRUE(runsOn(script, {.NoCounters = 1}));
  EXPECT_TRUE(runsOn("TRAIT:NOCOUNTERS:1:" + script, {}));
  SetTrait(ada, "NoCounters", "", 1);
  EXPECT_TRUE(runsOn(script, {}));
}

TEST_F(RunActionTest, TraitChangesOfTheTargetFireOnceAfterTheRun) {
  GiveAction(bob, "TRAITCHANGE:HP", "MODMYTRAIT:SEEN:1:MODMYTRAIT:HP:-1:SETTRAIT:CAUSE:1",
             kTargetTriggeringCard);
  GiveAction(ada, "TRAITCHANGE:HP", "SETMYTRAIT:SEEN:1");
  EXPECT_EQ(RunScript("MODTRAIT:HP:5:MODMYTRAIT:HP:5:REQMYTRAIT:CAUSE"), kRunMixed)
      << "the trigger comes behind the walk";
  EXPECT_EQ(Trait(bob, "SEEN"), "1");
  EXPECT_EQ(Trait(bob, "HP"), "4") << "a change inside the firing does not fire again";
  EXPECT_EQ(Trait(ada, "CAUSE"), "1") << "the acting card is the triggering card";
  EXPECT_EQ(bob.ChangedTraits, "");
  EXPECT_FALSE(HasTrait(ada, "SEEN", "")) << "the source's changes wait";
  EXPECT_EQ(ada.ChangedTraits, "HP:CAUSE:");

  RunScript("SETTRAIT:HP:4");
  RunScript("MODTRAIT:HP:1", {.TestRun = 1});
  EXPECT_EQ(Trait(bob, "SEEN"), "1") << "the same value again or a test run fires nothing";
}

TEST_F(RunActionTest, DeathsComeAtTheEndOfTheRunBeforeItsText) {
  GiveAction(bob, "ONDEATH", "ECHOMINOR:ouch");
  EXPECT_EQ(RunScript("DESTROY:DESTROYME:MODTRAIT:N:1:ECHOMINOR:hit"), kRunClean);
  EXPECT_TRUE(IsFree(ada));
  EXPECT_TRUE(IsFree(bob));
  EXPECT_EQ(TakeBanner(),
            "<font color=\"FF5511\"><p align=right>ouch<br><br></font></p>"
            "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\"><p align=left>"
            "hit<br><br></font></p></table></tr></td>");
}

TEST_F(RunActionTest, AWinnerEndsTheGameWhenTheWalkIsOver) {
  for (const char* script : {"WINGAME:MODTRAIT:A:1:ECHOMINOR:over", "LOSEGAME:MODTRAIT:A:1"}) {
    State().GameOver = 0;
    EXPECT_EQ(RunScript(script), kRunClean);
    EXPECT_EQ(State().GameOver, 1) << script;
    EXPECT_EQ(RunScript("MODTRAIT:A:1"), kRunNothing);
  }
  EXPECT_EQ(Trait(bob, "A"), "2");
  EXPECT_NE(TakeBanner().find("over"), std::string::npos);
}

TEST_F(RunActionTest, AnActionCanDeleteItself) {
  EXPECT_EQ(RunOwnAction("MODTRAIT:HP:1:DELETEEFFECT:MODTRAIT:HP:1"), kRunClean);
  EXPECT_EQ(Trait(bob, "HP"), "2");
  EXPECT_EQ(ada.Effects[1].Script, "");
}

TEST_F(RunActionTest, RepeatsRunTheWholeScriptAgainAndAreBounded) {
  EXPECT_EQ(RunOwnAction("REPEAT:SELF:3:MODMYTRAIT:N:1:ECHOONCE:x"), kRunClean);
  EXPECT_EQ(Trait(ada, "N"), "4");
  const std::string banner = TakeBanner();
  EXPECT_EQ(banner.find("x<br>"), banner.rfind("x<br>")) << "a repeat echoes nothing once-only";
  RunOwnAction("REPEAT:SELF:3:MODMYTRAIT:N:1", {.Nested = 1});
  EXPECT_EQ(Trait(ada, "N"), "5");

  for (const int testRun : {0, 1}) {
    RunOwnAction("MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:3", {.TestRun = testRun});
    EXPECT_EQ(Trait(bob, "HIT"), testRun == 1 ? "5" : "4") << "a test runs once";
  }
  SetTrait(ada, "N", "0", 1);
  RunOwnAction("REPEAT:SELF:2000000000:MODMYTRAIT:N:1");
  EXPECT_EQ(Trait(ada, "N"), Joined(limits::kRepeats + 1));
  EXPECT_NE(State().PhaseBanner.find("too many repeats"), std::string::npos);
}

TEST_F(RunActionTest, EntryScriptsRunPieceByPiece) {
  const Rows<const char*, const char*> cases = {
      {"", ""},
      {"MODTRAIT:HP:1", "1"},
      {"MODTRAIT:HP:1$|$", "1"},
      {"MODTRAIT:HP:1$|$MODTRAIT:HP:2$|$MODMYTRAIT:HP:4$|$", "7"},
      {"MODTRAIT:HP:1$|$$|$MODTRAIT:HP:2", "1"},
      {"REQTRAIT:GONE$|$MODTRAIT:HP:2$|$", "2"},
      {"ADDMOD:MODTRAIT:HP:1$|$", "1"}};  // what a script adds does not run at once
  for (const auto& [scripts, hp] : cases) {
    Card entering = MakeCard("Cid", 1);
    entering.EntryScripts = scripts;
    RunEntryScripts(entering);
    EXPECT_EQ(Trait(entering, "HP"), hp) << scripts;
  }
}

}  // namespace
}  // namespace brindlemoor
