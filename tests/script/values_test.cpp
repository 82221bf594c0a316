// Value expressions: what each chain comes to, and whether it counts as computed.
#include "script/values.h"

#include <string>
#include <vector>

#include "core/limits.h"
#include "core/random.h"
#include "core/strings.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class ValuesTest : public SessionTest {
 protected:
  // Two players with a creature each, a second flying Ogre, a neutral card, and a free slot whose
  // record still carries what the dead card had.
  ValuesTest()
      : player_(PutPlayerCard(1, {"HP:20"})),
        enemy_(PutPlayerCard(2, {"HP:30"})),
        goblin_(PutInPlay(MakeCard("Goblin", 1,
                                   {"HP:4", "LEVEL:2", "ZERO:0", "DEBT:-2", "SIDES:6", "COLOR:RED",
                                    "FLYING", "HALF:2.5"}))),
        ogre_(PutInPlay(MakeCard("Ogre", 2, {"HP:9", "MANA:3"}))),
        twin_(PutInPlay(MakeCard("Ogre", 2, {"HP:1", "FLYING", "COLOR:BLUE"}))),
        stone_(PutInPlay(MakeCard("Stone", 0, {"HP:0"}))) {
    Card& dead = PutInPlay(MakeCard("Ogre", 2, {"HP:50"}));
    FreeCard(dead);
    player_.GlobalID = 11;
    enemy_.GlobalID = 22;
    goblin_.GlobalID = 101;
    ogre_.GlobalID = 202;
    State().LastValue = -3;
    State().Players[1].Tokens = 500;
    State().LastEntered = ogre_.Slot;
  }

  Card& player_;
  Card& enemy_;
  Card& goblin_;
  Card& ogre_;
  Card& twin_;
  Card& stone_;
};

struct ChainCase {
  const char* Expression;
  const char* Result;
  bool Computed;
};

// With the Goblin as source and the Ogre as target.
const std::vector<ChainCase> kChains = {
    // Plain numbers and words.
    {"", "NONE", false},
    {"/5", "NONE", false},
    {"5", "5", false},
    {"-2", "-2", false},
    {"0", "0", false},
    {"-0", "0", false},
    {"+7", "7", false},
    {" 7", "7", false},
    {"007", "7", false},
    {"2.50", "2.5", false},
    {"-", "0", false},
    {"5X", "5", false},
    {"X5", "0", false},
    {"12345678901234567890123", "1.2345678901234568e+22", false},
    {"3/4/-2", "5", false},
    {"3//4", "3", false},
    {"RED", "0", false},
    {"ROLL5/3", "3", false},
    {"srctrait/HP", "0", false},
    {"KEYWORD/9", "9", false},
    {"5NEG", "5", false},
    // Whole words and names.
    {"$MYNAME", "Goblin", false},
    {"$TARGETNAME", "Ogre", false},
    {"$MYNAME/5", "5", false},
    {"MYNAME", "Goblin", false},
    {"5/TARGETNAME/7", "Ogre", false},
    // Identities finish the evaluation and ignore what came before.
    {"$MYGID", "101", true},
    {"MYGID", "101", true},
    {"$TARGETGID", "202", true},
    {"TARGETGID", "202", true},
    {"7/$MYGID/9", "101", true},
    {"7/MYGID/NEG", "101", true},
    {"7/TARGETGID", "202", true},
    {"7/$TARGETGID", "7", false},
    {"MYOWNERGID", "11", true},
    {"TARGETOWNERGID", "22", true},
    {"LASTCARD", "202", true},
    // Traits: remembered, and the result when the accumulator is 0.
    {"SRCTRAIT/HP", "4", true},
    {"MYTRAIT/HP", "4", true},
    {"TRAIT/HP", "4", true},
    {"TARGETTRAIT/HP", "9", true},
    {"TARGTRAIT/MANA", "3", true},
    {"SRCTRAIT/ZERO", "0", true},
    {"SRCTRAIT/DEBT", "-2", true},
    {"SRCTRAIT/COLOR", "0", true},
    {"SRCTRAIT/FLYING", "1", true},
    {"SRCTRAIT/GONE", "0", true},
    {"SRCTRAIT/HALF", "2.5", true},
    {"SRCTRAIT", "0", true},
    {"5/SRCTRAIT/HP", "5", true},
    {"SRCTRAIT/HP/TARGETTRAIT/HP", "9", true},
    {"5/-5/SRCTRAIT/HP", "4", true},
    {"-1/SRCTRAIT/HP", "-1", true},
    // A trait's name is no keyword and no number where it stands as an argument.
    {"SRCTRAIT/MYGID", "0", true},
    {"SRCTRAIT/3/2", "2", true},
    // Operators on the remembered trait.
    {"SRCTRAIT/HP/TRAITPLUS2", "8", true},
    {"SRCTRAIT/HP/TRAITPLUS1", "4", true},
    {"10/SRCTRAIT/HP/TRAITMINUS2", "2", true},
    {"10/SRCTRAIT/HP/TRAITMINUS0.5", "8", true},
    {"3/SRCTRAIT/HP/TRAITMULT2", "24", true},
    {"10/SRCTRAIT/LEVEL/TRAITPERC50", "20", true},
    {"10/SRCTRAIT/LEVEL/TRAITPERC-25", "5", true},
    {"TRAITPLUS1", "0", true},
    {"5/SRCTRAIT/HP/TRAITPLUSX", "5", true},
    // Operators on the accumulator.
    {"7/DIV2", "3", true},
    {"-7/DIV2", "-4", true},
    {"7.5/DIV0", "7.5", true},
    {"7/DIVIDE", "7", true},
    {"7/DIV-2", "-4", true},
    {"5/MINUS2", "3", true},
    {"5.5/MINUS1", "4", true},
    {"5/MINUSX", "5", true},
    {"5/PLUS3", "8", true},
    {"5/PLUS", "5", true},
    {"5/PLUS-3", "2", true},
    {"-5.5/PLUS1", "-5", true},
    {"5/MULT1.5", "7", true},
    {"-5/MULT1.5", "-8", true},
    {"5/MULTX", "0", true},
    {"5/NEG", "-5", true},
    {"5/NEGATIVE", "5", false},
    {"5.7/INTEGER", "5", true},
    {"-5.2/INTEGER", "-6", true},
    {"5.7/INTEGERS", "5.7", false},
    {"SRCTRAIT/HP/PLUS1/MULT3/MINUS4", "-1", true},
    // Session values.
    {"LASTAMT", "-3", true},
    {"10/LASTVAL", "7", true},
    {"TOKENS/MINUS1", "499", true},
    // Counting: cards in the table are the players' (20, 30), Goblin 4, Ogre 9, Ogre 1, Stone 0.
    {"TRAITCOUNT/HP/ANY", "6", true},
    {"TRAITCOUNT/HP/TARGETENEMY", "2", true},
    {"TRAITCOUNT/HP/TARGETALLY", "3", true},
    {"TRAITCOUNT/HP/SRCALLY", "2", true},
    {"TRAITCOUNT/HP/SRCENEMY", "3", true},
    {"TRAITCOUNT/HP/FLYING/ANY", "2", true},
    {"TRAITCOUNT/HP/FLYING/SRCENEMY", "1", true},
    {"TRAITCOUNT/HP/flying/TARGETALLY/PLUS10", "11", true},
    {"TRAITCOUNT/HP", "6", true},
    {"TRAITCOUNT/HP//SRCALLY/5", "7", true},
    {"TRAITCOUNT/HP/ANY/5", "11", true},
    {"TRAITCOUNT/HP/FLYING/5/SRCTRAIT/HP", "2", true},
    {"TRAITCOUNT/GONE/ANY", "0", true},
    {"TRAITCOUNT/#ANY#/ANY", "6", true},
    // The owner word of an earlier keyword holds until the next one.
    {"TRAITCOUNT/HP/SRCALLY/TRAITCOUNT/HP", "4", true},
    {"TRAITTOTAL/HP//TARGETALLY", "40", true},
    {"TRAITTOTAL/HP/FLYING/ANY", "5", true},
    {"TRAITTOTAL/HP//ANY", "65", true},
    {"TRAITTOTAL/COLOR//ANY", "2", true},
    // No short form: the owner word is taken for a trait that cards must have.
    {"TRAITTOTAL/HP/ANY", "0", true},
    {"NAMECOUNT/Ogre//ANY", "2", true},
    {"NAMECOUNT/Ogre/FLYING/ANY", "1", true},
    {"NAMECOUNT/Ogre//SRCALLY", "0", true},
    {"NAMECOUNT/ogre//ANY", "0", true},
    {"NAMECOUNT///ANY", "0", true},
    // Numbers too big to hold read as 0.
    {"1e308/MULT1e10", "0", true},
    {"1e308/1e308/5", "5", false},
};

TEST_F(ValuesTest, Chains) {
  for (const ChainCase& row : kChains) {
    SCOPED_TRACE(row.Expression);
    bool computed = false;
    EXPECT_EQ(EvalValue(goblin_, ogre_, row.Expression, computed).Str(), row.Result);
    EXPECT_EQ(computed, row.Computed);
  }
}

TEST_F(ValuesTest, ComputedIsNeverCleared) {
  for (const char* expression : {"5", "", "RED", "$MYNAME", "R1Die6"}) {
    bool computed = true;
    EvalValue(goblin_, ogre_, expression, computed);
    EXPECT_TRUE(computed) << expression;
  }
}

TEST_F(ValuesTest, SidesFollowTheCardsOwners) {
  const struct {
    const Card& Source;
    const Card& Target;
    const char* Expression;
    const char* Result;
  } cases[] = {
      {ogre_, goblin_, "TRAITTOTAL/HP//SRCENEMY", "24"},
      {ogre_, goblin_, "TRAITTOTAL/HP//TARGETENEMY", "40"},
      {stone_, ogre_, "TRAITTOTAL/HP//SRCENEMY", "24"},  // a neutral card's enemy is player 1
      {stone_, ogre_, "TRAITCOUNT/HP/SRCALLY", "6"},     // and its own side is every side
  };
  for (const auto& row : cases) {
    EXPECT_EQ(EvalValue(row.Source, row.Target, row.Expression).Str(), row.Result)
        << row.Source.Name.View() << ": " << row.Expression;
  }
}

TEST_F(ValuesTest, IdentitiesThatThereAreNotHaveNoEffect) {
  State().LastEntered = 0;
  for (const char* expression : {"5/MYOWNERGID", "5/TARGETOWNERGID", "5/LASTCARD"}) {
    bool computed = false;
    EXPECT_EQ(EvalValue(stone_, stone_, expression, computed).Str(), "5") << expression;
    EXPECT_FALSE(computed) << expression;
  }
  State().LastEntered = 4000;
  EXPECT_EQ(EvalNumber(goblin_, ogre_, "5/LASTCARD"), 5);
  State().Players[1].PlayerCard = 0;
  EXPECT_EQ(EvalNumber(goblin_, ogre_, "5/MYOWNERGID"), 5);
}

struct DiceCase {
  const char* Expression;
  double Before;  ///< what the chain adds to the roll
  double Count;
  double Sides;
};

TEST_F(ValuesTest, Dice) {
  const DiceCase cases[] = {
      {"R1Die6", 0, 1, 6},
      {"3/R1Die6", 3, 1, 6},
      {"R2Die06", 0, 2, 6},
      {"R2Die20", 0, 2, 20},
      {"R10Die12", 0, 10, 12},
      {"R3Dice8", 0, 3, 1},
      {"R2.9Die6.5", 0, 2, 6},
      {"R2", 0, 2, 1},
      {"R2Die", 0, 2, 1},
      {"R2Die-6", 0, 2, 6},
      {"R2die6", 0, 2, 1},
      // Sides are read from as many characters as lie before "Die".
      {"R2Die100", 0, 2, 100},
      {"R2Die1000", 0, 2, 1},
      {"R2Die4567", 0, 2, 567},
      // A remembered trait fills in for TRAIT, whatever its case.
      {"SRCTRAIT/SIDES/R2DieTRAIT", 0, 2, 6},
      {"SRCTRAIT/ZERO/R2DieTRAIT", 0, 2, 1},
      {"SRCTRAIT/LEVEL/RTraitDie6", 0, 2, 6},
      {"SRCTRAIT/LEVEL/R1traitDie6", 0, 12, 6},
      {"R1TRAITDie6", 0, 1, 6},  // the first field sees "NONE"
      {"TARGETTRAIT/HP/1/R1TRAITDie6", 1, 19, 6},
  };
  for (const DiceCase& row : cases) {
    SCOPED_TRACE(row.Expression);
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
      State().Random.State = seed;
      const double expected = row.Before + RollDice(row.Count, row.Sides);
      State().Random.State = seed;
      EXPECT_EQ(EvalNumber(goblin_, ogre_, row.Expression), expected);
    }
  }
}

TEST_F(ValuesTest, DieFieldsThatRollNothing) {
  const std::uint64_t before = State().Random.State;
  for (const char* expression : {"RTRAITDie6", "SRCTRAIT/ZERO/RTRAITDie6", "R0Die6", "R", "RDie6",
                                 "SRCTRAIT/DEBT/NEG/RTRAITDie6/2"}) {
    EvalValue(goblin_, ogre_, expression);
    EXPECT_EQ(State().Random.State, before) << expression;
  }
  EXPECT_EQ(EvalValue(goblin_, ogre_, "RTRAITDie6").Str(), "0");
}

TEST_F(ValuesTest, EveryEvaluationRollsAnew) {
  State().Random.State = 7;
  std::vector<double> rolls;
  for (int i = 0; i < 20; ++i) rolls.push_back(EvalNumber(goblin_, ogre_, "R1Die900"));
  EXPECT_NE(rolls, std::vector<double>(20, rolls.front()));
}

TEST_F(ValuesTest, StrangersExpressionsEnd) {
  std::string sum;
  for (int i = 0; i < 100000; ++i) sum += "1/";
  EXPECT_EQ(EvalNumber(goblin_, ogre_, sum), limits::kValueFields);

  // A bonus that reads the trait it is added to.
  Card& snake = PutInPlay(MakeCard("Snake", 1, {"HP:1", "BONUSHP:SRCTRAIT/HP/TRAITPLUS1"}));
  EXPECT_GE(EvalNumber(snake, snake, "SRCTRAIT/HP"), 1);
  for (int i = 0; i < 10; ++i) {
    PutInPlay(MakeCard("Hydra", 1, {"HP:1", "BONUSHP:TRAITTOTAL/HP//ANY"}));
  }
  EXPECT_GE(EvalNumber(snake, snake, "TRAITTOTAL/HP//ANY"), 10);
}

// An author's reference and the evaluator can't drift apart: a word of the reference that the
// chains above never use has no tested meaning.
TEST_F(ValuesTest, EveryWordOfTheReferenceIsTried) {
  for (const ValueKeyword& keyword : ValueKeywords()) {
    EXPECT_FALSE(keyword.Usage.empty()) << keyword.Word;
    std::string_view word = keyword.Word;
    if (word == "R#Die#") continue;
    const bool prefix = word.ends_with('#');
    if (prefix) word.remove_suffix(1);
    bool tried = false;
    for (const ChainCase& row : kChains) {
      FieldWalker fields(row.Expression, '/');
      while (!fields.AtEnd()) {
        const std::string_view field = fields.Next();
        tried = tried ||
                (prefix ? field.starts_with(word) && field.size() > word.size() : field == word);
      }
    }
    EXPECT_TRUE(tried) << keyword.Word;
  }
}

}  // namespace
}  // namespace brindlemoor
