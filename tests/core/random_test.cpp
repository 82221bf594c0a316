// Dice: their ranges, and that a seed fixes what follows.
#include "core/random.h"

#include <map>

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using RandomTest = SessionTest;

TEST_F(RandomTest, ADieShowsEachOfItsSidesAndNoOther) {
  std::map<int, int> seen;
  for (int n = 0; n < 6000; ++n) ++seen[RollDie(6.9)];
  EXPECT_EQ(seen.size(), 6U);
  for (int side = 1; side <= 6; ++side) EXPECT_NEAR(seen[side], 1000, 200) << side;
  for (const double sides : {1.0, 0.0, -5.0, 0.0 / 0.0}) EXPECT_EQ(RollDie(sides), 1) << sides;
  EXPECT_GE(RollDie(1e300), 1);
  EXPECT_EQ(RollDice(-2, 6), 0);
  EXPECT_EQ(RollDice(4.9, 1), 4);
  EXPECT_EQ(State().PhaseBanner, "");
  EXPECT_EQ(RollDice(1e12, 1), 1000000);
  EXPECT_NE(State().PhaseBanner, "") << "dice that were left out are told";
}

TEST_F(RandomTest, ATextAndASaltFixTheSequence) {
  const auto after = [](std::string_view text, double salt) {
    SeedFromText(text, salt);
    const int first = RollDie(5000);
    return std::pair(first, RollDie(5000));
  };
  EXPECT_EQ(after("", 0), after("RANDOM", 0));
  EXPECT_EQ(after("Goblin", 3), after("Goblin", 3));
  EXPECT_NE(after("Goblin", 3), after("Goblin", 4));
  EXPECT_NE(after("Goblin", 0), after("Troll", 0));
  EXPECT_EQ(after("abcde", 0), after("a?c?e", 0)) << "first, middle and last character count";
  EXPECT_EQ(after("12 Orcs", 1), after("13", 0)) << "a number counts as such, plus the salt";
}

}  // namespace
}  // namespace brindlemoor
