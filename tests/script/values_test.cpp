// Value expressions: what each chain comes to, and whether it counts as computed.
#include "script/values.h"

#include <sstream>
#include <string>

#include "core/limits.h"
#include "core/random.h"
#include "tests/support/action_cards.h"
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

TEST_F(ValuesTest, Chains) {
  const auto check = [this](std::string_view expression, std::string_view result, bool expected) {
    bool computed = false;
    EXPECT_EQ(EvalValue(goblin_, ogre_, expression, computed).Str(), result) << expression;
    EXPECT_EQ(computed, expected) << expression;
  };
  // EXPRESSION=RESULT, and blanks between.
  const auto run = [&check](bool isComputed, const char* chains) {
    std::istringstream words(chains);
    for (std::string word; words >> word;) {
      const std::size_t mark = word.find('=');
      check(word.substr(0, mark), word.substr(mark + 1), isComputed);
    }
  };
  // Numbers and words, which are not computed.
  run(false, R"(
      =NONE /5=NONE +7=7 2.50=2.5 5X=5 12345678901234567890123=1.2345678901234568e+22 3/4/-2=5 RED=0
      $TARGETNAME=Ogre MYNAME=Goblin 5/TARGETNAME/7=Ogre 7/$TARGETGID=7 5.7/INTEGERS=5.7
      1e308/1e308/5=5)");
  // Identities finish the evaluation and ignore what came before.
  run(true, R"(
      $MYGID=101 $TARGETGID=202 7/MYGID/NEG=101 7/TARGETGID=202 MYOWNERGID=11 TARGETOWNERGID=22
      LASTCARD=202)");
  // Traits: remembered, and the result when the accumulator is 0.
  run(true, R"(
      SRCTRAIT/HP=4 MYTRAIT/HP=4 TRAIT/HP=4 TARGETTRAIT/HP=9 TARGTRAIT/MANA=3 SRCTRAIT/ZERO=0
      SRCTRAIT/DEBT=-2 SRCTRAIT/COLOR=0 SRCTRAIT/FLYING=1 SRCTRAIT/GONE=0 SRCTRAIT/HALF=2.5
      SRCTRAIT=0 5/SRCTRAIT/HP=5 SRCTRAIT/HP/TARGETTRAIT/HP=9 -1/SRCTRAIT/HP=-1 SRCTRAIT/MYGID=0)");
  // Operators on the remembered trait.
  run(true, R"(
      SRCTRAIT/HP/TRAITPLUS2=8 10/SRCTRAIT/HP/TRAITMINUS2=2 3/SRCTRAIT/HP/TRAITMULT2=24
      10/SRCTRAIT/LEVEL/TRAITPERC50=20 5/SRCTRAIT/HP/TRAITPLUSX=5)");
  // Operators on the accumulator, session values, and numbers too big to hold.
  run(true, R"(
      7/DIV2=3 -7/DIV2=-4 7.5/DIV0=7.5 7/DIVIDE=7 5/MINUS2=3 5.5/MINUS1=4 5/MINUSX=5 5/PLUS3=8
      -5.5/PLUS1=-5 5/MULT1.5=7 -5/MULT1.5=-8 5/MULTX=0 5/NEG=-5 5.7/INTEGER=5
      SRCTRAIT/HP/PLUS1/MULT3/MINUS4=-1 LASTAMT=-3 10/LASTVAL=7 TOKENS/MINUS1=499
      1e308/MULT1e10=0)");
  // Counting: the cards have HP 20 and 30 (the players), 4, 9, 1 and 0. An owner word holds until
  // the next one; TRAITTOTAL has no short form: it takes the owner word for a trait.
  run(true, R"(
      TRAITCOUNT/HP/ANY=6 TRAITCOUNT/HP/TARGETENEMY=2 TRAITCOUNT/HP/TARGETALLY=3
      TRAITCOUNT/HP/SRCENEMY=3 TRAITCOUNT/HP/FLYING/ANY=2 TRAITCOUNT/HP/FLYING/SRCENEMY=1
      TRAITCOUNT/HP/flying/TARGETALLY/PLUS10=11 TRAITCOUNT/HP=6 TRAITCOUNT/HP/ANY/5=11
      TRAITCOUNT/HP/FLYING/5/SRCTRAIT/HP=2 TRAITCOUNT/GONE/ANY=0 TRAITCOUNT/#ANY#/ANY=6
      TRAITCOUNT/HP/SRCALLY/TRAITCOUNT/HP=4 TRAITTOTAL/HP//TARGETALLY=40
      TRAITTOTAL/HP/FLYING/ANY=5 TRAITTOTAL/COLOR//ANY=2 TRAITTOTAL/HP/ANY=0
      NAMECOUNT/Ogre//ANY=2 NAMECOUNT/Ogre/FLYING/ANY=1 NAMECOUNT/ogre//ANY=0 NAMECOUNT///ANY=0)");
}

TEST_F(ValuesTest, SidesFollowTheCardsOwners) {
  const Rows<Card*, Card*, const char*, double> cases = {
      {&ogre_, &goblin_, "TRAITTOTAL/HP//SRCENEMY", 24},
      {&ogre_, &goblin_, "TRAITTOTAL/HP//TARGETENEMY", 40},
      {&stone_, &ogre_, "TRAITTOTAL/HP//SRCENEMY", 24},  // a neutral card's enemy is player 1
      {&stone_, &ogre_, "TRAITCOUNT/HP/SRCALLY", 6}};    // and its own side is every side
  for (const auto& [source, target, expression, result] : cases) {
    EXPECT_EQ(EvalNumber(*source, *target, expression), result) << expression;
  }
}

TEST_F(ValuesTest, Dice) {
  // An expression, what the chain adds to the roll, the number of dice, and their sides. Sides are
  // read from as many characters as lie before "Die". A remembered trait fills in for TRAIT,
  // whatever its case; the first field sees "NONE".
  std::istringstream rows(R"(
      R1Die6 0 1 6        3/R1Die6 3 1 6   R2Die06 0 2 6    R10Die12 0 10 12   R3Dice8 0 3 1
      R2.9Die6.5 0 2 6    R2 0 2 1         R2Die 0 2 1      R2Die-6 0 2 6      R2die6 0 2 1
      R2Die100 0 2 100    R2Die1000 0 2 1  R2Die4567 0 2 567
      SRCTRAIT/SIDES/R2DieTRAIT 0 2 6      SRCTRAIT/ZERO/R2DieTRAIT 0 2 1
      SRCTRAIT/LEVEL/RTraitDie6 0 2 6      SRCTRAIT/LEVEL/R1traitDie6 0 12 6
      R1TRAITDie6 0 1 6                    TARGETTRAIT/HP/1/R1TRAITDie6 1 19 6
      RTRAITDie6 0 0 6    R0Die6 0 0 6     RDie6 0 0 6      SRCTRAIT/ZERO/RTRAITDie6 0 0 6)");
  std::string expression;
  double before = 0;
  double count = 0;
  double sides = 0;
  while (rows >> expression >> before >> count >> sides) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
      State().Random.State = seed;
      const double expected = before + RollDice(count, sides);
      const std::uint64_t after = State().Random.State;
      State().Random.State = seed;
      EXPECT_EQ(EvalNumber(goblin_, ogre_, expression), expected) << expression;
      EXPECT_EQ(State().Random.State, after) << expression;
    }
  }
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

}  // namespace
}  // namespace brindlemoor
