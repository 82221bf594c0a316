// Reactions: what is answered, cancels, redirects, and the rest of a script sent to another card.
#include "script/reactions.h"

#include <sstream>
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
  static std::string ToCard(const Card& card) { return "REDIRECTBYGID:" + Gid(card); }
  void Reset() {
    for (Card* card : {&ada, &bob, &cid}) RemoveTrait(*card, "HP");
    ada.Effects.Resize(1);
    bob.Effects = SharedArray<CardEffect>(1);
  }

  Card& cid = PutInPlay(MakeCard("Cid", 1, {"SHIELD"}));
};

TEST_F(ReactionsTest, ACardCancelsAnActionBeforeItHappens) {
  const Rows<Card*, const char*, int, const char*, bool> cases = {
      {&bob, "TARGETED", kTargetSelf, "CANCEL", true},
      {&bob, "TARGETED", kTargetTriggeringCard, "CANCEL", true},
      {&bob, "TARGETED", kTargetAll, "CANCEL", true},
      {&bob, "TARGETED", kTargetRandom, "REQENEMY:CANCEL", true},
      {&ada, "MYACTION", kTargetSelf, "CANCEL", true},
      {&bob, "TARGETED", kTargetSelf, "REQMYTRAITMORE:X:1", true},
      {&bob, "TARGETED", kTargetSelf, "REQTRAIT:NO:CANCEL", false},
      {&bob, "TARGETED", kTargetSelf, "REQTRAITTARGET:HP:CANCEL", true},
      {&bob, "TARGETED", kTargetSelf, "REQTRAITTARGET:MP:CANCEL", false},
      {&bob, "TARGETED", kTargetRandom, "REQTRAIT:NO:CANCEL", false},
      {&bob, "MYACTION", kTargetSelf, "CANCEL", false},
      {&ada, "TARGETED", kTargetSelf, "CANCEL", false},
      {&bob, "Targeted", kTargetSelf, "CANCEL", false},
      {&bob, "TARGETED", kTargetSelf, "TRAIT:NOCOUNTERS:1:CANCEL", false}};
  for (const auto& [owner, trigger, targetType, reaction, cancelled] : cases) {
    SCOPED_TRACE(Joined(owner->Name, " ", trigger, " ", targetType, " ", reaction));
    Reset();
    GiveAction(*owner, trigger, reaction, targetType);
    EXPECT_EQ(Attack(bob), cancelled ? kRunNothing : kRunClean);
    EXPECT_EQ(Hp(bob), cancelled ? 0 : -3);
    EXPECT_EQ(State().CancelState, cancelled ? 1 : 0);
  }
  EXPECT_EQ(TakeBanner(), "");
}

TEST_F(ReactionsTest, SomeActionsAreNotAnswered) {
  GiveAction(bob, "TARGETED", "CANCEL:SETMYTRAIT:SEEN:1");
  GiveAction(ada, "MYACTION", "CANCEL:SETMYTRAIT:SEEN:1");
  EXPECT_EQ(Attack(bob, {}, {.NoCounters = 1}), kRunClean);
  EXPECT_EQ(Attack(bob, {}, {.TestRun = 1}), kRunClean);
  State().RunDepth = 1;
  EXPECT_EQ(RunAction(ada, bob, 1), kRunClean) << "a nested action";
  State().RunDepth = 0;
  SetTrait(ada, "NOCOUNTERS", "", 1);
  EXPECT_EQ(Attack(bob), kRunClean);
  RemoveTrait(ada, "NOCOUNTERS");
  EXPECT_EQ(Attack(bob, "TRAIT:NOCOUNTERS:1:MODTRAIT:HP:-3"), kRunClean);
  EXPECT_EQ(Hp(bob), -15);
  EXPECT_EQ(NamesWith("SEEN"), "");

  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunNothing) << "it covered one script only";
  ada.Effects.Edit(2) = CardEffect();
  EXPECT_EQ(Attack(bob, {}, {.IncomingScript = "MODTRAIT:MP:1"}), kRunClean) << "a reaction";
  GiveAction(ada, "TARGETED", "CANCEL");
  EXPECT_EQ(Attack(ada), kRunClean) << "a card that aims at itself does not answer";
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

TEST_F(ReactionsTest, ACancelOrRedirectOutlivesTheRunsThatItsReactionStarts) {
  const int gid = bob.GlobalID;
  for (const std::string& answer : {std::string("CANCEL"), ToCard(cid)}) {
    for (const char* rest : {":MODTRAIT:X:1", ":MODMYTRAIT:Y:1", ":DESTROYME"}) {
      SCOPED_TRACE(answer + rest);
      bob = MakeCard("Bob", 2);
      bob.InPlay = 1;
      bob.Slot = 2;
      bob.GlobalID = gid;
      RemoveTrait(cid, "HP");
      GiveAction(bob, "TARGETED", answer + rest);
      for (const char* trigger : {"TRAITCHANGE:X", "BEFORETRAITCHANGE:Y", "ONDEATH"}) {
        GiveAction(bob, trigger, "SETMYTRAIT:CHANGED:1");
      }
      EXPECT_EQ(Attack(bob), kRunNothing);
      EXPECT_TRUE(HasTrait(bob, "CHANGED", ""));
      EXPECT_EQ(Hp(bob), 0);
      EXPECT_EQ(Hp(cid), answer == "CANCEL" ? 0 : -3);
    }
  }
}

TEST_F(ReactionsTest, MenuReactionsWaitToBeArmed) {
  GiveAction(bob, "MENU:TARGETED:Block", "CANCEL");
  EXPECT_EQ(Attack(bob), kRunClean);
  bob.Effects.Edit(1).MenuState = kArmedMenuAction;
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Attack(bob), kRunClean);
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
  SetTrait(bob, "SHIELD", "", 1);
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean) << "the one shield is the target itself";
  EXPECT_EQ(Hp(bob), -6);
}

TEST_F(ReactionsTest, SidesAreSeenFromTheAttacker) {
  Card& dan = PutInPlay(MakeCard("Dan", 2, {"SHIELD"}));
  const Rows<std::uint8_t, const char*, const char*> cases = {
      {2, "REQENEMY", "Cid"}, {2, "REQALLY", "Dan"}, {1, "REQENEMY", "Dan"}, {1, "REQALLY", "Cid"}};
  for (const auto& [reactingOwner, side, allowed] : cases) {
    Reset();
    RemoveTrait(dan, "HP");
    bob.Owner = reactingOwner;
    const std::string reaction = Joined("REDIRECT:REQTRAIT:SHIELD:", side);
    GiveAction(bob, "TARGETED", reaction, kTargetTriggeringCard);
    for (int seed = 1; seed <= 20; ++seed) {
      SeedFromText("SIDES", seed);
      EXPECT_EQ(Attack(bob, "REQENEMY:MODTRAIT:HP:-1"), kRunNothing);
    }
    EXPECT_EQ(NamesWith("HP"), allowed) << side << int{reactingOwner};
  }
}

TEST_F(ReactionsTest, NoRedirectBlocks) {
  const std::string first = "REDIRECT:REQTRAIT:SHIELD";
  const Rows<std::string, Card*, bool> cases = {
      {first, &ada, true},
      {first, &bob, false},
      {"TRAIT:NOREDIRECT:1:" + first, nullptr, true},
      {ToCard(cid), &ada, false},
      {ToCard(cid), &bob, true},
      {"TRAIT:NOREDIRECT:1:" + ToCard(cid), nullptr, true}};
  for (const auto& [redirect, steadfast, blocked] : cases) {
    Reset();
    if (steadfast != nullptr) SetTrait(*steadfast, "NOREDIRECT", "", 1);
    GiveAction(bob, "TARGETED", redirect, kTargetTriggeringCard);
    EXPECT_EQ(Attack(bob), blocked ? kRunClean : kRunNothing) << redirect;
    EXPECT_EQ(NamesWith("HP"), blocked ? "Bob" : "Cid") << redirect;
    if (steadfast != nullptr) RemoveTrait(*steadfast, "NOREDIRECT");
  }
}

TEST_F(ReactionsTest, ARedirectByGlobalIdRunsTheActionsOwnScript) {
  GiveAction(bob, "TARGETED", ToCard(cid));
  GiveAction(bob, "TARGETED", "SETMYTRAIT:SECOND:1");
  double amount = 4;
  EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3:MODVAL:1", {.Amount = &amount}), kRunNothing);
  EXPECT_EQ(Hp(cid), -3);
  EXPECT_EQ(amount, 5) << "the action's amount goes along";
  EXPECT_FALSE(HasTrait(bob, "SECOND", "")) << "the scan ends with the redirect";

  EXPECT_EQ(Attack(bob, "REQENEMY:MODTRAIT:HP:-3"), kRunNothing);
  EXPECT_EQ(Hp(cid), -3) << "the own script still asks for an enemy";
  EXPECT_EQ(State().FailReason, "Requires the target to be an enemy.");

  for (const std::string& nowhere : {ToCard(bob), std::string("REDIRECTBYGID:5")}) {
    bob.Effects.Edit(1).Script = nowhere;
    EXPECT_EQ(Attack(bob, "MODTRAIT:HP:-3"), kRunClean) << nowhere;
  }
  cid.InPlay = 0;
  bob.Effects.Edit(1).Script = ToCard(cid);
  EXPECT_EQ(Attack(bob), kRunNothing) << "a card that is not in play can't be acted on";
  EXPECT_EQ(Hp(cid), -3);
}

TEST_F(ReactionsTest, TheNewTargetAnswersButTheActorDoesNotAgain) {
  Card& dan = PutInPlay(MakeCard("Dan", 2));
  GiveAction(ada, "MYACTION", "MODMYTRAIT:ACTED:1");
  GiveAction(bob, "TARGETED", ToCard(cid));
  GiveAction(cid, "TARGETED", "REDIRECT:REQNAME:Dan", kTargetTriggeringCard);
  EXPECT_EQ(Attack(bob), kRunNothing) << "a redirect of a redirect";
  EXPECT_EQ(NamesWith("HP"), "Dan");
  EXPECT_EQ(Trait(ada, "ACTED"), "1");
  EXPECT_EQ(ada.Effects[1].ChosenTarget, dan.Slot);

  GiveAction(dan, "TARGETED", "CANCEL");
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(dan), -3) << "the last one cancels";
  EXPECT_EQ(Hp(bob), 0);
}

TEST_F(ReactionsTest, CardsThatTurnAnActionToOneAnotherComeToAnEnd) {
  GiveAction(bob, "TARGETED", ToCard(cid));
  GiveAction(cid, "TARGETED", ToCard(bob));
  EXPECT_EQ(Attack(bob), kRunNothing);
  EXPECT_EQ(Hp(bob) + Hp(cid), -3) << "it happens once";
  EXPECT_NE(TakeBanner().find("turn an action to one another"), std::string::npos);
  bob.Effects.Edit(1).Script = "CANCEL";
  EXPECT_EQ(Attack(cid), kRunNothing) << "the next action is turned again";
}

TEST_F(ReactionsTest, TheRestOfAScriptGoesToAnotherCard) {
  State().Collection.Append(MakeCard("Stored", 1));
  Card& own = State().Collection[State().Collection.UpperBound()];
  const std::string tail = ":MODTRAIT:HP:-3";
  const std::string toCid = "RETARGETBYGID:" + Gid(cid);
  const Rows<std::string, std::string> cases = {
      {"RETARGET:RANDOMALLY:REQNOTME" + tail, "Cid"},
      {"RETARGET:RANDOMENEMY" + tail, "Bob"},
      {"RETARGET:SELF" + tail, "Ada"},
      {"RETARGET:NOSUCHWORD:REQTRAIT:SHIELD" + tail, "Cid"},
      {"RETARGET:RANDOM:REQTRAIT:GONE" + tail, ""},
      {toCid + tail, "Cid"},
      {"RETARGETBYGID:5" + tail, ""},
      {"RETARGETCOLLECTION:" + Gid(own) + tail, "Stored"},
      {toCid + ":RETARGETBYGID:" + Gid(ada) + tail, "Ada"},
      {toCid + ":REQTRAIT:GONE", ""},
      {"RETARGETCOLLECTION", ""}};
  for (const auto& [script, expected] : cases) {
    EXPECT_EQ(Attack(bob, script), kRunClean) << script;
    EXPECT_EQ(NamesWith("HP") + (HasTrait(own, "HP", "") ? "Stored" : ""), expected) << script;
    for (Card* card : {&ada, &bob, &cid, &own}) RemoveTrait(*card, "HP");
  }
}

TEST_F(ReactionsTest, TestRunsReachNoOtherCard) {
  std::istringstream words(
      Joined("1 CANCEL 1 SETCARDTARGET 1 ", ToCard(cid), " 0 REDIRECT:REQTRAIT:SHIELD",
             " 0 RETARGET:RANDOM 0 AIRETARGET:SELF 0 RETARGETCOLLECTION:", Gid(cid)));
  bool goesOn = false;
  for (std::string word; words >> goesOn >> word;) {
    Card source = ada;
    Card target = bob;
    EXPECT_EQ(RunOn(source, target, word + ":MODTRAIT:HP:-3", {.TestRun = 1}), kRunClean) << word;
    EXPECT_EQ(Hp(target), goesOn ? -3 : 0) << word;
    EXPECT_EQ(Hp(source) + Hp(ada) + Hp(bob) + Hp(cid), 0) << word;
    EXPECT_EQ(State().CancelState, 0) << word;
    EXPECT_EQ(State().RedirectTarget, 0) << word;
  }
}

TEST_F(ReactionsTest, TheActionsOfACardStayOnOneTarget) {
  GiveAction(ada, "PHASE2", "ECHO:x");
  ada.Effects.Edit(1).ChosenTarget = cid.Slot;
  ada.Effects.Edit(2).ChosenTarget = bob.Slot;
  Attack(bob, "SETCARDTARGET");
  EXPECT_EQ(ada.TargetSlot, cid.Slot);
  EXPECT_EQ(ada.Effects[2].ChosenTarget, cid.Slot);
}

}  // namespace
}  // namespace brindlemoor
