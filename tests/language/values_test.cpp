// Value expressions that roll dice, and those of strangers; tests/scenarios/values.txt has the
// rest.
#include "language/values.h"

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
  Card& goblin_ = PutInPlay(MakeCard("Goblin", 1, {"LEVEL:2", "ZERO:0", "SIDES:6"}));
  Card& ogre_ = PutInPlay(MakeCard("Ogre", 2, {"HP:9"}));
};

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
