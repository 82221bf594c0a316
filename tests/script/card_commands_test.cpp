// Commands on whole cards, run as scripts: what they do, what a test run leaves alone, and bounds.
#include "core/limits.h"
#include "script/run_action.h"
#include "script/stored_cards.h"
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
  struct Case {
    const char* What;
    int Deck, TakenPlaces, Nameless;
    const char* Script;
    const char* Hand;
    int DeckLeft;
  };
  const Case cases[] = {
      {"the top comes first", 4, 0, 0, "DRAWCARDS:2", "c4 c3", 3},
      {"two free places", 5, 8, 0, "DRAWCARDS:3", "x x x x x x x x c5 c4", 4},
      {"a full hand", 5, 10, 0, "DRAWCARDS:3", "x x x x x x x x x x", 6},
      {"the free first element stays", 2, 0, 0, "DRAWCARDS:9", "c2 c1", 1},
      {"a nameless card is no draw", 3, 0, 3, "DRAWCARDS:1", "c2", 2},
      {"none", 3, 0, 0, "DRAWCARDS:0", "", 4},
      {"an endless count on a full hand", 3, 10, 0, "DRAWCARDS:1000000000", "x x x x x x x x x x",
       4},
  };
  for (const Case& row : cases) {
    PlayerState& side = State().Players[2];
    InitPlayer(side, 2);
    FillDeck(2, row.Deck);
    if (row.Nameless != 0) FreeCard(side.Deck[row.Nameless + 1]);
    for (int place = 1; place <= row.TakenPlaces; ++place) side.Hand[place].Name = "x";
    RunScript(row.Script);
    EXPECT_EQ(NamesOf(side.Hand), row.Hand) << row.What;
    EXPECT_EQ(side.Deck.UpperBound(), row.DeckLeft) << row.What;
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

TEST_F(CardCommandsTest, DestructionComesAfterTheScript) {
  EXPECT_EQ(RunScript("DESTROYME:DESTROY:MODMYTRAIT:HP:1:MODTRAIT:HP:-1:ECHO:Bye"), kRunClean);
  EXPECT_TRUE(IsFree(source_));
  EXPECT_TRUE(IsFree(target_));
  EXPECT_NE(std::find(source_.Traits.begin(), source_.Traits.end(), Text("HP:1")),
            source_.Traits.end());
  EXPECT_NE(State().PhaseBanner.find("Bye"), std::string::npos);
}

TEST_F(CardCommandsTest, ReturningFreesTheSlotWithoutADeath) {
  GiveAction(target_, "ONDEATH", "OWNER", "SETTRAIT:MOURNS:1");
  const int globalId = target_.GlobalID;
  RunScript("RETURNTOHAND");
  EXPECT_TRUE(IsFree(target_));
  EXPECT_EQ(NamesOf(State().Players[2].Hand), "Target");
  EXPECT_EQ(State().Players[2].Hand[1].GlobalID, globalId);
  EXPECT_EQ(TraitNumber(State().Players[2].Hand[1], "HP"), 5);
  EXPECT_EQ(NamesWith("MOURNS"), "");

  for (Card& place : State().Players[1].Hand) place.Name = "x";
  RunScript("RETURNMETOHAND");
  EXPECT_FALSE(IsFree(source_)) << "the run needs a living target";
  target_ = MakeCard("Target", 2);
  target_.InPlay = 1;
  RunScript("RETURNMETOHAND");
  EXPECT_TRUE(IsFree(source_)) << "with a full hand the card is lost";
}

TEST_F(CardCommandsTest, DuplicatesWaitForTheFlush) {
  struct Case {
    const char* Script;
    int Count;
    const char* Name;
    int Owner;
  };
  for (const Case& row :
       {Case{"DUPLICATE:2:0", 2, "Target", 1}, Case{"DUPLICATEME:3:0", 3, "Source", 1},
        Case{"DUPLICATE:0:0", 0, "", 0}, Case{"DUPLICATE:-4:0", 0, "", 0}}) {
    RunScript(row.Script);
    ASSERT_EQ(State().PendingCount, row.Count) << row.Script;
    for (int card = 1; card <= row.Count; ++card) {
      EXPECT_EQ(State().PendingCards[card].Name, row.Name);
      EXPECT_EQ(State().PendingCards[card].Owner, row.Owner);
    }
    State().PendingCards.Reset(1);
    State().PendingCount = 0;
  }
  EXPECT_EQ(target_.Owner, 2);
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

TEST_F(CardCommandsTest, CreatedCardsComeFromAFile) {
  WriteFile("Zoo.txt",
            "#CARD,\"INDECK\",\"Lion\",\"lion-1\",\"\",\"\",\"\",\"\",\"\"\r\n"
            "#CARDINDECK,\"Ape\",\"\",\"\",\"\",\"\",\"\"\r\n"
            "#CARD,\"COLLECTION\",\"Bear\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
  struct Case {
    const char* Script;
    int Count;
    const char* Name;
    const char* Banner;
  };
  const Case cases[] = {
      {"CREATECARD:2:Ape:Zoo.txt", 2, "Ape", ""},
      {"CREATECARD:1:Bear:Zoo.txt", 1, "Bear", ""},
      {"CREATECARD:1:lion-1:Zoo.txt", 1, "Lion", ""},
      {"CREATECARD:1:Wolf:Zoo.txt", 0, "", "<br>Card \"Wolf\" not found in \"/game/Zoo.txt\".<br>"},
      {"CREATECARD:1:Ape:Nowhere.txt:ECHO:x", 0, "", "<br>File not found:Nowhere.txt<br>"},
  };
  for (const Case& row : cases) {
    State().PhaseBanner.clear();
    State().PendingCount = 0;
    RunScript(row.Script);
    ASSERT_EQ(State().PendingCount, row.Count) << row.Script;
    for (int card = 1; card <= row.Count; ++card) {
      EXPECT_EQ(State().PendingCards[card].Name, row.Name) << row.Script;
      EXPECT_EQ(State().PendingCards[card].Owner, 1) << row.Script;
    }
    EXPECT_NE(State().PhaseBanner.find(row.Banner), std::string::npos) << State().PhaseBanner;
  }
}

TEST_F(CardCommandsTest, StoredTwinsAreFoundInTheCollectionFirst) {
  State().Collection.Append(MakeCard("A", 1));
  State().Decks[3].Cards.Append(MakeCard("B", 1));
  State().Collection[2].GlobalID = 70;
  State().Decks[3].Cards[2].GlobalID = 71;
  EXPECT_EQ(FindOwnedCard(70).Pile, -1);
  EXPECT_EQ(FindOwnedCard(70).Index, 2);
  EXPECT_EQ(FindOwnedCard(71).Pile, 3);
  EXPECT_EQ(FindOwnedCard(71).Record, &State().Decks[3].Cards[2]);
  State().Decks[1].Cards[1] = MakeCard("C", 1);
  State().Decks[1].Cards[1].GlobalID = 70;
  EXPECT_EQ(FindOwnedCard(70).Pile, -1);
  for (const int id : {0, 72}) {
    EXPECT_EQ(FindOwnedCard(id).Pile, 0);
    EXPECT_EQ(FindOwnedCard(id).Index, 0);
    EXPECT_EQ(FindOwnedCard(id).Record, nullptr);
  }
}

TEST_F(CardCommandsTest, PermanentChangesReachTheStoredTwin) {
  struct Case {
    const char* What;
    bool Twin;
    const char* Script;
    int TableHp, StoredHp;
    const char* StoredScripts;
    bool NoMrp;
  };
  const Case cases[] = {
      {"a twin", true, "PERMANENT:MODTRAIT:HP:1", 6, 6, "", true},
      {"no twin", false, "PERMANENT:MODTRAIT:HP:1", 6, 5, "", true},
      {"a replayed change", true, "PERMANENT:ADDMOD:MODTRAIT:HP:2", 7, 7, "MODTRAIT:HP:2$|$",
       false},
      {"nothing behind the word", true, "PERMANENT", 5, 5, "", true},
  };
  for (const Case& row : cases) {
    State().Collection[1] = MakeCard("Target", 1, {"HP:5"});
    State().Collection[1].GlobalID = row.Twin ? target_.GlobalID : 0;
    SetTrait(target_, "HP", 5, 0);
    RemoveTrait(target_, "NOMRP");
    EXPECT_EQ(RunScript(row.Script), kRunClean) << row.What;
    EXPECT_EQ(TraitNumber(target_, "HP"), row.TableHp) << row.What;
    EXPECT_EQ(TraitNumber(State().Collection[1], "HP"), row.StoredHp) << row.What;
    EXPECT_EQ(State().Collection[1].EntryScripts, row.StoredScripts) << row.What;
    EXPECT_EQ(HasTrait(target_, "NOMRP", ""), row.NoMrp) << row.What;
  }
}

TEST_F(CardCommandsTest, ModificationsAreReplayedWhenTheCardEnters) {
  RunScript("ADDMOD:MODTRAIT:HP:2");
  RunScript("ADDMOD:MODTRAIT:HP:-1:SETTRAIT:SEEN:1");
  EXPECT_EQ(TraitNumber(target_, "HP"), 6) << "both have run now";
  EXPECT_EQ(target_.EntryScripts, "MODTRAIT:HP:2$|$MODTRAIT:HP:-1:SETTRAIT:SEEN:1$|$");
  Card again = MakeCard("Again", 2, {"HP:10"});
  again.EntryScripts = target_.EntryScripts;
  const int slot = AddToTable(again);
  EXPECT_EQ(TraitNumber(State().CardTable[slot], "HP"), 11);
  EXPECT_EQ(GetTrait(State().CardTable[slot], "SEEN").Str(), "1");
}

TEST_F(CardCommandsTest, ASavedCardOverwritesItsTwin) {
  State().Decks[2].Cards[1] = MakeCard("Old", 1);
  State().Decks[2].Cards[1].GlobalID = target_.GlobalID;
  RunScript("SETTRAIT:HP:9:CHANGENAME:New:SAVECARD");
  EXPECT_EQ(State().Decks[2].Cards[1].Name, "New");
  EXPECT_EQ(TraitNumber(State().Decks[2].Cards[1], "HP"), 9);
}

TEST_F(CardCommandsTest, NamesAndPicturesAreExpandedFirst) {
  RunScript("CHANGEMYNAME:Sir #TRANSVAL/5/PLUS/2#:CHANGEIMG:big.jpg:CHANGETHUMB:small.jpg");
  EXPECT_EQ(source_.Name, "Sir 7");
  EXPECT_EQ(source_.Picture, "big.jpg");
  EXPECT_EQ(source_.Thumb, "small.jpg");
  EXPECT_EQ(target_.Name, "Target");
}

TEST_F(CardCommandsTest, SidesChangeAndArmedMenusAreReset) {
  struct Case {
    const char* Script;
    int Source, Target;
    int SourceAfter, TargetAfter;
    bool TargetReset, SourceReset;
    int WithFailure;  ///< result when a failure stands beside it: 1 tells that it counts
  };
  const Case cases[] = {
      {"MINDCONTROL", 1, 2, 1, 1, true, false, kRunMixed},
      {"MINDCONTROL", 1, 1, 1, 1, false, false, kRunFailed},
      {"MINDCONTROLME", 1, 2, 2, 2, true, false, kRunMixed},
      {"MINDCONTROLME", 2, 2, 2, 2, false, false, kRunFailed},
      {"DEFECT", 1, 2, 1, 1, true, false, kRunFailed},
      {"DEFECT", 1, 1, 1, 2, true, false, kRunFailed},
      {"DEFECTME", 1, 2, 2, 2, false, true, kRunMixed},
      {"DEFECTME", 0, 2, 1, 2, false, true, kRunMixed},
      {"JOIN:1", 1, 2, 1, 1, true, false, kRunMixed},
      {"JOIN:2", 1, 2, 1, 2, false, false, kRunMixed},
      {"JOIN:3x", 1, 2, 1, 3, true, false, kRunMixed},
      {"JOIN:4", 1, 2, 1, 0, true, false, kRunMixed},
      {"JOIN:-1", 1, 2, 1, 0, true, false, kRunMixed},
      {"JOIN:1e300", 1, 2, 1, 0, true, false, kRunMixed},
      {"JOIN:", 1, 2, 1, 0, true, false, kRunMixed},
      {"MEJOIN:2", 1, 2, 2, 2, true, false, kRunMixed},
      {"MEJOIN:1", 1, 2, 1, 2, false, false, kRunMixed},
  };
  for (const Case& row : cases) {
    for (const int testRun : {0, 1}) {
      for (Card* card : {&source_, &target_}) {
        card->Effects.Resize(1);
        GiveAction(*card, "PHASE1", "SELF", "DRAWCARDS:0");
        GiveAction(*card, "MENU:PHASE7:Arm", "SELF", "DRAWCARDS:0");
        card->Effects.Edit(2).MenuState = kArmedMenuAction;
      }
      source_.Owner = static_cast<std::uint8_t>(row.Source);
      target_.Owner = static_cast<std::uint8_t>(row.Target);
      const std::int32_t bit = target_.OwnerBit;
      const std::string script = Joined("AIREQTRAIT:ABSENT:", row.Script);
      const int result =
          RunAction(source_, target_, 1, RunOptions{.TestRun = testRun, .ScriptOverride = script});
      EXPECT_EQ(result, row.WithFailure) << row.Script;
      EXPECT_EQ(source_.Owner, row.SourceAfter) << row.Script;
      EXPECT_EQ(target_.Owner, row.TargetAfter) << row.Script;
      EXPECT_EQ(target_.OwnerBit, bit) << row.Script;
      EXPECT_EQ(target_.Effects[2].MenuState, row.TargetReset ? 1 : 2) << row.Script;
      EXPECT_EQ(source_.Effects[2].MenuState, row.SourceReset ? 1 : 2) << row.Script;
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

TEST_F(CardCommandsTest, WinningAndLosingEndTheGame) {
  for (const char* script : {"WINGAME", "LOSEGAME"}) {
    State().GameOver = 0;
    RunScript(script, 1);
    EXPECT_EQ(State().GameOver, 0) << script;
    RunScript(script);
    EXPECT_EQ(State().GameOver, 1) << script;
  }
}

TEST_F(CardCommandsTest, RepeatsRunTheWholeScriptOnNewTargets) {
  struct Case {
    const char* Script;
    int TestRun;
    int OnSelf, OnEnemies;
  };
  const Case cases[] = {
      {"MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:3", 0, 1, 3},
      {"MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:0", 0, 1, 0},
      {"MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:-2", 0, 1, 0},
      {"MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:2.9", 0, 1, 2},
      {"REPEAT:SELF:2:MODTRAIT:HIT:1", 0, 3, 0},
      {"MODTRAIT:HIT:1:REPEAT:RANDOMENEMY:3", 1, 1, 0},
      {"MODTRAIT:HIT:1:REPEAT:SELF:99999999999", 0, 1 + limits::kRepeats, 0},
  };
  for (const Case& row : cases) {
    source_.Effects.Edit(1) = CardEffect{};
    GiveAction(source_, "PHASE1", "SELF", row.Script);
    for (Card& card : State().CardTable) RemoveTrait(card, "HIT");
    RunAction(source_, source_, 1, RunOptions{.TestRun = row.TestRun});
    EXPECT_EQ(TraitNumber(source_, "HIT"), row.OnSelf) << row.Script;
    EXPECT_EQ(TraitNumber(target_, "HIT") + TraitNumber(enemy_, "HIT"), row.OnEnemies)
        << row.Script;
    EXPECT_EQ(TraitNumber(player_, "HIT"), 0) << row.Script;
  }
}

TEST_F(CardCommandsTest, ATestRunReachesNothingBeyondItsCards) {
  WriteFile("Zoo.txt", "#CARDINDECK,\"Ape\",\"\",\"\",\"\",\"\",\"\"\r\n");
  FillDeck(2, 5);
  State().Players[2].StartDeck = State().Players[2].Deck;
  State().Collection[1] = MakeCard("Twin", 1);
  State().Collection[1].GlobalID = target_.GlobalID;
  const std::string stored = Dump(State().Collection);
  for (const char* script : {"DRAWCARDS:1",
                             "DESTROY:DESTROYME",
                             "RETURNTOHAND",
                             "RETURNMETOHAND",
                             "DUPLICATE:1:0",
                             "DUPLICATEME:1:1",
                             "CREATECARD:1:Ape:Zoo.txt",
                             "BOOSTER:1",
                             "BOOSTERWITHREQS:1:REQNOTME",
                             "BOOSTERCARD:c1:1",
                             "PERMANENT",
                             "PERMANENT:SAVECARD",
                             "ADDMOD:SETTRAIT:X:1",
                             "SAVECARD",
                             "CHANGENAME:N",
                             "CHANGEMYNAME:N",
                             "CHANGEIMG:N",
                             "CHANGETHUMB:N",
                             "DELETEEFFECT",
                             "WINGAME",
                             "LOSEGAME"}) {
    const std::string table = Dump(State().CardTable);
    Card actor = source_;
    Card candidate = target_;
    RunAction(actor, candidate, 1, RunOptions{.TestRun = 1, .ScriptOverride = script});
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
  struct Case {
    const char* Script;
    int Hp;  ///< of the target, 5 before
  };
  const Case cases[] = {
      {"DRAWCARDS:MINDCONTROL:MODTRAIT:HP:1", 6},
      {"CHANGENAME:MODTRAIT:HP:1", 5},
      {"DUPLICATE:MODTRAIT:HP:1", 6},
      {"BOOSTER:MODTRAIT:HP:1", 5},
      {"BOOSTERCARD:MODTRAIT:HP:1", 5},
      {"BOOSTERWITHREQS:1:MODTRAIT:HP:1", 6},
      {"PERMANENT:MODTRAIT:HP:1", 6},
      {"ADDMOD:MODTRAIT:HP:1", 5},
      {"ADDEFFECT:MODTRAIT:HP:1", 5},
      {"SAVECARD:MODTRAIT:HP:1", 6},
  };
  for (const Case& row : cases) {
    Card actor = source_;
    Card candidate = target_;
    RunAction(actor, candidate, 1, RunOptions{.TestRun = 1, .ScriptOverride = row.Script});
    EXPECT_EQ(TraitNumber(candidate, "HP"), row.Hp) << row.Script;
  }
}

}  // namespace
}  // namespace brindlemoor
