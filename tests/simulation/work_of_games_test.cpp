// The budget of work against what the games that come with the program need.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/limits.h"
#include "core/state.h"
#include "simulation/stage.h"

namespace brindlemoor {
namespace {

const std::string kGames = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";

std::vector<std::string> NamesOfGames() {
  Stage stage;
  EXPECT_EQ(stage.Open(kGames, "", 1), "");
  std::vector<std::string> names;
  for (const GameRec& game : State().Games) {
    if (!game.Name.empty()) names.push_back(game.Name.Str());
  }
  return names;
}

/// The most steps that a turn took: every opponent against every deck, some matches each.
std::int64_t StepsOfGame(const std::string& name) {
  std::int64_t most = 0;
  Stage stage;
  EXPECT_EQ(stage.Open(kGames, name, 1), "");
  for (const Contender& deck : stage.Decks()) {
    for (const Contender& opponent : stage.Opponents()) {
      EXPECT_EQ(stage.Seat(deck, opponent), "");
      for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        stage.Play(seed, 100);
        most = std::max(most, State().Work.Most);
      }
    }
  }
  return most;
}

TEST(WorkOfGamesTest, ATurnMayDoAThousandTimesWhatTheShippedGamesNeed) {
  for (const std::string& name : NamesOfGames()) {
    const std::int64_t steps = StepsOfGame(name);
    RecordProperty(name, std::to_string(steps));
    EXPECT_GT(steps, 100) << name;
    EXPECT_LE(steps * 1000, limits::kStepsOfTurn) << "a turn of " << name << " takes " << steps
                                                  << ": raise the bound to a thousand times that";
  }
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
