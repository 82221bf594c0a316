// Dice: their ranges, and that a seed fixes what follows.
#include "core/random.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using RandomTest = SessionTest;

std::vector<int> Rolls(int count, double sides = 5000) {
  std::vector<int> rolls;
  for (int n = 0; n < count; ++n) rolls.push_back(RollDie(sides));
  return rolls;
}

TEST_F(RandomTest, ADieShowsEachOfItsSidesAndNoOther) {
  std::vector<int> seen(7);
  for (int n = 0; n < 6000; ++n) {
    const int roll = RollDie(6.9);
    ASSERT_GE(roll, 1);
    ASSERT_LE(roll, 6);
    ++seen[static_cast<std::size_t>(roll)];
  }
  for (int side = 1; side <= 6; ++side) {
    EXPECT_NEAR(seen[static_cast<std::size_t>(side)], 1000, 200) << side;
  }
  for (const double sides : {1.0, 0.0, -5.0, 0.0 / 0.0}) EXPECT_EQ(RollDie(sides), 1) << sides;
  EXPECT_GE(RollDie(1e300), 1);
}

TEST_F(RandomTest, DiceAddUp) {
  EXPECT_EQ(RollDice(0, 6), 0);
  EXPECT_EQ(RollDice(-2, 6), 0);
  EXPECT_EQ(RollDice(4.9, 1), 4);
  for (int n = 0; n < 100; ++n) {
    const double total = RollDice(3, 6);
    ASSERT_GE(total, 3);
    ASSERT_LE(total, 18);
  }
  EXPECT_EQ(State().PhaseBanner, "");
  EXPECT_EQ(RollDice(1e12, 1), 1000000);
  EXPECT_NE(State().PhaseBanner, "") << "dice that were left out are told";
}

TEST_F(RandomTest, ATextAndASaltFixTheSequence) {
  const auto after = [](std::string_view text, double salt) {
    SeedFromText(text, salt);
    return Rolls(2);
  };
  EXPECT_EQ(after("", 0), after("RANDOM", 0));
  EXPECT_EQ(after("Goblin", 3), after("Goblin", 3));
  EXPECT_NE(after("Goblin", 3), after("Goblin", 4));
  EXPECT_NE(after("Goblin", 0), after("Troll", 0));
  EXPECT_EQ(after("abcde", 0), after("a?c?e", 0)) << "first, middle and last character count";
  EXPECT_EQ(after("12 Orcs", 1), after("13", 0)) << "a number counts as such, plus the salt";
  EXPECT_EQ(after("x", 0), after("x", 0));
  EXPECT_EQ(after("\xC3\xA9", 0), after("\xC3\xA9", 0));
}

TEST_F(RandomTest, TheClockSeedsAnew) {
  SeedFromClock();
  const auto first = Rolls(3);
  SeedFromClock();
  EXPECT_NE(Rolls(3), first);
}

}  // namespace
}  // namespace brindlemoor
