// Many whole matches of the shipped game: they end, nothing grows without bound, and what is only
// tried out leaves no trace.
#include <gtest/gtest.h>
#include <sstream>

#include "game/card_play.h"
#include "game/opponent.h"
#include "scenario/state_digest.h"
#include "script/command_table.h"
#include "script/triggers.h"
#include "simulation/automatic_match.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class ManyMatchesTest : public ::testing::Test {
 protected:
  ~ManyMatchesTest() override { State() = Session{}; }
  /// Plays a match of the shipped game; the session stays as the match ended.
  static AutomaticMatchResult Play(int opponent, std::uint64_t seed, int maximumTurns) {
    std::ostringstream out;
    const AutomaticMatchResult result = AutomaticMatch(
        {std::string(BRINDLEMOOR_SOURCE_DIR) + "/games", "", seed, maximumTurns, opponent}, out);
    EXPECT_EQ(result.Error, "");
    return result;
  }
};

TEST_F(ManyMatchesTest, EndAndStaySmall) {
  constexpr int kOpponents = 5;
  constexpr int kSeeds = 10;
  constexpr int kMaximumTurns = 100;
  int wins[3] = {};
  for (int opponent = 1; opponent <= kOpponents; ++opponent) {
    for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
      SCOPED_TRACE(Joined("opponent ", opponent, " seed ", seed));
      const AutomaticMatchResult result = Play(opponent, seed, kMaximumTurns);
      ++wins[static_cast<int>(result.Winner)];
      const Session& session = State();
      const bool decided = result.Winner != MatchWinner::kNobody;
      EXPECT_EQ(session.GameOver, decided ? 1 : 0);
      EXPECT_TRUE(decided || result.Turns == kMaximumTurns);
      EXPECT_LE(session.CardTable.UpperBound(), 40);
      for (const auto& hits : session.HitTable) EXPECT_LE(hits.size(), 60U);
      EXPECT_LE(session.WaitingSlots.UpperBound() + session.PendingCards.UpperBound(), 10);
      EXPECT_LE(session.TraitBitNames.UpperBound(), 60);
      for (const Card& card : session.CardTable) {
        EXPECT_LE(card.Traits.UpperBound() + card.Effects.UpperBound(), 50) << card.Name.View();
      }
      EXPECT_EQ(session.RunDepth, 0);
      EXPECT_TRUE(session.Problems.empty());
    }
  }
  // Both sides play: neither only ever wins.
  constexpr int kFewWins = kOpponents * kSeeds / 5;
  EXPECT_GE(wins[static_cast<int>(MatchWinner::kPlayer)], kFewWins);
  EXPECT_GE(wins[static_cast<int>(MatchWinner::kEnemy)], kFewWins);
}

// Every word, as a price, as an action, and as a reaction of the cards on the table.
TEST_F(ManyMatchesTest, NoWordLeavesATraceInATest) {
  const auto scriptWith = [](const Command& command, std::string_view firstArgument) {
    if (command.Word == "CREATECARD")
      return std::string("CREATECARD:1:Wick Mouse:WickwaterCards.txt");
    if (command.Word == "ADDEFFECT") return std::string("ADDEFFECT:PHASE1:SELF:MODTRAIT:HP:1");
    std::string script(command.Word);
    for (int argument = 1; argument <= command.Arguments; ++argument) {
      script += Joined(":", argument == 1 ? firstArgument : std::string_view("1"));
    }
    return script + ":MODTRAIT:HP:-1";
  };
  const auto check = [](std::string_view script) {
    const std::string before = StateDigest();
    for (const char* target : {"OWNER", "ENEMYPLAYER", "RANDOM", "ALL", "SELF"}) {
      Card card = MakeCard("Hand Card", 2, {"HP:3"});
      GiveAction(card, "COST", target, script);
      PayCost(card, Payment::kIsTested);
      card = MakeCard("Hand Card", 2, {"HP:3"});
      GiveAction(card, "PHASE1", target, script);
      ValueCardForAI(card);
    }
    EXPECT_EQ(FirstDifference(before, StateDigest()), "") << script;
  };
  Play(2, 5, 3);
  const Pile table = State().CardTable;
  for (const auto& family : CommandFamilies()) {
    for (const Command& command : family) {
      const std::string script = scriptWith(command, "1");
      check(script);
      check(scriptWith(command, "GLOW"));  // a trait that brings an action with it
      for (Card& card : State().CardTable) {
        if (IsFree(card)) continue;
        for (const char* trigger : {"TARGETED", "MYACTION", "BEFORETRAITCHANGE:HP"}) {
          GiveAction(card, trigger, "SELF", script);
        }
      }
      check(Joined("MODTRAIT:HP:-1:REQTRAIT:HP:", command.Word));
      State().CardTable = table;
    }
  }
}

}  // namespace
}  // namespace brindlemoor
