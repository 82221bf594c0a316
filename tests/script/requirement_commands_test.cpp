// Every requirement word: when it holds, when it fails, what it says and how it stops the run.
#include <set>

#include "core/text.h"
#include "script/command_table.h"
#include "tests/script/run_test.h"

namespace brindlemoor {
namespace {

struct WordCase {
  const char* Word;
  const char* Holds;   ///< arguments with which it holds
  const char* Fails;   ///< arguments with which it fails
  const char* Reason;  ///< FailReason of the failure
};

// Ada: MINE 3, COLOR RED, DOT without a value. Bob: HP 5, COLOR Blue, LABEL. Ada's player: MANA 2;
// Bob's: MANA 4. The action that is answered is "TRAIT:FIRE:1:MODTRAIT:HP:-3", the amount -3.
constexpr WordCase kWords[] = {
    {"REQTRAIT", "HP", "GONE", "Requires GONE trait."},
    {"REQTRAIT", "hp", "MINE", "Requires MINE trait."},
    {"REQTRAIT", "FIRE", "", "Requires  trait."},
    {"REQNOTRAIT", "GONE", "FIRE", "Cannot have FIRE trait."},
    {"REQNOTTRAIT", "MINE", "HP", "Cannot have HP trait."},
    {"REQTRAITLESS", "HP:5", "HP:4", "Requires HP trait of 4 or less."},
    {"REQTRAITLESS", "GONE:0", "HP:SRCTRAIT/MINE", "Requires HP trait of SRCTRAIT/MINE or less."},
    {"REQTRAITMORE", "HP:5", "HP:6", "Requires HP trait of 6 or more."},
    {"REQTRAITMORE", "GONE:0", "GONE:1", "Requires GONE trait of 1 or more."},
    {"REQTRAITEQUALS", "HP:5.0", "HP:6", "Requires HP trait of \"6\"."},
    {"REQTRAITEQUALS", "COLOR:GREEN", "COLOR:1", "Requires COLOR trait of \"1\"."},
    {"REQTRAITEQUALS", "HP:2/SRCTRAIT/MINE/TRAITPLUS1", "HP:SRCTRAIT/MINE",
     "Requires HP trait of \"SRCTRAIT/MINE\"."},
    {"REQTRAITIS", "COLOR:bLUE", "COLOR:RED", "Requires COLOR trait of \"RED\"."},
    {"REQTRAITIS", "COLOR: Blue", "COLOR:  Blue", "Requires COLOR trait of \"  Blue\"."},
    {"REQTRAITIS", "HP:2/SRCTRAIT/MINE/TRAITPLUS1", "HP:6 of 5",
     "Requires HP trait of \"6 of 5\"."},
    {"REQTRAITIS", "LABEL:$MYNAME", "LABEL:Ada", "Requires LABEL trait of \"Ada\"."},
    {"REQNAME", "Bob", "bob", "Target card must be named bob"},
    {"REQNAME", "Bob", "$MYNAME", "Target card must be named Ada"},
    {"REQNONAME", "$MYNAME", "Bob", "Cannot have Bob trait."},

    {"REQMYTRAIT", "MINE", "HP", "Requires HP trait."},
    {"REQMYTRAIT", "DOT", "FIRE", "Requires FIRE trait."},
    {"REQMYNOTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQMYNOTRAIT", "HP", "FIRE", "Cannot have FIRE trait."},
    {"REQNOMYTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQMYNOTTRAIT", "HP", "MINE", "Cannot have MINE trait."},
    {"REQMYTRAITLESS", "MINE:3", "MINE:2", "Requires source card have a MINE trait of 2 or less."},
    {"REQMYTRAITMORE", "DOT:1", "MINE:4", "Requires MINE trait of 4 or more."},
    {"REQMYTRAITEQUALS", "MINE:3", "MINE:5", "Requires MINE trait of \"5\"."},
    {"REQMYTRAITIS", "COLOR:red", "COLOR:Blue", "Requires COLOR trait of \"Blue\"."},
    {"REQMYTRAITIS", "TAG:$MYNAME", "COLOR:$MYNAME", "Requires COLOR trait of \"$MYNAME\"."},
    {"REQMYNAME", "Ada", "Bob", "Source card must be named Bob"},
    {"REQMYNAME", "$MYNAME", "ada", "Source card must be named ada"},
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
    {"REQISLESS", "2:3", "3:3", ""},
    {"REQISLESS", "SRCTRAIT/MINE:TARGETTRAIT/HP", "TARGETTRAIT/HP:SRCTRAIT/MINE", ""},
    {"REQEQUALS", "3:SRCTRAIT/MINE", "3:TARGETTRAIT/HP", ""},
    {"REQEQUALS", "MYNAME:MYNAME", "MYNAME:TARGETNAME", ""},
};

class RequirementTest : public RunTest {
 protected:
  RequirementTest() {
    GiveTraits(ada, {"MINE:3", "COLOR:RED", "DOT", "TAG:$MYNAME"});
    GiveTraits(bob, {"HP:5", "COLOR:Blue", "LABEL:<font color=\"#FFFFFF\">Ada</font>"});
    PutPlayerCard(1, {"MANA:2", "ONE"});
    PutPlayerCard(2, {"MANA:4", "TWO"});
  }
  static void GiveTraits(Card& card, const std::vector<std::string>& traits) {
    for (const std::string& trait : traits) SetTrait(card, trait, "", 1);
  }
  /// Runs a reaction to an action that takes 3 HP.
  int React(std::string_view script) {
    amount_ = -3;
    RunOptions options;
    options.Amount = &amount_;
    options.IncomingScript = "TRAIT:FIRE:1:MODTRAIT:HP:-3";
    return RunScript(script, options);
  }
  double amount_ = 0;
};

TEST_F(RequirementTest, EachWordHoldsAndFailsWithItsReason) {
  for (const WordCase& word : kWords) {
    EXPECT_EQ(React(Joined(word.Word, ":", word.Holds)), kRunClean) << word.Word << word.Holds;
    EXPECT_EQ(State().FailReason, "") << word.Word << ":" << word.Holds;
    const std::string failing = Joined(word.Word, ":", word.Fails, ":SETTRAIT:SEEN:1");
    EXPECT_EQ(React(failing), kRunFailed) << failing;
    EXPECT_EQ(State().FailReason, word.Reason) << failing;
    EXPECT_FALSE(HasTrait(bob, "SEEN", "")) << failing << " did not end the walk";
    RemoveTrait(bob, "SEEN");
  }
}

TEST_F(RequirementTest, RelationsOfTheTwoCards) {
  Card& ally = PutInPlay(MakeCard("Cid", 1));
  Card& neutral = PutInPlay(MakeCard("Dot", 0));
  struct Case {
    const char* Word;
    bool Self, Ally, Enemy, Neutral;  ///< holds for this target
    const char* Reason;
  };
  for (const Case& word : {
           Case{"REQNOTME", false, true, true, true, ""},
           Case{"REQALLY", true, true, false, false, "Requires the target to be an ally."},
           Case{"REQENEMY", false, false, true, true, "Requires the target to be an enemy."},
           Case{"REQISPLAYER", true, true, false, false, ""},
           Case{"REQNOTPLAYER", false, false, true, true, ""},
           Case{"REQISNOTPLAYER", false, false, true, true, ""},
       }) {
    const std::pair<Card*, bool> targets[] = {
        {&ada, word.Self}, {&ally, word.Ally}, {&bob, word.Enemy}, {&neutral, word.Neutral}};
    for (const auto& [target, holds] : targets) {
      RunOptions options;
      options.ScriptOverride = word.Word;
      EXPECT_EQ(RunAction(ada, *target, 1, options), holds ? kRunClean : kRunFailed)
          << word.Word << " on " << target->Name.View();
      EXPECT_EQ(State().FailReason, holds ? "" : word.Reason) << word.Word;
    }
  }
}

TEST_F(RequirementTest, EveryRequirementHasACase) {
  std::set<std::string_view> tested = {"REQNOTME",    "REQALLY",      "REQENEMY",
                                       "REQISPLAYER", "REQNOTPLAYER", "REQISNOTPLAYER",
                                       "CHANCE",      "CHANCEABOVE",  "ONECHANCE"};
  for (const WordCase& word : kWords) tested.insert(word.Word);
  for (const Command& row : RequirementCommands()) {
    EXPECT_TRUE(tested.contains(row.Word)) << row.Word;
  }
}

TEST_F(RequirementTest, AMarkedFailureIsCountedAndPassedExceptWhereTheRunIsOver) {
  struct Case {
    const char* Script;
    int Result;
    bool GoesOn;
    int CancelState;
  };
  for (const Case& run : {
           Case{"REQTRAIT:GONE", kRunFailed, false, 0},
           Case{"AIREQTRAIT:GONE", kRunMixed, true, 0},
           Case{"AIREQNOTME", kRunClean, true, 0},
           Case{"REQMYTRAITLESS:MINE:1", kRunFailed, false, 1},
           Case{"REQNOMYNAME:Ada", kRunFailed, false, 1},
           Case{"AIREQMYTRAITLESS:MINE:1", kRunFailed, false, 1},
           Case{"REQMYTRAIT:GONE", kRunFailed, false, 0},
           Case{"REQVALMORE:5", kRunFailed, false, 0},
           Case{"AIREQVALMORE:5", kRunFailed, false, 0},
           Case{"AIREQTRAITTARGET:GONE", kRunFailed, false, 0},
           Case{"REQISMORE:1:2", kRunFailed, false, 0},
           Case{"AIREQISMORE:1:2", kRunClean, true, 0},
           Case{"CHANCE:0", kRunNothing, false, 0},
           Case{"AICHANCE:0", kRunNothing, false, 0},
       }) {
    EXPECT_EQ(RunScript(Joined(run.Script, ":SETTRAIT:SEEN:1")), run.Result) << run.Script;
    EXPECT_EQ(State().CancelState, run.CancelState) << run.Script;
    EXPECT_EQ(HasTrait(bob, "SEEN", ""), run.GoesOn) << run.Script;
    RemoveTrait(bob, "SEEN");
  }
}

TEST_F(RequirementTest, AFailureWithoutAReasonLeavesTheOneBefore) {
  RunScript("AIREQTRAIT:GONE:REQISPLAYER");
  EXPECT_EQ(State().FailReason, "Requires GONE trait.");
}

TEST_F(RequirementTest, OwnerRequirementsFailForACardWithoutOwner) {
  Card& neutral = PutInPlay(MakeCard("Dot", 0));
  for (const auto& [script, reason] : std::initializer_list<std::pair<const char*, const char*>>{
           {"REQMYOWNERTRAIT:ONE", "Requires owner to have ONE trait."},
           {"REQMYOWNERTRAITLESS:MANA:9", "Requires MANA trait of 9 or less."},
           {"REQOWNERTRAITMORE:MANA:0", "Requires MANA trait of 0 or more."},
           {"REQOWNERTRAITEQUALS:MANA:0", "Requires MANA trait of \"0\"."}}) {
    RunOptions options;
    options.ScriptOverride = script;
    EXPECT_EQ(RunAction(neutral, neutral, 1, options), kRunFailed) << script;
    EXPECT_EQ(State().FailReason, reason);
  }
}

TEST_F(RequirementTest, MissingArgumentsAreNoTraitAndNoValue) {
  EXPECT_EQ(RunScript("REQTRAIT"), kRunFailed);
  EXPECT_EQ(RunScript("REQNOTRAIT"), kRunClean);
  EXPECT_EQ(RunScript("REQMYTRAIT"), kRunFailed);
  EXPECT_EQ(RunScript("REQTRAITLESS:HP"), kRunFailed);
  EXPECT_EQ(RunScript("REQTRAITMORE:HP"), kRunClean);
  EXPECT_EQ(RunScript("REQISMORE:1"), kRunClean);
  EXPECT_EQ(RunScript("REQEQUALS"), kRunClean);
  EXPECT_EQ(RunScript("CHANCE"), kRunNothing);
}

TEST_F(RequirementTest, ChancesMissAtTheirRate) {
  struct Case {
    const char* Script;
    int Least, Most;  ///< hits of 2000 runs
  };
  for (const Case& chance : {Case{"CHANCE:0", 0, 0}, Case{"CHANCE:100", 2000, 2000},
                             Case{"CHANCE:25", 400, 600}, Case{"CHANCEABOVE:0", 2000, 2000},
                             Case{"CHANCEABOVE:101", 0, 0}, Case{"CHANCEABOVE:76", 400, 600}}) {
    int hits = 0;
    for (int run = 0; run < 2000; ++run) hits += RunScript(chance.Script) == kRunClean ? 1 : 0;
    EXPECT_GE(hits, chance.Least) << chance.Script;
    EXPECT_LE(hits, chance.Most) << chance.Script;
  }
}

TEST_F(RequirementTest, OneChanceKeepsItsRoll) {
  State().SharedChanceRoll = 40;
  EXPECT_EQ(RunScript("ONECHANCE:40"), kRunClean);
  EXPECT_EQ(RunScript("ONECHANCE:39"), kRunNothing);
  EXPECT_EQ(State().SharedChanceRoll, 40);
  State().SharedChanceRoll = 0;
  RunScript("ONECHANCE:50");
  const int roll = State().SharedChanceRoll;
  EXPECT_GE(roll, 1);
  RunScript("ONECHANCE:50");
  EXPECT_EQ(State().SharedChanceRoll, roll);
}

TEST_F(RequirementTest, ATestRunPassesChancesWithoutARoll) {
  const std::uint64_t randomState = State().Random.State;
  for (const char* script : {"CHANCE:0", "CHANCEABOVE:101", "ONECHANCE:0"}) {
    EXPECT_EQ(RunScript(Joined(script, ":SETTRAIT:SEEN:1"), TestOptions()), kRunClean) << script;
    EXPECT_TRUE(HasTrait(bob, "SEEN", "")) << script;
    RemoveTrait(bob, "SEEN");
  }
  EXPECT_EQ(RunScript("CHANCE:REQTRAIT:GONE", TestOptions()), kRunFailed)
      << "the argument is walked as a word";
  EXPECT_EQ(State().Random.State, randomState);
  EXPECT_EQ(State().SharedChanceRoll, 0);
}

TEST_F(RequirementTest, ADieInATextTestIsRolledTwice) {
  SetTrait(bob, "SIDES", "6", 1);
  const std::uint64_t before = State().Random.State;
  RunScript("REQTRAITIS:SIDES:R1Die6");
  const std::uint64_t after = State().Random.State;
  State().Random.State = before;
  RollDie(6);
  RollDie(6);
  EXPECT_EQ(State().Random.State, after);
}

}  // namespace
}  // namespace brindlemoor
