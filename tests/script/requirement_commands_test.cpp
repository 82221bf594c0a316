// Every requirement word: when it holds, when it fails, what it says and how it stops the run.
#include "core/text.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

// Ada: MINE 3, COLOR RED, DOT without a value. Bob: HP 5, COLOR Blue, LABEL. Ada's player: MANA 2;
// Bob's: MANA 4. The action that is answered is "TRAIT:FIRE:1:MODTRAIT:HP:-3", the amount -3.
// A word, arguments with which it holds, arguments with which it fails, and the reason it gives.
const Rows<const char*, const char*, const char*, const char*> kWords = {
    {"REQTRAIT", "HP", "GONE", "Requires GONE trait."},
    {"REQTRAIT", "FIRE", "", "Requires  trait."},
    {"REQNOTRAIT", "GONE", "FIRE", "Cannot have FIRE trait."},
    {"REQNOTTRAIT", "MINE", "HP", "Cannot have HP trait."},
    {"REQTRAITLESS", "HP:5", "HP:4", "Requires HP trait of 4 or less."},
    {"REQTRAITMORE", "HP:5", "HP:6", "Requires HP trait of 6 or more."},
    {"REQTRAITEQUALS", "HP:5.0", "HP:6", "Requires HP trait of \"6\"."},
    {"REQTRAITEQUALS", "COLOR:GREEN", "COLOR:1", "Requires COLOR trait of \"1\"."},
    {"REQTRAITIS", "COLOR:bLUE", "COLOR:RED", "Requires COLOR trait of \"RED\"."},
    {"REQTRAITIS", "HP:2/SRCTRAIT/MINE/TRAITPLUS1", "HP:6 of 5",
     "Requires HP trait of \"6 of 5\"."},
    {"REQTRAITIS", "LABEL:$MYNAME", "LABEL:Ada", "Requires LABEL trait of \"Ada\"."},
    {"REQNAME", "Bob", "bob", "Target card must be named bob"},
    {"REQNONAME", "$MYNAME", "Bob", "Cannot have Bob trait."},
    {"REQMYTRAIT", "MINE", "HP", "Requires HP trait."},
    {"REQMYNOTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQNOMYTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQMYNOTTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQMYTRAITLESS", "MINE:3", "MINE:2", "Requires source card have a MINE trait of 2 or less."},
    {"REQMYTRAITMORE", "DOT:1", "MINE:4", "Requires MINE trait of 4 or more."},
    {"REQMYTRAITEQUALS", "MINE:3", "MINE:5", "Requires MINE trait of \"5\"."},
    {"REQMYTRAITIS", "COLOR:red", "COLOR:Blue", "Requires COLOR trait of \"Blue\"."},
    {"REQMYNAME", "Ada", "Bob", "Source card must be named Bob"},
    {"REQNOMYNAME", "Bob", "Ada", "Cannot have Ada trait."},
    {"REQOWNERTRAIT", "TWO", "ONE", "Requires owner to have ONE trait."},
    {"REQMYOWNERTRAIT", "ONE", "TWO", "Requires owner to have TWO trait."},
    {"REQOWNERTRAITLESS", "MANA:4", "MANA:3", "Requires MANA trait of 3 or less."},
    {"REQMYOWNERTRAITLESS", "MANA:2", "MANA:1", "Requires MANA trait of 1 or less."},
    {"REQOWNERTRAITMORE", "MANA:4", "MANA:5", "Requires MANA trait of 5 or more."},
    {"REQMYOWNERTRAITMORE", "MANA:2", "MANA:3", "Requires MANA trait of 3 or more."},
    {"REQOWNERTRAITEQUALS", "MANA:4", "MANA:2", "Requires MANA trait of \"2\"."},
    {"REQMYOWNERTRAITEQUALS", "MANA:2", "MANA:4", "Requires MANA trait of \"4\"."},
    {"REQTRAITTARGET", "HP", "MANA", ""},
    {"REQTRAITTARGET", "FIRE", "hp", ""},
    {"REQTRAITARGET", "MODTRAIT", "SHIELD", ""},
    {"REQNOTRAITTARGET", "MANA", "HP", ""},
    {"REQNOTRAITARGET", "MANA", "HP", ""},
    {"REQVALMORE", "-3", "-2", ""},
    {"REQVALLESS", "-3", "-4", ""},
    {"REQVALEQUALS", "-3", "3", ""},
    {"REQISMORE", "3:2", "3:3", ""},
    {"REQISLESS", "SRCTRAIT/MINE:TARGETTRAIT/HP", "TARGETTRAIT/HP:SRCTRAIT/MINE", ""},
    {"REQEQUALS", "3:SRCTRAIT/MINE", "3:TARGETTRAIT/HP", ""},
    {"REQEQUALS", "MYNAME:MYNAME", "MYNAME:TARGETNAME", ""},
};

class RequirementTest : public RunTest {
 protected:
  RequirementTest() {
    for (const char* trait : {"MINE:3", "COLOR:RED", "DOT", "TAG:$MYNAME"}) Give(ada, trait);
    for (const char* trait : {"HP:5", "COLOR:Blue", "LABEL:<font color=\"#FFFFFF\">Ada</font>"}) {
      Give(bob, trait);
    }
    PutPlayerCard(1, {"MANA:2", "ONE"});
    PutPlayerCard(2, {"MANA:4", "TWO"});
  }
  static void Give(Card& card, std::string_view trait) { SetTrait(card, trait, "", 1); }
  /// Runs a reaction to an action that takes 3 HP.
  int React(std::string_view script) {
    double amount = -3;
    return RunScript(script, {.Amount = &amount, .IncomingScript = "TRAIT:FIRE:1:MODTRAIT:HP:-3"});
  }
};

TEST_F(RequirementTest, EachWordHoldsAndFailsWithItsReason) {
  for (const auto& [word, holds, fails, reason] : kWords) {
    EXPECT_EQ(React(Joined(word, ":", holds)), kRunClean) << word << ":" << holds;
    EXPECT_EQ(State().FailReason, "") << word << ":" << holds;
    const std::string failing = Joined(word, ":", fails, ":SETTRAIT:SEEN:1");
    EXPECT_EQ(React(failing), kRunFailed) << failing;
    EXPECT_EQ(State().FailReason, reason) << failing;
    EXPECT_FALSE(HasTrait(bob, "SEEN", "")) << failing << " did not end the walk";
    RemoveTrait(bob, "SEEN");
  }
}

TEST_F(RequirementTest, RelationsOfTheTwoCards) {
  PutInPlay(MakeCard("Cid", 1));
  PutInPlay(MakeCard("Dot", 0));
  const Rows<const char*, std::string, const char*> cases = {
      {"REQNOTME", "Bob Cid Dot ", ""},
      {"REQALLY", "Ada Cid ", "Requires the target to be an ally."},
      {"REQENEMY", "Bob Dot ", "Requires the target to be an enemy."},
      {"REQISPLAYER", "Ada Cid ", ""},
      {"REQNOTPLAYER", "Bob Dot ", ""},
      {"REQISNOTPLAYER", "Bob Dot ", ""}};
  for (const auto& [word, names, reason] : cases) {
    std::string holds;
    for (Card& target : State().CardTable) {
      if (HasTrait(target, "PLAYER", "")) continue;
      const bool clean = RunOn(ada, target, word) == kRunClean;
      EXPECT_EQ(State().FailReason, clean ? "" : reason) << word << " on " << target.Name.View();
      if (clean) holds += Joined(target.Name, " ");
    }
    EXPECT_EQ(holds, names) << word;
  }
}

TEST_F(RequirementTest, AMarkedFailureIsCountedAndPassedExceptWhereTheRunIsOver) {
  const Rows<const char*, int, bool, int> cases = {
      {"REQTRAIT:GONE", kRunFailed, false, 0},   {"AIREQTRAIT:GONE", kRunMixed, true, 0},
      {"AIREQNOTME", kRunClean, true, 0},        {"REQMYTRAITLESS:MINE:1", kRunFailed, false, 1},
      {"REQNOMYNAME:Ada", kRunFailed, false, 1}, {"AIREQMYTRAITLESS:MINE:1", kRunFailed, false, 1},
      {"REQMYTRAIT:GONE", kRunFailed, false, 0}, {"REQVALMORE:5", kRunFailed, false, 0},
      {"AIREQVALMORE:5", kRunFailed, false, 0},  {"AIREQTRAITTARGET:GONE", kRunFailed, false, 0},
      {"REQISMORE:1:2", kRunFailed, false, 0},   {"AIREQISMORE:1:2", kRunClean, true, 0},
      {"CHANCE:0", kRunNothing, false, 0},       {"AICHANCE:0", kRunNothing, false, 0}};
  for (const auto& [script, result, goesOn, cancelState] : cases) {
    EXPECT_EQ(RunScript(Joined(script, ":SETTRAIT:SEEN:1")), result) << script;
    EXPECT_EQ(State().CancelState, cancelState) << script;
    EXPECT_EQ(HasTrait(bob, "SEEN", ""), goesOn) << script;
    RemoveTrait(bob, "SEEN");
  }
  RunScript("AIREQTRAIT:GONE:REQISPLAYER");
  EXPECT_EQ(State().FailReason, "Requires GONE trait.") << "a failure without one leaves it";
}

TEST_F(RequirementTest, OwnerRequirementsFailForACardWithoutOwner) {
  Card& neutral = PutInPlay(MakeCard("Dot", 0));
  const Rows<const char*, const char*> cases = {
      {"REQMYOWNERTRAIT:ONE", "Requires owner to have ONE trait."},
      {"REQOWNERTRAITMORE:MANA:0", "Requires MANA trait of 0 or more."},
      {"REQOWNERTRAITEQUALS:MANA:0", "Requires MANA trait of \"0\"."}};
  for (const auto& [script, reason] : cases) {
    EXPECT_EQ(RunOn(neutral, neutral, script), kRunFailed) << script;
    EXPECT_EQ(State().FailReason, reason);
  }
}

TEST_F(RequirementTest, MissingArgumentsAreNoTraitAndNoValue) {
  const Rows<const char*, int> cases = {
      {"REQTRAIT", kRunFailed},        {"REQNOTRAIT", kRunClean},      {"REQMYTRAIT", kRunFailed},
      {"REQTRAITLESS:HP", kRunFailed}, {"REQTRAITMORE:HP", kRunClean}, {"REQISMORE:1", kRunClean},
      {"REQEQUALS", kRunClean},        {"CHANCE", kRunNothing}};
  for (const auto& [script, result] : cases) EXPECT_EQ(RunScript(script), result) << script;
}

TEST_F(RequirementTest, ChancesMissAtTheirRate) {
  const Rows<const char*, int, int> cases = {
      {"CHANCE:0", 0, 0},        {"CHANCE:100", 2000, 2000},
      {"CHANCE:25", 400, 600},   {"CHANCEABOVE:0", 2000, 2000},
      {"CHANCEABOVE:101", 0, 0}, {"CHANCEABOVE:76", 400, 600}};
  for (const auto& [script, least, most] : cases) {
    int hits = 0;
    for (int run = 0; run < 2000; ++run) hits += RunScript(script) == kRunClean ? 1 : 0;
    EXPECT_GE(hits, least) << script;
    EXPECT_LE(hits, most) << script;
  }
}

TEST_F(RequirementTest, OneChanceKeepsItsRoll) {
  State().SharedChanceRoll = 40;
  EXPECT_EQ(RunScript("ONECHANCE:40"), kRunClean);
  EXPECT_EQ(RunScript("ONECHANCE:39"), kRunNothing);
  EXPECT_EQ(State().SharedChanceRoll, 40);
}

TEST_F(RequirementTest, ATestRunPassesChancesWithoutARoll) {
  const std::uint64_t randomState = State().Random.State;
  for (const char* script : {"CHANCE:0", "CHANCEABOVE:101", "ONECHANCE:0"}) {
    EXPECT_EQ(RunScript(Joined(script, ":MODTRAIT:SEEN:1"), {.TestRun = 1}), kRunClean) << script;
  }
  EXPECT_EQ(Trait(bob, "SEEN"), "3");
  EXPECT_EQ(RunScript("CHANCE:REQTRAIT:GONE", {.TestRun = 1}), kRunFailed)
      << "the argument is walked as a word";
  EXPECT_EQ(State().Random.State, randomState);
  EXPECT_EQ(State().SharedChanceRoll, 0);
}

}  // namespace
}  // namespace brindlemoor
