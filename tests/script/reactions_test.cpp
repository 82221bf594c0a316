// Reactions: what is answered, cancels, redirects, and the rest of a script sent to another card.
#include "script/reactions.h"

#include <string>

#include "core/random.h"
#include "core/text.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

class ReactionsTest : public RunTest {
 protected:
  ReactionsTest() { GiveAction(ada, "PHASE1", "MODTRAIT:HP:-3", kTargetAll); }
  /// Ada's first action on a card, with another script if one is given.
  int Attack(Card& target, std::string_view script = {}, const RunOptions& options = {}) {
    if (!script.empty()) ada.Effects.Edit(1).Script = script;
    const int result = RunAction(ada, target, 1, options);
    EXPECT_EQ(State().RunDepth, 0) << script;
    EXPECT_EQ(State().RedirectDepth, 0) << script;
    return result;
  }
  /// HP that a card has lost or won; 0 without the trait.
  static double Hp(const Card& card) { return TraitNumber(card, "HP"); }
  static std::string Gid(const Card& card) { return std::to_string(card.GlobalID); }
  void Reset() {
    for (Card* card : {&ada, &bob, &cid}) {
      RemoveTrait(*card, "HP");
      for (int effect = 2; effect <= card->Effects.UpperBound(); ++effect) {
        card->Effects.Edit(effect) = CardEffect();
      }
    }
    bob.Effects = SharedArray<CardEffect>(1);
    cid.Effects = SharedArray<CardEffect>(1);
  }

  Card& cid = PutInPlay(MakeCard("Cid", 1, {"SHIELD"}));
};

TEST_F(ReactionsTest, ACardCancelsAnActionBeforeItHappens) {
  struct Case {
    const char* Name;
    bool OnActor;
    const char* Trigger;
    int TargetType;
    const char* Reaction;
    bool Cancelled;
  };
  for (const Case& run : {
           Case{"target, itself", false, "TARGETED", kTargetSelf, "CANCEL", true},
           Case{"target, the attacker", false, "TARGETED", kTargetTriggeringCard, "CANCEL", true},
           Case{"target, all", false, "TARGETED", kTargetAll, "CANCEL", true},
           Case{"target, a random card", false, "TARGETED", kTargetRandom, "REQENEMY:CANCEL", true},
           Case{"actor, itself", true, "MYACTION", kTargetSelf, "CANCEL", true},
           Case{"actor, triggering card", true, "MYACTION", kTargetTriggeringCard, "CANCEL", true},
           Case{"actor, all", true, "MYACTION", kTargetAll, "CANCEL", true},
           Case{"the script goes on", false, "TARGETED", kTargetSelf, "CANCEL:REQTRAIT:NO", true},
           Case{"source requirement", false, "TARGETED", kTargetSelf, "REQMYTRAITMORE:X:1", true},
           Case{"failed", false, "TARGETED", kTargetSelf, "REQTRAIT:NO:CANCEL", false},
           Case{"action seen", false, "TARGETED", kTargetSelf, "REQTRAITTARGET:HP:CANCEL", true},
           Case{"other action", false, "TARGETED", kTargetSelf, "REQTRAITTARGET:MP:CANCEL", false},
           Case{"no target", false, "TARGETED", kTargetRandom, "REQTRAIT:NO:CANCEL", false},
           Case{"other side's word", false, "MYACTION", kTargetSelf, "CANCEL", false},
           Case{"actor's own", true, "TARGETED", kTargetSelf, "CANCEL", false},
           Case{"exact word", false, "Targeted", kTargetSelf, "CANCEL", false},
           Case{"inert by the script", false, "TARGETED", kTargetSelf, "TRAIT:NOCOUNTERS:1:CANCEL",
                false},
       }) {
    Reset();
    GiveAction(run.OnActor ? ada : bob, run.Trigger, run.Reaction, run.TargetType);
    EXPECT_EQ(Attack(bob), run.Cancelled ? kRunNothing : kRunClean) << run.Name;
    EXPECT_EQ(Hp(bob), run.Cancelled ? 0 : -3) << run.Name;
    EXPECT_EQ(State().CancelState, run.Cancelled ? 1 : 0) << run.Name;
  }
  EXPECT_EQ(TakeBanner(), "");
}

TEST_F(ReactionsTest, SomeActionsAreNotAnswered) {
  GiveAction(bob, "TARGETED", "CANCEL:SETMYTRAIT:SEEN:1");
  GiveAction(ada, "MYACTION", "CANCEL:SETMYTRAIT:SEEN:1");
  GiveAction(ada, "TARGETED", "CANCEL:SETMYTRAIT:SEEN:1");
  RunOptions unanswered;
  unanswered.NoCounters = 1;
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3", unanswered), kRunClean);
  EXPECT_EQ(Attack(bob, "TRAIT:NOCOUNTERS:1:MODTRAIT:HP:-3"), kRunClean);
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3", TestOptions()), kRunClean);
  SetTrait(ada, "NOCOUNTERS", "", 1);
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean);
  EXPECT_EQ(Hp(bob), -12);
  RemoveTrait(ada, "NOCOUNTERS");
  EXPECT_FALSE(HasTrait(ada, "SEEN", ""));
  EXPECT_FALSE(HasTrait(bob, "SEEN", ""));

  EXPECT_EQ(Attack(bob), kRunNothing) << "the declaration covered one script only";
  ada.Effects.Edit(2) = CardEffect();
  EXPECT_EQ(Attack(ada), kRunClean) << "a card that aims at itself does not answer";

  RunOptions reaction;
  reaction.IncomingScript = "MODTRAIT:MP:1";
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3", reaction), kRunClean) << "nor does one answer a reaction";
  State().RunDepth = 1;
  EXPECT_EQ(RunAction(ada, bob, 1), kRunClean) << "nor is a nested action answered";
  EXPECT_EQ(State().RunDepth, 1);
  State().RunDepth = 0;
}

TEST_F(ReactionsTest, AFiringOfMyActionIsNoActionToAnswer) {
  ada.Effects.Edit(1).Trigger = "MYACTION";
  GiveAction(ada, "MYACTION", "SETMYTRAIT:SEEN:1");
  EXPECT_EQ(Attack(bob), kRunClean);
  EXPECT_FALSE(HasTrait(ada, "SEEN", ""));
}

TEST_F(ReactionsTest, TheReactingCardIsTheActor) {
  GiveAction(bob, "TARGETED", "MODTRAIT:BURNT:1:MODMYTRAIT:AWAKE:1", kTargetTriggeringCard);
  GiveAction(ada, "TARGETED", "CANCEL");
  GiveAction(ada, "MYACTION", "MODTRAIT:EAGER:1", kTargetTriggeringCard);
  EXPECT_EQ(Attack(bob, "REQTRAIT:AWAKE:REQMYTRAIT:BURNT:REQMYTRAIT:EAGER:MODTRAIT:HP:-3"),
            kRunClean)
      << "what they did stands before the script is walked";
  EXPECT_EQ(Trait(ada, "BURNT"), "1") << "a reaction is not answered itself";
  EXPECT_EQ(Trait(ada, "EAGER"), "1");
  EXPECT_EQ(Trait(bob, "AWAKE"), "1");
  EXPECT_EQ(Hp(bob), -3);
}

TEST_F(ReactionsTest, ACancelHoldsUntilTheNextReactionBegins) {
  GiveAction(bob, "TARGETED", "CANCEL");
  GiveAction(bob, "TARGETED", "SETMYTRAIT:SEEN:1");
  EXPECT_EQ(Attack(bob), kRunClean);
  EXPECT_EQ(Trait(bob, "SEEN"), "1");
  GiveAction(ada, "MYACTION", "CANCEL");
  RemoveTrait(bob, "SEEN");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_FALSE(HasTrait(bob, "SEEN", "")) << "a cancelled action has no target to answer";
}

TEST_F(ReactionsTest, ACancelOutlivesTheRunsThatItsReactionStarts) {
  GiveAction(cid, "ONDEATH", "SETMYTRAIT:GONE:1");
  for (const char* reaction :
       {"CANCEL:MODTRAIT:X:1", "CANCEL:MODMYTRAIT:Y:1", "CANCEL:DESTROYME"}) {
    bob = MakeCard("Bob", 2);
    bob.InPlay = 1;
    bob.Slot = 2;
    GiveAction(bob, "TARGETED", reaction);
    GiveAction(bob, "TRAITCHANGE:X", "SETMYTRAIT:CHANGED:1");
    GiveAction(bob, "BEFORETRAITCHANGE:Y", "SETMYTRAIT:CHANGED:1");
    GiveAction(bob, "ONDEATH", "SETMYTRAIT:CHANGED:1");
    EXPECT_EQ(Attack(bob), kRunNothing) << reaction;
    EXPECT_EQ(State().CancelState, 1) << reaction;
    EXPECT_TRUE(HasTrait(bob, "CHANGED", "")) << reaction;
    EXPECT_EQ(Hp(bob), 0) << reaction;
  }
}

TEST_F(ReactionsTest, ACancelledChangeStopsTheScriptAtItsNextCommand) {
  GiveAction(bob, "BEFORETRAITCHANGE:HP", "CANCEL:MODMYTRAIT:BLOCKS:1");
  for (const bool changesFire : {false, true}) {
    if (changesFire) GiveAction(bob, "TRAITCHANGE:BLOCKS", "SETMYTRAIT:CHANGED:1");
    EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3:SETTRAIT:AFTER:1"), kRunMixed);
    EXPECT_FALSE(HasTrait(bob, "HP", ""));
    EXPECT_FALSE(HasTrait(bob, "AFTER", ""));
  }
  EXPECT_EQ(Trait(bob, "BLOCKS"), "2");
  EXPECT_EQ(Trait(bob, "CHANGED"), "1");
  EXPECT_EQ(Attack(cid, "MODTRAIT:HP:-3:SETTRAIT:AFTER:1"), kRunClean);
}

TEST_F(ReactionsTest, DebugModeTellsOfCancels) {
  GiveAction(bob, "TARGETED", "CANCEL:SETMYTRAIT:A:1");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(State().StatCancelled, 0);
  EXPECT_EQ(TakeBanner(), "");
  State().DebugMode = 1;
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(State().StatCancelled, 1);
  const std::string banner = TakeBanner();
  EXPECT_EQ(banner.find("<br>"), 0U);
  EXPECT_NE(banner.find(" has cancelled the action \"MODTRAIT:HP:-3\" with the effect "
                        "\"CANCEL:SETMYTRAIT:A:1\""),
            std::string::npos)
      << banner;
}

TEST_F(ReactionsTest, MenuReactionsWaitToBeArmed) {
  GiveAction(bob, "MENU:TARGETED:Block", "CANCEL");
  EXPECT_EQ(Attack(bob), kRunClean);
  bob.Effects.Edit(1).MenuState = kArmedMenuAction;
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(bob.Effects[1].MenuState, kMenuAction);
  EXPECT_EQ(Attack(bob), kRunClean);
}

TEST_F(ReactionsTest, AReactionLeavesTheRollAndTheMessageThatTargetsShare) {
  GiveAction(bob, "TARGETED", "ECHOONCE:parry", kTargetAll);
  State().SharedChanceRoll = 7;
  Attack(bob, "ECHOONCE:hit");
  Attack(bob);
  EXPECT_EQ(State().SharedChanceRoll, 7);
  const std::string banner = TakeBanner();
  EXPECT_EQ(banner.find("hit"), banner.rfind("hit"));
}

TEST_F(ReactionsTest, ReactionsThatAddReactionsEnd) {
  GiveAction(bob, "TARGETED", "REQISPLAYER:SETTRAIT:A:1", kTargetAll);
  bob.Effects.Edit(1).Script =
      Joined("RETARGETBYGID:", Gid(bob), ":ADDEFFECT:TARGETED:ALL:MODMYTRAIT:ADDED:1");
  EXPECT_EQ(Attack(bob), kRunClean);
  EXPECT_FALSE(HasTrait(bob, "ADDED", "")) << "what is added answers the next action";
  EXPECT_EQ(Attack(bob), kRunClean);
  EXPECT_TRUE(HasTrait(bob, "ADDED", ""));
}

TEST_F(ReactionsTest, OnlyTheActionThatSaysSoDeletesItself) {
  GiveAction(bob, "TARGETED", "CANCEL:DELETEEFFECT");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_TRUE(bob.Effects[1].Script.empty());
  EXPECT_EQ(Attack(bob), kRunClean) << "the reaction is used up";

  GiveAction(bob, "BEFORETRAITCHANGE:HP", "DELETEEFFECT");
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-1:MODTRAIT:HP:-1"), kRunClean);
  EXPECT_TRUE(bob.Effects[1].Script.empty());
  EXPECT_EQ(ada.Effects[1].Script, "MODTRAIT:HP:-1:MODTRAIT:HP:-1");

  GiveAction(bob, "BEFORETRAITCHANGE:HP", "SETMYTRAIT:SEEN:1");
  GiveAction(bob, "TRAITCHANGE:HP", "SETMYTRAIT:SEEN:2");
  EXPECT_EQ(Attack(bob, "DELETEEFFECT:MODTRAIT:HP:-1"), kRunClean);
  EXPECT_TRUE(ada.Effects[1].Script.empty()) << "the runs between do not save it";
  EXPECT_EQ(bob.Effects[1].Script, "SETMYTRAIT:SEEN:1");
}

TEST_F(ReactionsTest, ARedirectMovesTheAttackToACardThatMeetsTheRequirements) {
  GiveAction(bob, "TARGETED", "REDIRECT:REQTRAIT:SHIELD", kTargetTriggeringCard);
  EXPECT_EQ(Attack(bob, "REQENEMY:ECHOMINOR:hit:MODTRAIT:HP:-3"), kRunNothing);
  EXPECT_EQ(Hp(bob), 0);
  EXPECT_EQ(Hp(cid), -3) << "an ally of the attacker, and yet the re-run does not fail";
  EXPECT_EQ(ada.Effects[1].ChosenTarget, cid.Slot);
  EXPECT_EQ(State().CancelState, 0);
  const std::string banner = TakeBanner();
  EXPECT_EQ(banner.find("hit"), banner.rfind("hit")) << "the first run shows nothing";
  EXPECT_EQ(banner.find("<table"), 0U) << "the re-run is an outermost run";

  EXPECT_EQ(Attack(bob, "REQENEMY:REQTRAIT:UNDEAD:MODTRAIT:HP:-3"), kRunFailed)
      << "the shield does not meet the attack's own requirement: no redirect";
  cid.InPlay = 0;
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean) << "no card with a shield in play";
  EXPECT_EQ(Hp(bob), -3);
  SetTrait(bob, "SHIELD", "", 1);
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean) << "the one shield is the target itself";
  EXPECT_EQ(Hp(bob), -6);
}

TEST_F(ReactionsTest, SidesAreSeenFromTheAttacker) {
  struct Case {
    int ReactingOwner;
    const char* Side;
    const char* Allowed;  ///< cards that may be hit instead
  };
  Card& dan = PutInPlay(MakeCard("Dan", 2, {"SHIELD"}));
  for (const Case& run : {Case{2, "REQENEMY", "Cid"}, Case{2, "REQALLY", "Dan"},
                          Case{1, "REQENEMY", "Dan"}, Case{1, "REQALLY", "Cid"}}) {
    Reset();
    bob.Owner = static_cast<std::uint8_t>(run.ReactingOwner);
    GiveAction(bob, "TARGETED", Joined("REDIRECT:REQTRAIT:SHIELD:", run.Side),
               kTargetTriggeringCard);
    for (int seed = 1; seed <= 20; ++seed) {
      SeedFromText("SIDES", seed);
      EXPECT_EQ(Attack(bob, "REQENEMY:MODTRAIT:HP:-1"), kRunNothing);
    }
    EXPECT_EQ(Hp(bob), 0) << run.Side << run.ReactingOwner;
    EXPECT_EQ(Hp(cid) != 0, run.Allowed == cid.Name) << run.Side << run.ReactingOwner;
    EXPECT_EQ(Hp(dan) != 0, run.Allowed == dan.Name) << run.Side << run.ReactingOwner;
    RemoveTrait(dan, "HP");
  }
}

TEST_F(ReactionsTest, WhatARedirectLeavesForTheReRun) {
  struct Case {
    const char* Requirements;
    const char* Action;
    const char* Script;
    bool Found = true;
  };
  for (const Case& run : {
           Case{":REQTRAIT:SHIELD", "MODTRAIT:HP:-3", "REQTRAIT:SHIELD:MODTRAIT:HP:-3"},
           Case{":REQTRAIT:SHIELD", "REQENEMY:MODTRAIT:HP:-3", "REQTRAIT:SHIELD:MODTRAIT:HP:-3"},
           Case{":REQENEMY:AIREQALLY:REQTRAIT:SHIELD", "REQALLY:SETTRAIT:A:1:AIREQENEMY:ECHO:x",
                "REQTRAIT:SHIELD:SETTRAIT:A:1:ECHO:x"},
           Case{":REQTRAIT:SHIELD:", "MODTRAIT:HP:-3:", "REQTRAIT:SHIELD:MODTRAIT:HP:-3"},
           Case{"", "REQENEMY:MODTRAIT:HP:-3", "MODTRAIT:HP:-3"},
           Case{"", "REQENEMY", ":"},
           Case{":REQTRAIT:GONE", "MODTRAIT:HP:-3", "", false},
           Case{":REQTRAIT:SHIELD:REQMYTRAITMORE:X:1", "MODTRAIT:HP:-3", "", false},
       }) {
    RunOptions options;
    options.ScriptOverride = Joined("MODMYTRAIT:N:1:REDIRECT", run.Requirements);
    options.IncomingScript = run.Action;
    EXPECT_EQ(RunAction(bob, ada, 1, options), kRunNothing) << run.Requirements;
    EXPECT_EQ(State().RedirectScript, run.Script) << run.Requirements;
    EXPECT_EQ(State().RedirectTarget != 0, run.Found) << run.Requirements;
    EXPECT_EQ(State().RunDepth, 0);
    EXPECT_NE(bob.ChangedTraits, "") << "no epilogue";
  }
}

TEST_F(ReactionsTest, NoRedirectBlocks) {
  struct Case {
    bool ByGid;
    bool OnReacting;  ///< else on the reaction's target
    bool InScript;
    bool Blocked;
  };
  for (const Case& run : {Case{false, false, false, true}, Case{false, true, false, false},
                          Case{false, false, true, true}, Case{true, false, false, false},
                          Case{true, true, false, true}, Case{true, false, true, true}}) {
    Reset();
    RemoveTrait(ada, "NOREDIRECT");
    RemoveTrait(bob, "NOREDIRECT");
    if (!run.InScript) SetTrait(run.OnReacting ? bob : ada, "NOREDIRECT", "", 1);
    GiveAction(bob, "TARGETED",
               Joined(run.InScript ? "TRAIT:NOREDIRECT:1:" : "",
                      run.ByGid ? Joined("REDIRECTBYGID:", Gid(cid)) : "REDIRECT:REQTRAIT:SHIELD"),
               kTargetTriggeringCard);
    EXPECT_EQ(Attack(bob), run.Blocked ? kRunClean : kRunNothing);
    EXPECT_EQ(Hp(bob), run.Blocked ? -3 : 0);
    EXPECT_EQ(Hp(cid), run.Blocked ? 0 : -3);
  }
}

TEST_F(ReactionsTest, ARedirectByGlobalIdRunsTheActionsOwnScript) {
  GiveAction(bob, "TARGETED", Joined("REDIRECTBYGID:", Gid(cid)));
  GiveAction(bob, "TARGETED", "SETMYTRAIT:SECOND:1");
  double amount = 4;
  RunOptions options;
  options.Amount = &amount;
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3:MODVAL:1", options), kRunNothing);
  EXPECT_EQ(Hp(cid), -3);
  EXPECT_EQ(amount, 5) << "the action's amount goes along";
  EXPECT_EQ(ada.Effects[1].ChosenTarget, cid.Slot);
  EXPECT_FALSE(HasTrait(bob, "SECOND", "")) << "the scan ends with the redirect";

  EXPECT_EQ(Attack(bob, "REQENEMY:MODTRAIT:HP:-3"), kRunNothing);
  EXPECT_EQ(Hp(cid), -3) << "the own script still asks for an enemy";
  EXPECT_EQ(State().FailReason, "Requires the target to be an enemy.");

  bob.Effects.Edit(1).Script = Joined("REDIRECTBYGID:", Gid(bob));
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean) << "to the same slot: nothing";
  bob.Effects.Edit(1).Script = "REDIRECTBYGID:5";
  EXPECT_EQ(Attack(bob), kRunClean) << "no such card";
  EXPECT_EQ(Hp(bob), -6);
  cid.InPlay = 0;
  bob.Effects.Edit(1).Script = Joined("REDIRECTBYGID:", Gid(cid));
  EXPECT_EQ(Attack(bob), kRunNothing) << "a card that is not in play can't be acted on";
  EXPECT_EQ(Hp(cid), -3);
}

TEST_F(ReactionsTest, ARedirectOutlivesTheRunsThatItsReactionStarts) {
  GiveAction(bob, "TARGETED", Joined("REDIRECTBYGID:", Gid(cid), ":MODTRAIT:X:1:DESTROYME"));
  GiveAction(bob, "TRAITCHANGE:X", "SETMYTRAIT:CHANGED:1");
  GiveAction(bob, "ONDEATH", "SETMYTRAIT:DIED:1");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(cid), -3);
  EXPECT_TRUE(HasTrait(bob, "DIED", ""));
}

TEST_F(ReactionsTest, TheNewTargetAnswersButTheActorDoesNotAgain) {
  GiveAction(ada, "MYACTION", "MODMYTRAIT:ACTED:1");
  GiveAction(bob, "TARGETED", Joined("REDIRECTBYGID:", Gid(cid)));
  GiveAction(cid, "TARGETED", "MODMYTRAIT:AIMED:1");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Trait(ada, "ACTED"), "1");
  EXPECT_EQ(Trait(cid, "AIMED"), "1");
  EXPECT_EQ(Hp(cid), -3);

  Card& dan = PutInPlay(MakeCard("Dan", 2));
  GiveAction(cid, "TARGETED", "REDIRECT:REQNAME:Dan", kTargetTriggeringCard);
  EXPECT_EQ(Attack(bob), kRunNothing) << "a redirect of a redirect";
  EXPECT_EQ(Hp(cid), -3);
  EXPECT_EQ(Hp(dan), -3);
  EXPECT_EQ(Trait(ada, "ACTED"), "2");
  EXPECT_EQ(ada.Effects[1].ChosenTarget, dan.Slot);

  GiveAction(dan, "TARGETED", "CANCEL");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(dan), -3) << "the last one cancels";
  EXPECT_EQ(Hp(bob), 0);
}

TEST_F(ReactionsTest, RepeatsAreRedirectedOneByOne) {
  GiveAction(bob, "TARGETED", Joined("REDIRECTBYGID:", Gid(cid)));
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3:REPEAT:RANDOMENEMY:2"), kRunNothing);
  EXPECT_EQ(Hp(cid), -9) << "a repeat that was redirected starts no further ones";
  EXPECT_EQ(Hp(bob), 0);
}

TEST_F(ReactionsTest, TheActorCanTurnItsActionToo) {
  GiveAction(ada, "MYACTION", Joined("REDIRECTBYGID:", Gid(cid)));
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(cid), -3);
  EXPECT_EQ(Attack(cid), kRunClean);
  EXPECT_EQ(Hp(cid), -6);
}

TEST_F(ReactionsTest, CardsThatTurnAnActionToOneAnotherComeToAnEnd) {
  GiveAction(bob, "TARGETED", Joined("REDIRECTBYGID:", Gid(cid)));
  GiveAction(cid, "TARGETED", Joined("REDIRECTBYGID:", Gid(bob)));
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(bob) + Hp(cid), -3) << "it happens once";
  EXPECT_NE(TakeBanner().find("turn an action to one another"), std::string::npos);
  bob.Effects.Edit(1).Script = "CANCEL";
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Attack(cid), kRunNothing) << "the next action is turned again";
}

TEST_F(ReactionsTest, TheRestOfAScriptGoesToAnotherCard) {
  struct Case {
    std::string Script;
    const char* Hit;  ///< the card whose HP changes, "" for none
    int Result = kRunClean;
  };
  Card stored = MakeCard("Stored", 1);
  State().Collection.Append(stored);
  const Card& own = State().Collection[State().Collection.UpperBound()];
  const std::string tail = ":MODTRAIT:HP:-3";
  for (const Case& run : {
           Case{"RETARGET:RANDOMALLY:REQNOTME" + tail, "Cid"},
           Case{"RETARGET:RANDOMENEMY" + tail, "Bob"},
           Case{"RETARGET:SELF" + tail, "Ada"},
           Case{"RETARGET:NOSUCHWORD:REQTRAIT:SHIELD" + tail, "Cid"},
           Case{"RETARGET:RANDOM:REQTRAIT:GONE" + tail, ""},
           Case{"RETARGETBYGID:" + Gid(cid) + tail, "Cid"},
           Case{"RETARGETBYGID:5" + tail, ""},
           Case{"AIRETARGETBYGID:5" + tail, ""},
           Case{"RETARGETCOLLECTION:" + Gid(own) + tail, "Stored"},
           Case{"RETARGETCOLLECTION:" + Gid(cid) + tail, ""},
           Case{"RETARGETBYGID:" + Gid(cid) + ":RETARGETBYGID:" + Gid(ada) + tail, "Ada"},
           Case{"RETARGETBYGID:" + Gid(cid) + ":REQTRAIT:GONE", "", kRunClean},
           Case{"RETARGET:SELF", ""},
           Case{"RETARGETBYGID:" + Gid(cid), ""},
           Case{"RETARGETCOLLECTION", ""},
       }) {
    EXPECT_EQ(Attack(bob, run.Script), run.Result) << run.Script;
    std::string hit;
    for (Card* card : {&ada, &bob, &cid, &State().Collection[State().Collection.UpperBound()]}) {
      if (Hp(*card) == 0) continue;
      EXPECT_EQ(Hp(*card), -3) << run.Script;
      hit += card->Name.View();
      RemoveTrait(*card, "HP");
    }
    EXPECT_EQ(hit, run.Hit) << run.Script;
  }
}

TEST_F(ReactionsTest, AMarkedRetargetGoesOnOnTheFirstTarget) {
  EXPECT_EQ(Attack(bob, "AIRETARGET:RANDOM:MODTRAIT:HP:1:ECHOMINOR:zed"), kRunClean);
  EXPECT_EQ(Hp(ada) + Hp(bob) + Hp(cid), 2);
  EXPECT_GE(Hp(bob), 1);
  const std::string banner = TakeBanner();
  EXPECT_NE(banner.find(": \"RANDOM\" (Full"), std::string::npos) << "the field behind is a word";
  EXPECT_NE(banner.find("zed<br>"), banner.rfind("zed<br>"));
}

TEST_F(ReactionsTest, TheCallersMessageGoesAlong) {
  RunOptions options;
  options.EchoOverride = "quiet";
  EXPECT_EQ(Attack(bob, Joined("RETARGETBYGID:", Gid(cid), ":ECHOONCE:loud"), options), kRunClean);
  const std::string banner = TakeBanner();
  EXPECT_NE(banner.find("quiet"), std::string::npos);
  EXPECT_EQ(banner.find("loud"), std::string::npos);
}

TEST_F(ReactionsTest, TestRunsReachNoOtherCard) {
  struct Case {
    std::string Script;
    bool GoesOn;
  };
  const std::string tail = ":MODTRAIT:HP:-3";
  for (const Case& run : {
           Case{"CANCEL" + tail, true},
           Case{"SETCARDTARGET" + tail, true},
           Case{"REDIRECTBYGID:" + Gid(cid) + tail, true},
           Case{"REDIRECT:REQTRAIT:SHIELD" + tail, false},
           Case{"RETARGET:RANDOM:REQTRAIT:SHIELD" + tail, false},
           Case{"AIRETARGET:SELF" + tail, false},
           Case{"RETARGETBYGID:" + Gid(cid) + tail, false},
           Case{"RETARGETCOLLECTION:" + Gid(cid) + tail, false},
       }) {
    Card source = ada;
    Card target = bob;
    RunOptions options = TestOptions();
    options.ScriptOverride = run.Script;
    EXPECT_EQ(RunAction(source, target, 1, options), kRunClean) << run.Script;
    EXPECT_EQ(Hp(target), run.GoesOn ? -3 : 0) << run.Script;
    EXPECT_EQ(Hp(source) + Hp(ada) + Hp(bob) + Hp(cid), 0) << run.Script;
    EXPECT_EQ(State().CancelState, 0) << run.Script;
    EXPECT_EQ(State().RedirectTarget, 0) << run.Script;
    EXPECT_EQ(State().RunDepth, 0) << run.Script;
  }
}

TEST_F(ReactionsTest, TheActionsOfACardStayOnOneTarget) {
  GiveAction(ada, "PHASE2", "ECHO:x");
  ada.Effects.Edit(1).ChosenTarget = cid.Slot;
  ada.Effects.Edit(2).ChosenTarget = bob.Slot;
  Attack(bob, "SETCARDTARGET");
  EXPECT_EQ(ada.TargetSlot, cid.Slot);
  EXPECT_EQ(ada.Effects[2].ChosenTarget, cid.Slot);

  ada.Owner = 2;
  ada.Effects.Edit(1).ChosenTarget = bob.Slot;
  Attack(bob);
  EXPECT_EQ(ada.TargetSlot, cid.Slot) << "the computer chooses anew";
  EXPECT_EQ(ada.Effects[2].ChosenTarget, cid.Slot);
}

}  // namespace
}  // namespace brindlemoor
