// Commands on whole cards, run as scripts: what they do, what a test run leaves alone, and bounds.
#include <sstream>

#include "core/limits.h"
#include "script/run_action.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardCommandsTest : public SessionTest {
 protected:
  CardCommandsTest()
      : player_(PutPlayerCard(1)),
        enemy_(PutPlayerCard(2)),
        source_(PutInPlay(MakeCard("Source", 1))),
        target_(PutInPlay(MakeCard("Target", 2, {"HP:5"}))) {}

  /// Runs a script from source on target.
  int RunScript(std::string_view script, int testRun = 0) {
    source_.Effects.Edit(1) = CardEffect{};
    GiveAction(source_, "PHASE1", "RANDOM", script);
    return RunAction(source_, target_, 1, RunOptions{.TestRun = testRun});
  }
  /// Runs a script as a test or not, without mask filter.
  static int RunOn(Card& source, Card& target, std::string_view script, int testRun) {
    return RunAction(source, target, 1, RunOptions{.TestRun = testRun, .ScriptOverride = script});
  }
  static std::string NamesOf(const Pile& pile) {
    std::string names;
    for (const Card& card : pile) {
      if (!IsFree(card)) names += (names.empty() ? "" : " ") + card.Name.Str();
    }
    return names;
  }
  static void FillDeck(int side, int count) {
    for (int number = 1; number <= count; ++number) {
      State().Players[side].Deck.Append(MakeCard(Joined("c", number), side));
    }
  }

  Card& player_;
  Card& enemy_;
  Card& source_;
  Card& target_;
};

TEST_F(CardCommandsTest, DrawingStopsAtTheHandTheCountAndTheLastCard) {
  // The deck's size, places of the hand that are taken, a card of the deck without a name.
  const Rows<int, int, int, const char*, const char*, int> cases = {
      {4, 0, 0, "DRAWCARDS:2", "c4 c3", 3},
      {5, 8, 0, "DRAWCARDS:3", "x x x x x x x x c5 c4", 4},
      {5, 10, 0, "DRAWCARDS:1000000000", "x x x x x x x x x x", 6},
      {2, 0, 0, "DRAWCARDS:9", "c2 c1", 1},  // the free first element stays
      {3, 0, 3, "DRAWCARDS:1", "c2", 2}};
  for (const auto& [deck, taken, nameless, script, hand, left] : cases) {
    PlayerState& side = State().Players[2];
    InitPlayer(side, 2);
    FillDeck(2, deck);
    if (nameless != 0) FreeCard(side.Deck[nameless + 1]);
    for (int place = 1; place <= taken; ++place) side.Hand[place].Name = "x";
    RunScript(script);
    EXPECT_EQ(NamesOf(side.Hand), hand) << script << " of " << deck;
    EXPECT_EQ(side.Deck.UpperBound(), left) << script << " of " << deck;
  }
  EXPECT_EQ(NamesOf(State().Players[1].Hand), "") << "the target's owner draws";
}

TEST_F(CardCommandsTest, ACardWithoutASideDrawsAndReturnsNothing) {
  for (const int owner : {0, 4, 255}) {
    source_.Owner = target_.Owner = static_cast<std::uint8_t>(owner);
    RunScript("DRAWCARDS:1:RETURNTOHAND:RETURNMETOHAND");
    EXPECT_FALSE(IsFree(source_));
    EXPECT_FALSE(IsFree(target_));
  }
}

TEST_F(CardCommandsTest, ReturningFreesTheSlotWithoutADeath) {
  GiveAction(target_, "ONDEATH", "OWNER", "SETTRAIT:MOURNS:1");
  RunScript("RETURNTOHAND");
  EXPECT_TRUE(IsFree(target_));
  EXPECT_EQ(NamesOf(State().Players[2].Hand), "Target");
  EXPECT_EQ(TraitNumber(State().Players[2].Hand[1], "HP"), 5);
  EXPECT_EQ(NamesWith("MOURNS"), "");

  for (Card& place : State().Players[1].Hand) place.Name = "x";
  RunOn(source_, enemy_, "RETURNMETOHAND", 0);
  EXPECT_TRUE(IsFree(source_)) << "with a full hand the card is lost";
}

TEST_F(CardCommandsTest, PaidDuplicatesStopWhenTheMoneyIsGone) {
  SetTrait(player_, "MANA", 5, 0);
  GiveAction(target_, "COST", "OWNER", "SUBTRAIT:MANA:2");
  EXPECT_EQ(RunScript("DUPLICATE:9:1:MODTRAIT:HP:1"), kRunClean);
  EXPECT_EQ(State().PendingCount, 2);
  EXPECT_EQ(TraitNumber(player_, "MANA"), 1);
  EXPECT_EQ(TraitNumber(target_, "HP"), 6) << "the run's own cards outlive the nested payment";
  EXPECT_EQ(TraitNumber(State().PendingCards[1], "HP"), 5);
}

TEST_F(CardCommandsTest, CountsBeyondTheBoundStopInOrder) {
  WriteFile("Many.txt", "#CARDINDECK,\"Drone\",\"\",\"\",\"\",\"\",\"\"\r\n");
  for (const char* script :
       {"DUPLICATE:1000000:0", "DUPLICATEME:1000000:0", "CREATECARD:1000000:Drone:Many.txt"}) {
    State().PhaseBanner.clear();
    State().LimitsReported.clear();
    State().PendingCount = 0;
    EXPECT_EQ(RunScript(script), kRunClean);
    EXPECT_EQ(State().PendingCount, limits::kNewCards) << script;
    EXPECT_NE(State().PhaseBanner.find("too many cards"), std::string::npos) << script;
  }
}

TEST_F(CardCommandsTest, NewCardsWait) {
  WriteFile("Zoo.txt",
            "#CARD,\"INDECK\",\"Lion\",\"lion-1\",\"\",\"\",\"\",\"\",\"\"\r\n"
            "#CARDINDECK,\"Ape\",\"\",\"\",\"\",\"\",\"\"\r\n");
  const Rows<const char*, int, const char*, const char*> cases = {
      {"DUPLICATE:2:0", 2, "Target", ""},
      {"DUPLICATEME:3:0", 3, "Source", ""},
      {"DUPLICATE:-4:0", 0, "", ""},
      {"CREATECARD:2:Ape:Zoo.txt", 2, "Ape", ""},
      {"CREATECARD:1:lion-1:Zoo.txt", 1, "Lion", ""},
      {"CREATECARD:1:Wolf:Zoo.txt", 0, "", "<br>Card \"Wolf\" not found in \"/game/Zoo.txt\".<br>"},
      {"CREATECARD:1:Ape:Nowhere.txt:ECHO:x", 0, "", "<br>File not found:Nowhere.txt<br>"}};
  for (const auto& [script, count, name, banner] : cases) {
    State().PhaseBanner.clear();
    RunScript(script);
    ASSERT_EQ(State().PendingCount, count) << script;
    for (int card = 1; card <= count; ++card) {
      EXPECT_EQ(State().PendingCards[card].Name, name) << script;
      EXPECT_EQ(State().PendingCards[card].Owner, 1) << script;
    }
    State().PendingCount = 0;
    EXPECT_NE(State().PhaseBanner.find(banner), std::string::npos) << State().PhaseBanner;
  }
}

TEST_F(CardCommandsTest, PermanentChangesReachTheStoredTwin) {
  // Whether there is a twin, HP on the table and stored, EntryScripts stored.
  const Rows<bool, const char*, int, int, const char*> cases = {
      {true, "PERMANENT:MODTRAIT:HP:1", 6, 6, ""},
      {false, "PERMANENT:MODTRAIT:HP:1", 6, 5, ""},
      {true, "PERMANENT:ADDMOD:MODTRAIT:HP:2", 7, 7, "MODTRAIT:HP:2$|$"},
      {true, "PERMANENT", 5, 5, ""}};
  for (const auto& [twin, script, tableHp, storedHp, entryScripts] : cases) {
    State().Collection[1] = MakeCard("Target", 1, {"HP:5"});
    State().Collection[1].GlobalID = twin ? target_.GlobalID : 0;
    SetTrait(target_, "HP", 5, 0);
    RemoveTrait(target_, "NOMRP");
    EXPECT_EQ(RunScript(script), kRunClean) << script;
    EXPECT_EQ(TraitNumber(target_, "HP"), tableHp) << script;
    EXPECT_EQ(TraitNumber(State().Collection[1], "HP"), storedHp) << script;
    EXPECT_EQ(State().Collection[1].EntryScripts, entryScripts) << script;
    EXPECT_EQ(HasTrait(target_, "NOMRP", ""), *entryScripts == '\0') << script;
  }
}

TEST_F(CardCommandsTest, ModificationsAreReplayedWhenTheCardEnters) {
  RunScript("ADDMOD:MODTRAIT:HP:2");
  RunScript("ADDMOD:MODTRAIT:HP:-1:SETTRAIT:SEEN:1");
  EXPECT_EQ(TraitNumber(target_, "HP"), 6) << "both have run now";
  EXPECT_EQ(target_.EntryScripts, "MODTRAIT:HP:2$|$MODTRAIT:HP:-1:SETTRAIT:SEEN:1$|$");
  Card again = MakeCard("Again", 2, {"HP:10"});
  again.EntryScripts = target_.EntryScripts;
  EXPECT_EQ(TraitNumber(State().CardTable[AddToTable(again)], "HP"), 11);
}

TEST_F(CardCommandsTest, ASavedCardOverwritesItsTwin) {
  Card& twin = State().Decks[2].Cards[1] = MakeCard("Old", 1);
  twin.GlobalID = target_.GlobalID;
  RunScript("SETTRAIT:HP:9:CHANGENAME:Sir #TRANSVAL/5/PLUS/2#:CHANGEMYNAME:Me:SAVECARD");
  EXPECT_EQ(twin.Name, "Sir 7");
  EXPECT_EQ(TraitNumber(twin, "HP"), 9);
  RunScript("CHANGEIMG:big.jpg:CHANGETHUMB:small.jpg");
  EXPECT_EQ(Joined(source_.Name, " ", source_.Picture, " ", source_.Thumb), "Me big.jpg small.jpg");
}

TEST_F(CardCommandsTest, SidesChangeAndArmedMenusAreReset) {
  // Owners of source and target before and after, whose armed menu is reset, and the result when a
  // failure stands beside it: 1 tells that the change counts.
  const Rows<const char*, int, int, int, int, std::string_view, int> cases = {
      {"MINDCONTROL", 1, 2, 1, 1, "target", kRunMixed},
      {"MINDCONTROL", 1, 1, 1, 1, "", kRunFailed},
      {"MINDCONTROLME", 1, 2, 2, 2, "target", kRunMixed},
      {"MINDCONTROLME", 2, 2, 2, 2, "", kRunFailed},
      {"DEFECT", 1, 2, 1, 1, "target", kRunFailed},
      {"DEFECT", 1, 1, 1, 2, "target", kRunFailed},
      {"DEFECTME", 0, 2, 1, 2, "source", kRunMixed},
      {"JOIN:1", 1, 2, 1, 1, "target", kRunMixed},
      {"JOIN:2", 1, 2, 1, 2, "", kRunMixed},
      {"JOIN:1e300", 1, 2, 1, 0, "target", kRunMixed},
      {"JOIN:", 1, 2, 1, 0, "target", kRunMixed},
      {"MEJOIN:2", 1, 2, 2, 2, "target", kRunMixed}};
  for (const auto& [script, source, target, sourceAfter, targetAfter, reset, result] : cases) {
    for (const int testRun : {0, 1}) {
      for (Card* card : {&source_, &target_}) {
        card->Effects.Resize(1);
        GiveAction(*card, "PHASE1", "SELF", "DRAWCARDS:0");
        GiveAction(*card, "MENU:PHASE7:Arm", "SELF", "DRAWCARDS:0");
        card->Effects.Edit(2).MenuState = kArmedMenuAction;
      }
      source_.Owner = static_cast<std::uint8_t>(source);
      target_.Owner = static_cast<std::uint8_t>(target);
      EXPECT_EQ(RunOn(source_, target_, Joined("AIREQTRAIT:ABSENT:", script), testRun), result)
          << script;
      EXPECT_EQ(source_.Owner, sourceAfter) << script;
      EXPECT_EQ(target_.Owner, targetAfter) << script;
      EXPECT_EQ(target_.Effects[2].MenuState, reset == "target" ? 1 : 2) << script;
      EXPECT_EQ(source_.Effects[2].MenuState, reset == "source" ? 1 : 2) << script;
    }
  }
}

TEST_F(CardCommandsTest, AddedActionsWaitAndTheLatestWins) {
  RunScript("ADDEFFECT:PHASE1:SELF:MODTRAIT:HP:1:ECHO:never now");
  EXPECT_EQ(State().PendingEffectText, "PHASE1:SELF:MODTRAIT:HP:1:ECHO:never now");
  EXPECT_EQ(State().PendingEffectCard, target_.GlobalID);
  EXPECT_EQ(TraitNumber(target_, "HP"), 5) << "the walk has ended";
  RunScript("ADDEFFECT:PHASE2:SELF:DESTROY");
  EXPECT_EQ(State().PendingEffectText, "PHASE2:SELF:DESTROY");
  EXPECT_EQ(RunScript("AIREQTRAIT:ABSENT:ADDEFFECT:PHASE3:SELF:DESTROY", 1), kRunMixed)
      << "a test counts it as applied";
  EXPECT_EQ(State().PendingEffectText, "PHASE2:SELF:DESTROY") << "and leaves nothing waiting";
}

TEST_F(CardCommandsTest, ATestRunReachesNothingBeyondItsCards) {
  WriteFile("Zoo.txt", "#CARDINDECK,\"Ape\",\"\",\"\",\"\",\"\",\"\"\r\n");
  FillDeck(2, 5);
  State().Players[2].StartDeck = State().Players[2].Deck;
  State().Collection[1] = MakeCard("Twin", 1);
  State().Collection[1].GlobalID = target_.GlobalID;
  const std::string stored = Dump(State().Collection);
  std::istringstream scripts(
      "DRAWCARDS:1 DESTROY:DESTROYME RETURNTOHAND RETURNMETOHAND DUPLICATE:1:0 DUPLICATEME:1:1 "
      "CREATECARD:1:Ape:Zoo.txt BOOSTER:1 BOOSTERWITHREQS:1:REQNOTME BOOSTERCARD:c1:1 PERMANENT "
      "PERMANENT:SAVECARD ADDMOD:SETTRAIT:X:1 SAVECARD CHANGENAME:N CHANGEMYNAME:N CHANGEIMG:N "
      "CHANGETHUMB:N DELETEEFFECT WINGAME LOSEGAME");
  for (std::string script; scripts >> script;) {
    const std::string table = Dump(State().CardTable);
    Card actor = source_;
    Card candidate = target_;
    RunOn(actor, candidate, script, 1);
    EXPECT_EQ(Dump(State().CardTable), table) << script;
    EXPECT_EQ(Dump(actor), Dump(source_)) << script;
    EXPECT_EQ(Dump(candidate), Dump(target_)) << script;
    EXPECT_EQ(Dump(State().Collection), stored) << script;
    EXPECT_EQ(NamesOf(State().Players[2].Hand), "") << script;
    EXPECT_EQ(State().PendingCount, 0) << script;
    EXPECT_EQ(State().GameOver, 0) << script;
    EXPECT_EQ(State().PhaseBanner, "") << script;
  }
}

// What stands behind a word in a test: its arguments are passed over, or walked as words.
TEST_F(CardCommandsTest, TestRunsPassArgumentsOrWalkThem) {
  const auto hpAfter = [this](const std::string& word) {
    Card actor = source_;
    Card candidate = target_;
    RunOn(actor, candidate, word + ":MODTRAIT:HP:1", 1);
    return TraitNumber(candidate, "HP");
  };
  for (const char* passing : {"CHANGENAME", "BOOSTER", "BOOSTERCARD", "ADDMOD", "ADDEFFECT"}) {
    EXPECT_EQ(hpAfter(passing), 5) << passing;
  }
  for (const char* walking :
       {"DRAWCARDS", "DUPLICATE", "BOOSTERWITHREQS:1", "PERMANENT", "SAVECARD"}) {
    EXPECT_EQ(hpAfter(walking), 6) << walking;
  }
}

}  // namespace
}  // namespace brindlemoor
