// The automatic player and the hint: what they make of a hand, and that trying out leaves no trace.
#include "game/hints.h"

#include <gtest/gtest.h>
#include <sstream>

#include "game/turn.h"
#include "scenario/state_digest.h"
#include "simulation/automatic_match.h"
#include "simulation/automatic_player.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class HintsTest : public SessionTest {
 protected:
  HintsTest() {
    for (int side = 1; side <= 2; ++side) PutPlayerCard(side, {"HP:20", "MANA:3"});
    State().CostCard.InPlay = 1;  // as every turn leaves it
  }
  /// A hand card that costs so much MANA; its action aims at an enemy.
  static Card& Hold(int position, std::string_view name, int cost, std::string_view script,
                    std::string_view priority = "PRIORITY:0") {
    Card card = MakeCard(name, 1, {std::string(priority)});
    GiveAction(card, "COST", "OWNER", Joined("SUBTRAIT:MANA:", cost));
    GiveAction(card, "ENTERPLAY", "RANDOMENEMY", script);
    State().Players[1].Hand[position] = card;
    return State().Players[1].Hand[position];
  }
  static std::string Queue() {
    std::string text;
    for (const std::uint8_t position : State().PlayQueue) text += Joined(int{position}, " ");
    return text;
  }
};

TEST_F(HintsTest, TheBestPayableCardsAreQueuedFirst) {
  Hold(1, "Spark", 1, "SUBTRAIT:HP:1");
  Hold(3, "Miss", 1, "REQTRAIT:GONE:SUBTRAIT:HP:1");
  Hold(4, "Dear", 9, "SUBTRAIT:HP:1", "PRIORITY:500");
  Hold(7, "Bolt", 2, "SUBTRAIT:HP:1", "PRIORITY:5");
  Hold(8, "Spare", 1, "SUBTRAIT:HP:1");
  State().PlayQueue[1] = 9;
  State().PlayTarget[1] = 2;
  PlanAutomaticPlays();
  EXPECT_EQ(Queue(), "7 1 8 0 0 0 0 0 0 0 ");
  for (const std::int16_t target : State().PlayTarget) EXPECT_EQ(target, 0);
  TakeTurn(0);
  EXPECT_EQ(NamesWith("PRIORITY"), "Bolt Spark") << "the spare one could no longer be paid";
  EXPECT_EQ(State().Players[1].Hand[8].Name, "Spare");
}

TEST_F(HintsTest, PlanningLeavesNoTraceBesideTheQueue) {
  Card& gift = Hold(1, "Gift", 1, "ADDEFFECT:PHASE1:SELF:MODTRAIT:HP:1");
  GiveAction(gift, "AIREQ", "ENEMYPLAYER", "MODTRAIT:HP:-30:DESTROY");
  Hold(2, "Bolt", 2, "SETTRAIT:BURNT:1:MODMYTRAIT:HEAT:1:CREATECARD:1:Bolt:Cards.txt");
  State().CardTable[1].NameColor = "";
  const std::string before = StateDigest();
  PlanAutomaticPlays();
  EXPECT_EQ(Queue(), "1 2 0 0 0 0 0 0 0 0 ");
  State().PlayQueue = {};
  EXPECT_EQ(StateDigest(), before);
}

TEST_F(HintsTest, HintsTellValuesAndTrials) {
  Hold(2, "Miss", 1, "REQTRAIT:HP:REQTRAITMORE:MANA:8:SUBTRAIT:HP:1");
  Hold(5, "Dear", 9, "SUBTRAIT:HP:1");
  Card& bolt = Hold(9, "Bolt", 2, "SUBTRAIT:HP:1", "PRIORITY:5");
  GiveAction(bolt, "MENU:PHASE3:Shake it", "ENEMYPLAYER", "REQTRAITLESS:HP:5:SUBTRAIT:HP:1");
  GiveAction(bolt, "PHASE1", "SELF", "MODTRAIT:HP:1");
  State().Random.State = 77;
  State().StatMasked = 5;
  State().FailReason = "old";
  State().PageText = "page";
  State().PlayQueue[1] = 5;
  const std::string before = StateDigest();
  const std::vector<Hint> hints = HandHints();
  EXPECT_EQ(StateDigest(), before);
  EXPECT_EQ(State().Random.State, 77U) << "the dice of the next turn are the same";
  EXPECT_EQ(State().StatMasked, 5);
  EXPECT_EQ(State().FailReason, "old");
  ASSERT_EQ(hints.size(), 3U);
  EXPECT_EQ(hints[0].Card.Name, "Bolt");
  EXPECT_EQ(hints[0].Play.Position, 9);
  EXPECT_EQ(hints[0].Play.Value, 10);  // (2 - 1) * 10 / 2, and its priority
  EXPECT_TRUE(hints[0].Play.IsWorthPlaying());
  ASSERT_EQ(hints[0].Trials.size(), 2U) << "an action on the card itself is not tried";
  EXPECT_EQ(hints[0].Trials[0], "When it enters play, on Player 2: works.");
  EXPECT_TRUE(hints[0].Trials[1].starts_with("\"Shake it\", on Player 2: does not work now ("))
      << hints[0].Trials[1];
  EXPECT_EQ(hints[1].Card.Name, "Miss");
  EXPECT_EQ(hints[1].Trials,
            std::vector<std::string>{
                "When it enters play: finds no target (Requires MANA trait of 8 or more)."});
  EXPECT_FALSE(hints[1].Play.IsWorthPlaying());
  EXPECT_FALSE(hints[2].Play.Payable);
  EXPECT_TRUE(hints[2].Trials.empty()) << "what can't be paid is not tried";
}

// Every hand and table that a match of the shipped game comes to. The match has a session of its
// own.
TEST(HintsInMatchesTest, AMatchOfTheShippedGameIsNotTouched) {
  const std::string games = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
  std::size_t tried = 0;
  for (int turns = 1; turns <= 12; turns += 2) {
    std::ostringstream out;
    ASSERT_EQ(AutomaticMatch({games, "", 3, turns, 2}, out).Error, "");
    const std::string before = StateDigest();
    const std::uint64_t dice = State().Random.State;
    for (const Hint& hint : HandHints()) tried += hint.Trials.size();
    EXPECT_EQ(StateDigest(), before);
    EXPECT_EQ(State().Random.State, dice);
    HandValues(1);
    EXPECT_EQ(StateDigest(), before);
  }
  EXPECT_GT(tried, 10U);
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
