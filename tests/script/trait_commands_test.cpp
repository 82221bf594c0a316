// Trait, value and token commands: what a script leaves on the cards, and how its run ends.
#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "core/random.h"
#include "core/strings.h"
#include "script/command_table.h"
#include "script/run_action.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

std::string TraitsOf(const Card& card) {
  std::string all;
  for (const Text& item : card.Traits) {
    if (!item.empty()) all += Joined(all.empty() ? "" : " ", item);
  }
  return all;
}

struct RunCase {
  const char* Script;
  int Result;
  std::string Goblin = "HP:4 MANA:2";          ///< the source
  std::string Ogre = "HP:9 COLOR:RED FLYING";  ///< the target
  std::string Player = "GOLD:5 PLAYER";        ///< the source's player card
  std::string Enemy = "GOLD:7 PLAYER";         ///< the target's
  std::string FailReason = {};
  int HpReport = 0;
};

class TraitCommandsTest : public SessionTest {
 protected:
  TraitCommandsTest() { Deal(); }

  void Deal() {
    State().CardTable.Reset(1);
    player_ = &PutPlayerCard(1, {"GOLD:5"});
    enemy_ = &PutPlayerCard(2, {"GOLD:7"});
    goblin_ = &PutInPlay(MakeCard("Goblin", 1, {"HP:4", "MANA:2"}));
    ogre_ = &PutInPlay(MakeCard("Ogre", 2, {"HP:9", "COLOR:RED", "FLYING"}));
    State().HpReport = 0;
    State().LastValue = 0;
    State().PhaseBanner.clear();
    State().Players[1].Tokens = 3;
  }
  static int Run(Card& source, Card& target, std::string_view script, RunOptions options = {}) {
    options.ScriptOverride = script;
    return RunAction(source, target, 1, options);
  }
  /// Runs every case on freshly dealt cards.
  void Try(const std::vector<RunCase>& cases, const RunOptions& options) {
    for (const RunCase& row : cases) {
      SCOPED_TRACE(row.Script);
      Deal();
      EXPECT_EQ(Run(*goblin_, *ogre_, row.Script, options), row.Result);
      EXPECT_EQ(TraitsOf(*goblin_), row.Goblin);
      EXPECT_EQ(TraitsOf(*ogre_), row.Ogre);
      EXPECT_EQ(TraitsOf(*player_), row.Player);
      EXPECT_EQ(TraitsOf(*enemy_), row.Enemy);
      EXPECT_EQ(State().FailReason, row.FailReason);
      EXPECT_EQ(State().HpReport, row.HpReport);
      EXPECT_EQ(State().RunDepth, 0);
    }
  }

  Card* player_ = nullptr;
  Card* enemy_ = nullptr;
  Card* goblin_ = nullptr;
  Card* ogre_ = nullptr;
};

const std::vector<RunCase> kOrdinaryRuns = {
    // Relative changes.
    {.Script = "MODTRAIT:HP:-3", .Result = 2, .Ogre = "HP:6 COLOR:RED FLYING", .HpReport = 1},
    {.Script = "MODTRAIT:hp:1", .Result = 2, .Ogre = "hp:10 COLOR:RED FLYING"},
    {.Script = "MODTRAIT:HP:SRCTRAIT/HP/TRAITPLUS0.25",
     .Result = 2,
     .Ogre = "HP:10 COLOR:RED FLYING",
     .HpReport = 1},
    {.Script = "MODTRAIT:POISON:1", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING POISON:1"},
    {.Script = "MODTRAIT:HP:-20:MODTRAIT:COLOR:2",
     .Result = 2,
     .Ogre = "HP:-11 COLOR:2 FLYING",
     .HpReport = 1},
    {.Script = "MODTRAIT:FLYING:0.50", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING:1.5"},
    {.Script = "MODTRAIT:HP:0:MODTRAIT:X",
     .Result = 2,
     .Ogre = "HP:9 COLOR:RED FLYING X:0",
     .HpReport = 1},
    {.Script = "MODMYTRAIT:HP:-5", .Result = 2, .Goblin = "HP:-1 MANA:2", .HpReport = 2},
    {.Script = "MODMYTRAIT:MANA:TARGETTRAIT/HP", .Result = 2, .Goblin = "HP:4 MANA:11"},
    {.Script = "MODOWNERTRAIT:GOLD:-2", .Result = 2, .Enemy = "GOLD:5 PLAYER"},
    {.Script = "MODMYOWNERTRAIT:GOLD:-2", .Result = 2, .Player = "GOLD:3 PLAYER"},
    // The value is read against the other side's player card: the own gold, the enemy's gold.
    {.Script = "MODOWNERTRAIT:GOLD:TARGETTRAIT/GOLD", .Result = 2, .Enemy = "GOLD:12 PLAYER"},
    {.Script = "MODMYOWNERTRAIT:GOLD:TARGETTRAIT/GOLD", .Result = 2, .Player = "GOLD:12 PLAYER"},
    {.Script = "SUBTRAIT:HP:3", .Result = 2, .Ogre = "HP:6 COLOR:RED FLYING", .HpReport = 1},
    {.Script = "SUBTRAIT:HP:-3", .Result = 2, .HpReport = 1},
    {.Script = "SUBTRAIT:HP:10", .Result = 2, .Ogre = "HP:-1 COLOR:RED FLYING", .HpReport = 1},
    {.Script = "SUBTRAIT:POISON:1", .Result = 0},
    {.Script = "SUBTRAIT:POISON:-1", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING POISON:0"},
    {.Script = "SUBTRAIT:POISON:1:MODTRAIT:HP:1",
     .Result = 1,
     .Ogre = "HP:10 COLOR:RED FLYING",
     .HpReport = 1},
    {.Script = "SUBTRAIT:POISON:0", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING POISON:0"},
    {.Script = "SUBMYTRAIT:HP:1", .Result = 2, .Goblin = "HP:3 MANA:2", .HpReport = 1},
    {.Script = "SUBMYTRAIT:HP:-3", .Result = 2, .Goblin = "HP:7 MANA:2", .HpReport = 1},
    {.Script = "SUBMYTRAIT:POISON:-3", .Result = 0},
    {.Script = "ADDTRAIT:HP:1", .Result = 2, .Ogre = "HP:10 COLOR:RED FLYING", .HpReport = 1},
    {.Script = "ADDTRAIT:POISON:1", .Result = 0},
    {.Script = "ADDTRAIT:HP:1:REMOVETRAIT:POISON",
     .Result = 0,
     .Ogre = "HP:10 COLOR:RED FLYING",
     .HpReport = 1},
    // Absolute changes.
    {.Script = "SETTRAIT:COLOR:BLUE", .Result = 2, .Ogre = "HP:9 COLOR:BLUE FLYING"},
    {.Script = "SETTRAIT:HP:05", .Result = 2, .Ogre = "HP:05 COLOR:RED FLYING", .HpReport = 1},
    {.Script = "SETTRAIT:X:R1Die6", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X:R1Die6"},
    {.Script = "SETTRAIT:X:3/4", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X:3/4"},
    {.Script = "SETTRAIT:X:3/4/PLUS0", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X:7"},
    {.Script = "SETTRAIT:X:SRCTRAIT/GONE", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X:0"},
    {.Script = "SETTRAIT:X:$MYNAME", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X:$MYNAME"},
    {.Script = "SETTRAIT:X", .Result = 2, .Ogre = "HP:9 COLOR:RED FLYING X"},
    {.Script = "SETMYTRAIT:HP:5.50", .Result = 2, .Goblin = "HP:5.5 MANA:2", .HpReport = 2},
    {.Script = "SETMYTRAIT:X:3/4", .Result = 2, .Goblin = "HP:4 MANA:2 X:7"},
    {.Script = "SETMYTRAIT:X:-05", .Result = 2, .Goblin = "HP:4 MANA:2 X:-05"},
    {.Script = "SETMYTRAIT:X:SRCTRAIT/GONE", .Result = 2, .Goblin = "HP:4 MANA:2 X:SRCTRAIT/GONE"},
    {.Script = "SETMYTRAIT:X:BLUE", .Result = 2, .Goblin = "HP:4 MANA:2 X:BLUE"},
    {.Script = "SETOWNERTRAIT:GOLD:SRCTRAIT/HP", .Result = 2, .Enemy = "GOLD:4 PLAYER"},
    {.Script = "SETMYOWNERTRAIT:GOLD:TARGETTRAIT/HP", .Result = 2, .Player = "GOLD:9 PLAYER"},
    {.Script = "SETMYOWNERTRAIT:GOLD:0", .Result = 2, .Player = "GOLD:0 PLAYER"},
    // Removal: found whatever the case, taken away by exact case only.
    {.Script = "REMOVETRAIT:HP", .Result = 2, .Ogre = "COLOR:RED FLYING"},
    {.Script = "REMOVETRAIT:hp", .Result = 2},
    {.Script = "REMOVETRAIT:POISON", .Result = 0},
    {.Script = "REMOVEMYTRAIT:MANA", .Result = 2, .Goblin = "HP:4"},
    {.Script = "REMOVEMYTRAIT:FLYING", .Result = 0},
    // A declaration does nothing and its value is no command.
    {.Script = "TRAIT:MODTRAIT:HP:SETTRAIT:COLOR:BLUE",
     .Result = 2,
     .Ogre = "HP:9 COLOR:BLUE FLYING"},
    // Nothing is insufficient outside a cost.
    {.Script = "MODMYTRAIT:MANA:-3:MODTRAIT:HP:1",
     .Result = 2,
     .Goblin = "HP:4 MANA:-1",
     .Ogre = "HP:10 COLOR:RED FLYING",
     .HpReport = 1},
};

TEST_F(TraitCommandsTest, OrdinaryRuns) { Try(kOrdinaryRuns, {}); }

TEST_F(TraitCommandsTest, CostsAreRefused) {
  const std::vector<RunCase> cases = {
      {.Script = "MODMYTRAIT:MANA:-2", .Result = 2, .Goblin = "HP:4 MANA:0"},
      // The soft form: the change is made, the walk ends.
      {.Script = "MODMYTRAIT:MANA:-3:SETTRAIT:X:1",
       .Result = 1,
       .Goblin = "HP:4 MANA:-1",
       .FailReason = "Insufficient MANA."},
      {.Script = "AIMODMYTRAIT:MANA:-3:SETTRAIT:X:1",
       .Result = 1,
       .Goblin = "HP:4 MANA:-1",
       .Ogre = "HP:9 COLOR:RED FLYING X:1",
       .FailReason = "Insufficient MANA."},
      // MODTRAIT looks at the source's trait as well, not at the one that it changed.
      {.Script = "MODTRAIT:HP:-10:SETTRAIT:X:1",
       .Result = 2,
       .Ogre = "HP:-1 COLOR:RED FLYING X:1",
       .HpReport = 1},
      {.Script = "MODMYTRAIT:MANA:0:SETMYTRAIT:DEBT:-1:MODTRAIT:DEBT:5:SETTRAIT:X:1",
       .Result = 1,
       .Goblin = "HP:4 MANA:2 DEBT:-1",
       .Ogre = "HP:9 COLOR:RED FLYING DEBT:5",
       .FailReason = "Insufficient DEBT."},
      // A trait that is missing or holds a word is not below 0.
      {.Script = "MODTRAIT:COLOR:-1:SETMYTRAIT:X:BLUE",
       .Result = 2,
       .Goblin = "HP:4 MANA:2 X:BLUE",
       .Ogre = "HP:9 COLOR:-1 FLYING"},
      // The hard form: the run is left at once and nothing behind it happens.
      {.Script = "SUBTRAIT:HP:9", .Result = 2, .Ogre = "HP:0 COLOR:RED FLYING", .HpReport = 1},
      {.Script = "SETTRAIT:X:1:SUBTRAIT:HP:10:SETTRAIT:X:2",
       .Result = -1,
       .Ogre = "HP:9 COLOR:RED FLYING X:1",
       .FailReason = "Insufficient HP."},
      {.Script = "AISUBTRAIT:HP:10", .Result = -1, .FailReason = "Insufficient HP."},
      {.Script = "SUBTRAIT:POISON:1", .Result = -1, .FailReason = "Insufficient POISON."},
      {.Script = "SUBMYTRAIT:MANA:2", .Result = 2, .Goblin = "HP:4 MANA:0"},
      {.Script = "SUBMYTRAIT:MANA:3", .Result = -1, .FailReason = "Insufficient MANA."},
      {.Script = "SUBMYTRAIT:MANA:-3", .Result = 2, .Goblin = "HP:4 MANA:5"},
      // The player card that the value was read against is the one that is looked at.
      {.Script = "MODOWNERTRAIT:GOLD:-8:SETTRAIT:X:1",
       .Result = 2,
       .Ogre = "HP:9 COLOR:RED FLYING X:1",
       .Enemy = "GOLD:-1 PLAYER"},
      {.Script = "SETMYOWNERTRAIT:GOLD:-1:MODOWNERTRAIT:GOLD:1:SETTRAIT:X:1",
       .Result = -1,
       .Player = "GOLD:-1 PLAYER",
       .Enemy = "GOLD:8 PLAYER",
       .FailReason = "Insufficient GOLD."},
      {.Script = "SETOWNERTRAIT:GOLD:-1:MODMYOWNERTRAIT:GOLD:1:SETTRAIT:X:1",
       .Result = -1,
       .Player = "GOLD:6 PLAYER",
       .Enemy = "GOLD:-1 PLAYER",
       .FailReason = "Insufficient GOLD."},
  };
  Try(cases, {.CostMode = 1});
}

TEST_F(TraitCommandsTest, ATestSparesPlayerCardsAndTokens) {
  const std::vector<RunCase> cases = {
      {.Script = "MODOWNERTRAIT:GOLD:-2:MODTRAIT:HP:1",
       .Result = 2,
       .Ogre = "HP:10 COLOR:RED FLYING",
       .HpReport = 1},
      {.Script = "MODMYOWNERTRAIT:GOLD:-2", .Result = 2},
      // A player card is no copy: the write is counted, so that a failure behind it is a mixed run.
      {.Script = "SETOWNERTRAIT:GOLD:9:REMOVETRAIT:GONE", .Result = 1},
      {.Script = "SETMYOWNERTRAIT:GOLD:9:REMOVETRAIT:GONE", .Result = 1},
      // One field on: the arguments are walked as words.
      {.Script = "MODMYOWNERTRAIT:REMOVETRAIT:HP", .Result = 2, .Ogre = "COLOR:RED FLYING"},
      {.Script = "MODTOKENS:REMOVETRAIT:HP", .Result = 2, .Ogre = "COLOR:RED FLYING"},
      {.Script = "SUBTOKENS:5:MODMYTRAIT:MANA:1", .Result = 2, .Goblin = "HP:4 MANA:3"},
      {.Script = "MODTOKENS:5:SUBMYTRAIT:MANA:1", .Result = 2, .Goblin = "HP:4 MANA:1"},
  };
  Try(cases, {.TestRun = 1});
  EXPECT_EQ(State().Players[1].Tokens, 3);
  EXPECT_EQ(State().PhaseBanner, "");
}

TEST_F(TraitCommandsTest, DiceAreStoredAsRolledByTheOwnTraitOnly) {
  State().Random.State = 5;
  const int roll = RollDie(900);
  State().Random.State = 5;
  Run(*goblin_, *ogre_, "SETMYTRAIT:X:R1Die900");
  EXPECT_EQ(TraitsOf(*goblin_), Joined("HP:4 MANA:2 X:", roll));
}

TEST_F(TraitCommandsTest, CardsWithoutAPlayerCardChangeNothing) {
  Card& stone = PutInPlay(MakeCard("Stone", 0, {"HP:1"}));
  for (const char* script : {"MODMYOWNERTRAIT:GOLD:1", "SETMYOWNERTRAIT:GOLD:1"}) {
    EXPECT_EQ(Run(stone, *ogre_, script, {.CostMode = 1}), kRunClean) << script;
  }
  for (const char* script : {"MODOWNERTRAIT:GOLD:1", "SETOWNERTRAIT:GOLD:1"}) {
    EXPECT_EQ(Run(*goblin_, stone, script, {.CostMode = 1}), kRunClean) << script;
  }
  EXPECT_EQ(TraitsOf(stone), "HP:1");
  EXPECT_EQ(TraitsOf(*player_) + TraitsOf(*enemy_), "GOLD:5 PLAYERGOLD:7 PLAYER");
  // A neutral card's effect on an owner takes the target itself for the missing player card.
  EXPECT_EQ(Run(stone, *ogre_, "MODOWNERTRAIT:GOLD:TARGETTRAIT/HP", {.CostMode = 1}), kRunClean);
  EXPECT_EQ(TraitsOf(*enemy_), "GOLD:16 PLAYER");
}

struct AmountCase {
  const char* Script;
  double Before;
  double After;
  double LastValue;
};

const std::vector<AmountCase> kAmounts = {
    {"MODVAL:-2", -5, -3, -2},      {"MODVAL:2", -5, -7, 2},
    {"MODVAL:-9", -5, 0, -9},       {"MODVAL:-9", 5, 0, -9},
    {"MODVAL:-5", -5, 0, -5},       {"MODVAL:2", 5, 7, 2},
    {"MODVAL:-2", 5, 3, -2},        {"MODVAL:4", 0, 0, 4},
    {"SETVAL:4", -5, 4, 4},         {"SETVAL:SRCTRAIT/HP/NEG", 1, 4, 4},
    {"SETVAL:LASTVAL", -5, -5, -5}, {"SETVAL", -5, 0, 0},
};

TEST_F(TraitCommandsTest, IncomingValue) {
  for (const AmountCase& row : kAmounts) {
    SCOPED_TRACE(Joined(row.Script, " of ", row.Before));
    double amount = row.Before;
    EXPECT_EQ(Run(*goblin_, *ogre_, row.Script, {.Amount = &amount}), kRunClean);
    EXPECT_EQ(amount, row.After);
    EXPECT_EQ(State().LastValue, row.LastValue);
  }
}

TEST_F(TraitCommandsTest, ReactionsSeeRelativeChangesOnly) {
  const struct {
    const char* Reaction;
    const char* Script;
    const char* Ogre;
  } cases[] = {
      {"MODVAL:-2", "MODTRAIT:HP:-5", "HP:6 SHIELD:4"},
      {"MODVAL:-9", "SUBTRAIT:HP:5", "HP:9 SHIELD:4"},
      {"SETVAL:1", "ADDTRAIT:HP:-5", "HP:10 SHIELD:4"},
      {"MODVAL:-2", "SETTRAIT:HP:5", "HP:5 SHIELD:4"},
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:-3", "HP:9 SHIELD:1"},
      {"REDIRECTRAIT:SHIELD", "MODTRAIT:HP:-6", "HP:7 SHIELD:0"},
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:3", "HP:12 SHIELD:4"},
      // The next change is not redirected any more.
      {"REDIRECTTRAIT:SHIELD", "MODTRAIT:HP:-3:MODTRAIT:ARMOR:-1", "HP:9 SHIELD:1 ARMOR:-1"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(Joined(row.Reaction, " on ", row.Script));
    Deal();
    Card& wall = PutInPlay(MakeCard("Wall", 2, {"HP:9", "SHIELD:4"}));
    AddEffect(wall, row.Reaction, 7, "BEFORETRAITCHANGE:HP", 0, "SELF");
    Run(*goblin_, wall, row.Script);
    EXPECT_EQ(TraitsOf(wall), row.Ogre);
  }
}

TEST_F(TraitCommandsTest, ChangedTraitsWaitForTheirTrigger) {
  Card& wall = PutInPlay(MakeCard("Wall", 2, {"HP:9", "SEEN:0"}));
  AddEffect(wall, "SETMYTRAIT:SEEN:1", 7, "TRAITCHANGE:HP", 0, "SELF");
  wall.ChangedTraits = Text();
  Run(*goblin_, wall, "SETTRAIT:HP:9");
  EXPECT_EQ(TraitsOf(wall), "HP:9 SEEN:0");
  Run(*goblin_, wall, "SETTRAIT:HP:8");
  EXPECT_EQ(TraitsOf(wall), "HP:8 SEEN:1");
}

struct TokenCase {
  const char* Script;
  std::int32_t Tokens;
  const char* Said;
  const char* Ghost;  ///< the target's traits
  double LastValue;
};

const std::vector<TokenCase> kTokens = {
    {"MODTOKENS:5:SETTRAIT:X:1", 8, "You now have 8 tokens.", "X:1", 5},
    {"MODTOKENS:-3", 0, "You now have 0 tokens.", "", -3},
    {"SUBTOKENS:2.4", 1, "You now have 1 tokens.", "", 2.4},
    {"SUBTOKENS:5:SETTRAIT:X:1", 3, "Not enough tokens!<br>", "", 0},
    {"MODTOKENS:-4:SETTRAIT:X:1", 3, "Not enough tokens!<br>", "", 0},
    {"AISUBTOKENS:5:SETTRAIT:X:1", -2, "Not enough tokens!<br>You now have -2 tokens.", "X:1", 5},
    {"MODTOKENS:SRCTRAIT/HP", 7, "You now have 7 tokens.", "", 4},
    {"MODTOKENS:1e300", std::numeric_limits<std::int32_t>::max(), "You now have 2147483647 tokens.",
     "", 1e300},
    {"AISUBTOKENS:1e300", std::numeric_limits<std::int32_t>::min(),
     "Not enough tokens!<br>You now have -2147483648 tokens.", "", 1e300},
};

TEST_F(TraitCommandsTest, TokensAreTheHumans) {
  for (const TokenCase& row : kTokens) {
    SCOPED_TRACE(row.Script);
    Deal();
    Card& ghost = PutInPlay(MakeCard("Ghost", 2));
    Card& demon = PutInPlay(MakeCard("Demon", 2, {"HP:4"}));
    EXPECT_EQ(Run(demon, ghost, row.Script), kRunClean);
    EXPECT_EQ(State().Players[1].Tokens, row.Tokens);
    EXPECT_EQ(TraitsOf(ghost), row.Ghost);
    EXPECT_EQ(State().LastValue, row.LastValue);
    EXPECT_NE(State().PhaseBanner.find(Joined(">", row.Said, "</font>")), std::string::npos)
        << State().PhaseBanner;
  }
}

// A word of the family that no case above runs would change without anyone noticing.
TEST_F(TraitCommandsTest, EveryWordHasACase) {
  std::vector<std::string> scripts = {"REDIRECTTRAIT:", "REDIRECTRAIT:"};
  for (const RunCase& row : kOrdinaryRuns) scripts.emplace_back(row.Script);
  for (const AmountCase& row : kAmounts) scripts.emplace_back(row.Script);
  for (const TokenCase& row : kTokens) scripts.emplace_back(row.Script);
  for (const Command& row : TraitCommands()) {
    EXPECT_TRUE(std::ranges::any_of(scripts, [&](const std::string& script) {
      return FieldAt(script, 1, ':') == row.Word;
    })) << row.Word;
    EXPECT_EQ(FindCommand(row.Word), &row);
    EXPECT_NE(row.Usage.find('|'), std::string_view::npos) << row.Word;
  }
}

}  // namespace
}  // namespace brindlemoor
