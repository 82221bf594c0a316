// Trait, value and token commands: what a script leaves on the cards, and how its run ends.
#include <limits>

#include "script/run_action.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

std::string TraitsOf(const Card& card) {
  std::string all;
  for (const Text& item : card.Traits) {
    if (!item.empty() && item != "PLAYER") all += Joined(all.empty() ? "" : " ", item);
  }
  return all;
}

class TraitCommandsTest : public SessionTest {
 protected:
  TraitCommandsTest() { Deal(); }

  void Deal() {
    State().CardTable.Reset(1);
    player_ = &PutPlayerCard(1, {"GOLD:5"});
    enemy_ = &PutPlayerCard(2, {"GOLD:7"});
    goblin_ = &PutInPlay(MakeCard("Goblin", 1, {"HP:4", "MANA:2"}));
    ogre_ = &PutInPlay(MakeCard("Ogre", 2, {"HP:9", "C:RED", "FLY"}));
    State().HpReport = 0;
    State().LastValue = 0;
    State().PhaseBanner.clear();
    State().Players[1].Tokens = 3;
  }
  static int Run(Card& source, Card& target, std::string_view script, RunOptions options = {}) {
    options.ScriptOverride = script;
    return RunAction(source, target, 1, options);
  }
  /// Cards that differ from those dealt (the players, Goblin, Ogre), HpReport and the fail reason.
  std::string Outcome() const {
    std::string text;
    const auto add = [&text](const auto&... pieces) {
      text += Joined(text.empty() ? "" : "; ", pieces...);
    };
    const auto addCard = [&](const char* name, const Card& card, const char* dealt) {
      if (TraitsOf(card) != dealt) add(name, " ", TraitsOf(card));
    };
    addCard("P1", *player_, "GOLD:5");
    addCard("P2", *enemy_, "GOLD:7");
    addCard("G", *goblin_, "HP:4 MANA:2");
    addCard("O", *ogre_, "HP:9 C:RED FLY");
    if (State().HpReport != 0) add("report ", int{State().HpReport});
    if (!State().FailReason.empty()) add(State().FailReason);
    return text;
  }
  /// Runs Goblin's scripts on Ogre, each on freshly dealt cards.
  void Try(const Rows<const char*, int, const char*>& cases, const RunOptions& options) {
    for (const auto& [script, result, outcome] : cases) {
      Deal();
      EXPECT_EQ(Run(*goblin_, *ogre_, script, options), result) << script;
      EXPECT_EQ(Outcome(), outcome) << script;
    }
  }

  Card* player_ = nullptr;
  Card* enemy_ = nullptr;
  Card* goblin_ = nullptr;
  Card* ogre_ = nullptr;
};

TEST_F(TraitCommandsTest, OrdinaryRuns) {
  Try({{"MODTRAIT:HP:-3", 2, "O HP:6 C:RED FLY; report 1"},
       {"MODTRAIT:HP:-20:MODTRAIT:C:2", 2, "O HP:-11 C:2 FLY; report 1"},
       {"MODMYTRAIT:HP:-5", 2, "G HP:-1 MANA:2; report 2"},
       {"MODMYTRAIT:MANA:TARGETTRAIT/HP", 2, "G HP:4 MANA:11"},
       // The value is read against the other side's player card: the own gold, the enemy's gold.
       {"MODOWNERTRAIT:GOLD:TARGETTRAIT/GOLD", 2, "P2 GOLD:12"},
       {"MODMYOWNERTRAIT:GOLD:TARGETTRAIT/GOLD", 2, "P1 GOLD:12"},
       {"SUBTRAIT:HP:3", 2, "O HP:6 C:RED FLY; report 1"},
       {"SUBTRAIT:POISON:1", 0, ""},
       {"SUBTRAIT:POISON:1:MODTRAIT:HP:1", 1, "O HP:10 C:RED FLY; report 1"},
       {"SUBMYTRAIT:HP:-3", 2, "G HP:7 MANA:2; report 1"},
       {"ADDTRAIT:HP:1:REMOVETRAIT:POISON", 0, "O HP:10 C:RED FLY; report 1"},
       {"SETTRAIT:C:BLUE", 2, "O HP:9 C:BLUE FLY"},
       {"SETTRAIT:HP:05", 2, "O HP:05 C:RED FLY; report 1"},
       {"SETTRAIT:X:R1Die6", 2, "O HP:9 C:RED FLY X:R1Die6"},
       {"SETTRAIT:X:3/4", 2, "O HP:9 C:RED FLY X:3/4"},
       {"SETTRAIT:X:3/4/PLUS0", 2, "O HP:9 C:RED FLY X:7"},
       {"SETMYTRAIT:HP:5.50", 2, "G HP:5.5 MANA:2; report 2"},
       {"SETMYTRAIT:X:3/4", 2, "G HP:4 MANA:2 X:7"},
       {"SETOWNERTRAIT:GOLD:SRCTRAIT/HP", 2, "P2 GOLD:4"},
       {"SETMYOWNERTRAIT:GOLD:TARGETTRAIT/HP", 2, "P1 GOLD:9"},
       // Removal: found whatever the case, taken away by exact case only.
       {"REMOVETRAIT:HP", 2, "O C:RED FLY"},
       {"REMOVETRAIT:hp", 2, ""},
       {"REMOVEMYTRAIT:MANA", 2, "G HP:4"},
       {"TRAIT:MODTRAIT:HP:SETTRAIT:C:BLUE", 2, "O HP:9 C:BLUE FLY"},
       // Nothing is insufficient outside a cost.
       {"MODMYTRAIT:MANA:-3:MODTRAIT:HP:1", 2, "G HP:4 MANA:-1; O HP:10 C:RED FLY; report 1"}},
      {});
}

TEST_F(TraitCommandsTest, CostsAreRefused) {
  Try({{"MODMYTRAIT:MANA:-2", 2, "G HP:4 MANA:0"},
       // The soft form: the change is made, the walk ends.
       {"MODMYTRAIT:MANA:-3:SETTRAIT:X:1", 1, "G HP:4 MANA:-1; Insufficient MANA."},
       {"AIMODMYTRAIT:MANA:-3:SETTRAIT:X:1", 1,
        "G HP:4 MANA:-1; O HP:9 C:RED FLY X:1; Insufficient MANA."},
       // MODTRAIT looks at the source's trait as well, not at the one that it changed.
       {"MODTRAIT:HP:-10:SETTRAIT:X:1", 2, "O HP:-1 C:RED FLY X:1; report 1"},
       {"MODMYTRAIT:MANA:0:SETMYTRAIT:DEBT:-1:MODTRAIT:DEBT:5:SETTRAIT:X:1", 1,
        "G HP:4 MANA:2 DEBT:-1; O HP:9 C:RED FLY DEBT:5; Insufficient DEBT."},
       // The hard form: the run is left at once and nothing behind it happens.
       {"SETTRAIT:X:1:SUBTRAIT:HP:10:SETTRAIT:X:2", -1, "O HP:9 C:RED FLY X:1; Insufficient HP."},
       {"AISUBTRAIT:HP:10", -1, "Insufficient HP."},
       {"SUBMYTRAIT:MANA:3", -1, "Insufficient MANA."},
       // The player card that the value was read against is the one that is looked at.
       {"MODOWNERTRAIT:GOLD:-8:SETTRAIT:X:1", 2, "P2 GOLD:-1; O HP:9 C:RED FLY X:1"},
       {"SETMYOWNERTRAIT:GOLD:-1:MODOWNERTRAIT:GOLD:1:SETTRAIT:X:1", -1,
        "P1 GOLD:-1; P2 GOLD:8; Insufficient GOLD."},
       {"SETOWNERTRAIT:GOLD:-1:MODMYOWNERTRAIT:GOLD:1:SETTRAIT:X:1", -1,
        "P1 GOLD:6; P2 GOLD:-1; Insufficient GOLD."}},
      {.CostMode = 1});
}

TEST_F(TraitCommandsTest, ATestSparesPlayerCardsAndTokens) {
  Try({{"MODOWNERTRAIT:GOLD:-2:MODTRAIT:HP:1", 2, "O HP:10 C:RED FLY; report 1"},
       // The write is counted, so that a failure behind it is a mixed run.
       {"SETOWNERTRAIT:GOLD:9:REMOVETRAIT:GONE", 1, ""},
       {"SETMYOWNERTRAIT:GOLD:9:REMOVETRAIT:GONE", 1, ""},
       // One field on: the arguments are walked as words.
       {"MODMYOWNERTRAIT:REMOVETRAIT:HP", 2, "O C:RED FLY"},
       {"MODTOKENS:REMOVETRAIT:HP", 2, "O C:RED FLY"},
       {"MODTOKENS:5:SUBMYTRAIT:MANA:1", 2, "G HP:4 MANA:1"}},
      {.TestRun = 1});
  EXPECT_EQ(State().Players[1].Tokens, 3);
  EXPECT_EQ(State().PhaseBanner, "");
}

TEST_F(TraitCommandsTest, CardsWithoutAPlayerCardChangeNothing) {
  Card& stone = PutInPlay(MakeCard("Stone", 0, {"HP:1"}));
  for (const char* word : {"MOD", "SET"}) {
    const RunOptions cost = {.CostMode = 1};
    EXPECT_EQ(Run(stone, *ogre_, Joined(word, "MYOWNERTRAIT:GOLD:1"), cost), kRunClean) << word;
    EXPECT_EQ(Run(*goblin_, stone, Joined(word, "OWNERTRAIT:GOLD:1"), cost), kRunClean) << word;
  }
  EXPECT_EQ(TraitsOf(stone) + Outcome(), "HP:1");
  // A neutral card's effect on an owner takes the target itself for the missing player card.
  EXPECT_EQ(Run(stone, *ogre_, "MODOWNERTRAIT:GOLD:TARGETTRAIT/HP", {.CostMode = 1}), kRunClean);
  EXPECT_EQ(Outcome(), "P2 GOLD:16");
}

TEST_F(TraitCommandsTest, IncomingValue) {
  const Rows<const char*, double, double, double> cases = {
      {"MODVAL:-2", -5, -3, -2},      {"MODVAL:2", -5, -7, 2}, {"MODVAL:-9", -5, 0, -9},
      {"MODVAL:-9", 5, 0, -9},        {"MODVAL:2", 5, 7, 2},   {"MODVAL:-2", 5, 3, -2},
      {"MODVAL:4", 0, 0, 4},          {"SETVAL:4", -5, 4, 4},  {"SETVAL:SRCTRAIT/HP/NEG", 1, 4, 4},
      {"SETVAL:LASTVAL", -5, -5, -5}, {"SETVAL", -5, 0, 0}};
  for (const auto& [script, before, after, lastValue] : cases) {
    double amount = before;
    EXPECT_EQ(Run(*goblin_, *ogre_, script, {.Amount = &amount}), kRunClean);
    EXPECT_EQ(amount, after) << script << " of " << before;
    EXPECT_EQ(State().LastValue, lastValue) << script << " of " << before;
  }
}

TEST_F(TraitCommandsTest, ReactionsSeeRelativeChangesOnly) {
  const Rows<const char*, const char*, const char*> cases = {
      {"MODVAL:-2", "MODTRAIT:HP:-5", "HP:6 SHIELD:4"},
      {"MODVAL:-9", "SUBTRAIT:HP:5", "HP:9 SHIELD:4"},
      {"SETVAL:1", "ADDTRAIT:HP:-5", "HP:10 SHIELD:4"},
      {"MODVAL:-2", "SETTRAIT:HP:5", "HP:5 SHIELD:4"},
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:-3", "HP:9 SHIELD:1"},
      {"REDIRECTRAIT:SHIELD", "MODTRAIT:HP:-6", "HP:7 SHIELD:0"},
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:3", "HP:12 SHIELD:4"},
      // The next change is not redirected any more.
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:-3:MODTRAIT:ARMOR:-1", "HP:9 SHIELD:1 ARMOR:-1"}};
  for (const auto& [reaction, script, traits] : cases) {
    Deal();
    Card& wall = PutInPlay(MakeCard("Wall", 2, {"HP:9", "SHIELD:4"}));
    GiveAction(wall, "BEFORETRAITCHANGE:HP", "SELF", reaction);
    Run(*goblin_, wall, script);
    EXPECT_EQ(TraitsOf(wall), traits) << reaction << " on " << script;
  }
}

TEST_F(TraitCommandsTest, TokensAreTheHumans) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  const Rows<const char*, std::int32_t, const char*, const char*, double> cases = {
      {"MODTOKENS:5:SETTRAIT:X:1", 8, "You now have 8 tokens.", "X:1", 5},
      {"SUBTOKENS:2.4", 1, "You now have 1 tokens.", "", 2.4},
      {"SUBTOKENS:5:SETTRAIT:X:1", 3, "Not enough tokens!<br>", "", 0},
      {"MODTOKENS:-4:SETTRAIT:X:1", 3, "Not enough tokens!<br>", "", 0},
      {"AISUBTOKENS:5:SETTRAIT:X:1", -2, "Not enough tokens!<br>You now have -2 tokens.", "X:1", 5},
      {"MODTOKENS:1e300", kMost, "You now have 2147483647 tokens.", "", 1e300},
      {"AISUBTOKENS:1e300", -kMost - 1, "Not enough tokens!<br>You now have -2147483648 tokens.",
       "", 1e300}};
  for (const auto& [script, tokens, said, traits, lastValue] : cases) {
    Deal();
    Card& ghost = PutInPlay(MakeCard("Ghost", 2));
    Card& demon = PutInPlay(MakeCard("Demon", 2, {"HP:4"}));
    EXPECT_EQ(Run(demon, ghost, script), kRunClean) << script;
    EXPECT_EQ(State().Players[1].Tokens, tokens) << script;
    EXPECT_EQ(TraitsOf(ghost), traits) << script;
    EXPECT_EQ(State().LastValue, lastValue) << script;
    EXPECT_NE(State().PhaseBanner.find(Joined(">", said, "</font>")), std::string::npos) << script;
  }
}

}  // namespace
}  // namespace brindlemoor
