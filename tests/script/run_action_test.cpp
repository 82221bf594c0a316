// The frame of a run: refusals, the mask filter, the walk, the result and what a run leaves behind.
#include "script/run_action.h"

#include <array>

#include "core/limits.h"
#include "core/text.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class RunActionTest : public RunTest {};

TEST_F(RunActionTest, TheResultFollowsFromWhatWasAppliedAndWhatFailed) {
  struct Case {
    const char* Script;
    int Result;
  };
  for (const Case& run : {
           Case{"", kRunClean},
           Case{"REQTRAIT:GONE", kRunFailed},
           Case{"CHANCE:0", kRunNothing},
           Case{"AIREQTRAIT:GONE:CHANCE:0", kRunFailed},
           Case{"MODTRAIT:N:1", kRunClean},
           Case{"MODTRAIT:N:1:REQTRAIT:GONE", kRunMixed},
           Case{"MODTRAIT:N:1:CHANCE:0", kRunMixed},
           Case{"AIREQTRAIT:GONE:MODTRAIT:N:1", kRunMixed},
           Case{"NOSUCHWORD:REQTRAIT", kRunFailed},
           Case{"ECHO:a::REQTRAIT:GONE", kRunClean},
           Case{"ECHO:REQTRAIT:ECHO:GONE", kRunClean},
           Case{"MODTRAIT:N", kRunClean},
       }) {
    EXPECT_EQ(RunScript(run.Script), run.Result) << run.Script;
    EXPECT_EQ(State().RunDepth, 0) << run.Script;
  }
}

TEST_F(RunActionTest, AnEmptyFieldEndsTheScript) {
  EXPECT_EQ(RunScript("SETTRAIT:A:1::SETTRAIT:B:1"), kRunClean);
  EXPECT_EQ(Trait(bob, "A"), "1");
  EXPECT_FALSE(HasTrait(bob, "B", ""));
}

TEST_F(RunActionTest, RefusedRunsDoNothing) {
  struct Case {
    const char* Name;
    void (*Prepare)(Card& source, Card& target);
    int Result;
    int InTest;       ///< result of the same as a test run
    int WhilePaying;  ///< result of the same with CostMode 1
  };
  const Case cases[] = {
      {"ten runs in progress", [](Card&, Card&) { State().RunDepth = 10; }, 0, 0, 0},
      {"dead target", [](Card&, Card& target) { FreeCard(target); }, -1, -1, -1},
      {"dead source", [](Card& source, Card&) { FreeCard(source); }, -1, -1, -1},
      {"game over", [](Card&, Card&) { State().GameOver = 1; }, 0, 0, 0},
      {"target not in play", [](Card&, Card& target) { target.InPlay = 0; }, -1, 2, 2},
      {"source not in play", [](Card& source, Card&) { source.InPlay = 0; }, -1, 2, 2},
      {"nine runs in progress", [](Card&, Card&) { State().RunDepth = 9; }, 2, 2, 2},
  };
  for (const Case& run : cases) {
    for (int form = 0; form < 3; ++form) {
      const std::array expected{run.Result, run.InTest, run.WhilePaying};
      Card source = ada;
      Card target = bob;
      run.Prepare(source, target);
      RunOptions options;
      options.TestRun = form == 1 ? 1 : 0;
      options.CostMode = form == 2 ? 1 : -1;
      options.ScriptOverride = "SETTRAIT:SEEN:1";
      const int depth = State().RunDepth;
      EXPECT_EQ(RunAction(source, target, 1, options), expected[static_cast<std::size_t>(form)])
          << run.Name << ", form " << form;
      EXPECT_EQ(HasTrait(target, "SEEN", ""), expected[static_cast<std::size_t>(form)] == 2);
      EXPECT_EQ(State().RunDepth, depth) << run.Name;
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
  RunOptions options;
  options.Amount = &amount;
  EXPECT_EQ(RunScript("ECHO:x", options), 0);
  EXPECT_EQ(session.LastValue, -4);
  EXPECT_EQ(session.FailReason, "");
  EXPECT_EQ(session.RedirectTarget, 0);
  EXPECT_TRUE(session.RedirectScript.empty());
  EXPECT_EQ(session.CancelState, 0);

  amount = 0;
  RunScript("ECHO:x", options);
  EXPECT_EQ(session.LastValue, -4) << "an amount of 0 keeps the last value";
}

TEST_F(RunActionTest, TheMaskFilterRefusesWithoutAReason) {
  EXPECT_EQ(RunOwnAction("REQTRAIT:GONE:ECHO:x"), kRunFailed);
  EXPECT_EQ(State().FailReason, "");
  EXPECT_EQ(State().StatMasked, 1);
  EXPECT_EQ(State().StatNotMasked, 0);

  EXPECT_EQ(RunOwnAction("REQALLY"), kRunFailed);
  EXPECT_EQ(State().StatMasked, 2);

  EXPECT_EQ(RunOwnAction("REQENEMY:REQTRAITMORE:HP:0"), kRunFailed)
      << "the mask asks for the trait, though the requirement itself counts a missing one as 0";
  SetTrait(bob, "HP", "3", 1);
  EXPECT_EQ(RunOwnAction("REQENEMY:REQTRAITMORE:HP:0"), kRunClean);
  EXPECT_EQ(State().StatMasked, 3);
  EXPECT_EQ(State().StatNotMasked, 1);
}

TEST_F(RunActionTest, ScriptsFromElsewhereAreNotFiltered) {
  RunOwnAction("REQTRAIT:GONE");
  State().StatMasked = 0;

  RunOptions options;
  options.ScriptOverride = "REQTRAIT:OTHER";
  EXPECT_EQ(RunAction(ada, bob, 1, options), kRunFailed);
  EXPECT_EQ(State().FailReason, "Requires OTHER trait.");

  options = RunOptions{};
  options.Redirected = true;
  EXPECT_EQ(RunAction(ada, bob, 1, options), kRunFailed);
  EXPECT_EQ(State().FailReason, "Requires GONE trait.");

  options = RunOptions{};
  options.IncomingScript = "TRAIT:GONE:1";
  EXPECT_EQ(RunAction(ada, bob, 1, options), kRunClean) << "the answered action has the trait";
  EXPECT_EQ(State().StatMasked, 0);
}

TEST_F(RunActionTest, AnActionThatIsNotThereIsAnEmptyScript) {
  RunOwnAction("ECHO:x");
  for (const int index : {-1, 0, 2, 300}) EXPECT_EQ(RunAction(ada, bob, index), kRunClean) << index;
  ada.Effects.Edit(1).Script = Text();
  EXPECT_EQ(RunAction(ada, bob, 1), kRunClean);
}

TEST_F(RunActionTest, SourceAndTargetMayBeOneRecord) {
  GiveAction(ada, "PHASE1", "MODTRAIT:HP:2:MODMYTRAIT:HP:3");
  EXPECT_EQ(RunAction(ada, ada, 1), kRunClean);
  EXPECT_EQ(Trait(ada, "HP"), "5");
}

TEST_F(RunActionTest, UnknownWordsAreReportedAndTheirArgumentsWalked) {
  const std::string report =
      "Unrecognized command in <font color=\"#FFFFFF\">Ada</font>, targeting <font "
      "color=\"#FFFFFF\">Bob</font>: \"HOP\" (Full string: \"AIHOP:SETTRAIT:A:1:ECHO:x\")<br><br>";
  EXPECT_EQ(RunScript("AIHOP:SETTRAIT:A:1:ECHO:x"), kRunClean);
  EXPECT_EQ(Trait(bob, "A"), "1");
  EXPECT_EQ(TakeBanner(), Joined("<table width=100%><tr><td bgcolor = #001100 ><font color=\""
                                 "55FF55\"><p align=left>",
                                 report, "x<br><br></font></p></table></tr></td>"));

  RunScript("HOP:SETTRAIT:A:2");
  EXPECT_EQ(TakeBanner(), "") << "no command of the run shows its text";
  RunScript("HOP:ECHO:x", TestOptions());
  EXPECT_EQ(TakeBanner(), "");
}

TEST_F(RunActionTest, RunsNestTenDeepAndTheRestDoesNotAct) {
  GiveAction(bob, "BEFORETRAITCHANGE:HP", "MODMYTRAIT:HP:1");
  EXPECT_EQ(RunScript("MODTRAIT:HP:1:SETTRAIT:DONE:1"), kRunClean);
  EXPECT_EQ(Trait(bob, "HP"), "10") << "one change from each run in progress";
  EXPECT_EQ(Trait(bob, "DONE"), "1");
  EXPECT_EQ(State().RunDepth, 0);
}

TEST_F(RunActionTest, RunsThatSetTooManyOthersGoingAreStopped) {
  State().RunDepth = 1;
  State().NestedCommands = limits::kActionCommands - 1;
  EXPECT_EQ(RunScript("SETTRAIT:A:1:SETTRAIT:B:1"), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "A", ""));
  EXPECT_FALSE(HasTrait(bob, "B", ""));
  EXPECT_NE(State().PhaseBanner.find("set too many others going"), std::string::npos);

  State().RunDepth = 0;
  RunScript("SETTRAIT:B:1");
  EXPECT_TRUE(HasTrait(bob, "B", "")) << "the next action starts afresh";
}

TEST_F(RunActionTest, ACancelFromAReactionStopsTheRunAtItsNextCommand) {
  GiveAction(bob, "BEFORETRAITCHANGE:HP", "REQMYTRAITMORE:WEAK:1");
  EXPECT_EQ(RunScript("MODTRAIT:HP:1:SETTRAIT:SEEN:1"), kRunMixed);
  EXPECT_FALSE(HasTrait(bob, "HP", "")) << "the reaction failed on its source: no change";
  EXPECT_FALSE(HasTrait(bob, "SEEN", ""));
  EXPECT_EQ(RunScript("MODTRAIT:HP:1"), kRunClean) << "no command is left to stop at";

  RunOptions unanswered;
  unanswered.NoCounters = 1;
  EXPECT_EQ(RunScript("MODTRAIT:HP:1:SETTRAIT:SEEN:1", unanswered), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "SEEN", ""));
  RemoveTrait(bob, "SEEN");
  EXPECT_EQ(RunScript("TRAIT:NOCOUNTERS:1:MODTRAIT:HP:1:SETTRAIT:SEEN:1"), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "SEEN", ""));
  RemoveTrait(bob, "SEEN");
  SetTrait(ada, "NoCounters", "", 1);
  EXPECT_EQ(RunScript("MODTRAIT:HP:1:SETTRAIT:SEEN:1"), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "SEEN", ""));
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
  EXPECT_EQ(State().TraitChangeBusy, 0);

  RunScript("MODTRAIT:HP:1", TestOptions());
  EXPECT_EQ(Trait(bob, "SEEN"), "1") << "a test run fires nothing";
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
  EXPECT_EQ(RunScript("WINGAME:SETTRAIT:A:1:ECHOMINOR:won"), kRunClean);
  EXPECT_EQ(State().GameOver, 1);
  EXPECT_EQ(Trait(bob, "A"), "1");
  EXPECT_NE(TakeBanner().find("won"), std::string::npos);
  EXPECT_EQ(RunScript("SETTRAIT:A:2"), kRunNothing);
  EXPECT_EQ(Trait(bob, "A"), "1");
}

TEST_F(RunActionTest, TestRunsLeaveNothingBeyondTheCards) {
  EXPECT_EQ(
      RunScript("DESTROY:DELETEEFFECT:WINGAME:REPEAT:SELF:2:ECHO:x:MODTRAIT:HP:1", TestOptions()),
      kRunClean);
  EXPECT_EQ(Trait(bob, "HP"), "1");
  EXPECT_EQ(TakeBanner(), "");
  EXPECT_EQ(State().GameOver, 0);
  EXPECT_FALSE(IsFree(bob));
}

TEST_F(RunActionTest, AnActionCanDeleteItself) {
  EXPECT_EQ(RunOwnAction("MODTRAIT:HP:1:DELETEEFFECT:MODTRAIT:HP:1"), kRunClean);
  EXPECT_EQ(Trait(bob, "HP"), "2");
  EXPECT_EQ(ada.Effects[1].Script, "");
  EXPECT_EQ(RunScript("DELETEEFFECT"), kRunClean);
}

TEST_F(RunActionTest, RepeatsRunTheWholeScriptAgainAndAreBounded) {
  EXPECT_EQ(RunOwnAction("REPEAT:SELF:3:MODMYTRAIT:N:1:ECHOONCE:x"), kRunClean);
  EXPECT_EQ(Trait(ada, "N"), "4");
  const std::string banner = TakeBanner();
  EXPECT_EQ(banner.find("x<br>"), banner.rfind("x<br>")) << "a repeat echoes nothing once-only";

  RunOptions nested;
  nested.Nested = 1;
  RunOwnAction("REPEAT:SELF:3:MODMYTRAIT:N:1", nested);
  EXPECT_EQ(Trait(ada, "N"), "5");

  SetTrait(ada, "N", "0", 1);
  RunOwnAction("REPEAT:SELF:2000000000:MODMYTRAIT:N:1");
  EXPECT_EQ(Trait(ada, "N"), Joined(limits::kRepeats + 1));
  EXPECT_NE(State().PhaseBanner.find("too many repeats"), std::string::npos);
}

TEST_F(RunActionTest, DebugModeNamesEveryActionThatApplied) {
  State().DebugMode = 1;
  RunScript("MODTRAIT:HP:1");
  EXPECT_EQ(TakeBanner(),
            "<br><font size=-2>Action from <font color=\"#FFFFFF\">Ada</font> successfully applied "
            "to <font color=\"#FFFFFF\">Bob</font>.  (Action: \"MODTRAIT:HP:1\")</font>");
  RunScript("MODTRAIT:HP:1", TestOptions());
  RunScript("REVERSECOLOR");
  EXPECT_EQ(TakeBanner(), "");
}

TEST_F(RunActionTest, TheTextOfARunIsBounded) {
  std::string script = "ECHO:x";
  for (int word = 0; word < 4000; ++word) script += ":SOMEWORD";
  RunScript(script);
  const std::size_t bound = limits::kPageBytes;
  EXPECT_LE(State().PhaseBanner.size(), bound + 1000);
  EXPECT_NE(State().PhaseBanner.find("grew too long"), std::string::npos);
  for (int run = 0; run < 3; ++run) RunScript(script);
  EXPECT_LE(State().PhaseBanner.size(), bound + 1000);
}

TEST_F(RunActionTest, EntryScriptsRunPieceByPiece) {
  struct Case {
    const char* Scripts;
    const char* Value;  ///< of HP afterwards
  };
  for (const Case& card : {
           Case{"", ""},
           Case{"MODTRAIT:HP:1", "1"},
           Case{"MODTRAIT:HP:1$|$", "1"},
           Case{"MODTRAIT:HP:1$|$MODTRAIT:HP:2$|$MODMYTRAIT:HP:4$|$", "7"},
           Case{"MODTRAIT:HP:1$|$$|$MODTRAIT:HP:2", "1"},
           Case{"$|$MODTRAIT:HP:1", ""},
           Case{"MODTRAIT:|$HP:1$|$", "1"},
           Case{"REQTRAIT:GONE$|$MODTRAIT:HP:2$|$", "2"},
       }) {
    Card entering = MakeCard("Cid", 1);
    entering.EntryScripts = card.Scripts;
    RunEntryScripts(entering);
    EXPECT_EQ(Trait(entering, "HP"), card.Value) << card.Scripts;
  }
}

TEST_F(RunActionTest, EntryScriptsThatGrowTheListDoNotRunTheNewOnes) {
  Card entering = MakeCard("Cid", 1);
  entering.EntryScripts = "ADDMOD:MODTRAIT:HP:1$|$";
  RunEntryScripts(entering);
  EXPECT_EQ(Trait(entering, "HP"), "1");
  EXPECT_EQ(entering.EntryScripts, "ADDMOD:MODTRAIT:HP:1$|$MODTRAIT:HP:1$|$");
}

}  // namespace
}  // namespace brindlemoor
