// Matches of a game that is won by gathering: nobody is hurt in it, and its end is on the shelves.
#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "core/state.h"
#include "language/traits.h"
#include "simulation/stage.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

const Card& CookOf(int side) { return State().CardTable[State().Players[side].PlayerCard]; }

TEST(GatheringGameTest, IsWonByTheFullShelfWhileBothCooksStand) {
  constexpr int kSeeds = 5;
  constexpr int kMaximumTurns = 60;
  Stage stage;
  ASSERT_EQ(stage.Open(std::string(BRINDLEMOOR_SOURCE_DIR) + "/tests/games/plumbarrow", "", 1), "");
  int wins[3] = {};
  for (const Contender& deck : stage.Decks()) {
    for (const Contender& other : stage.Decks()) {
      ASSERT_EQ(stage.Seat(deck, other), "");
      for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE(Joined(deck.Name, " against ", other.Name, ", seed ", seed));
        const int winner = stage.Play(seed, kMaximumTurns).Winner;
        ASSERT_NE(winner, 0);
        ++wins[winner];
        const double goal = TraitNumber(State().RulesCard, "GOAL");
        ASSERT_GT(goal, 0);
        EXPECT_GE(TraitNumber(CookOf(winner), "JARS"), goal);
        EXPECT_GT(TraitNumber(CookOf(winner), "JARS"), TraitNumber(CookOf(3 - winner), "JARS"));
        for (int side = 1; side <= 2; ++side) EXPECT_EQ(TraitNumber(CookOf(side), "COOK"), 1);
      }
    }
  }
  EXPECT_EQ(stage.Decks().size(), 3U);
  EXPECT_GT(wins[1], 0);
  EXPECT_GT(wins[2], 0);
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
