// Thinking a turn over: what it finds, what it sees, what it costs, and that it leaves no trace.
#include "mind/turn_thinking.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "core/random.h"
#include "game/planned_turn.h"
#include "game/turn.h"
#include "mind/playouts.h"
#include "scenario/state_digest.h"
#include "script/triggers.h"
#include "simulation/automatic_player.h"
#include "simulation/simulation.h"
#include "simulation/stage.h"
#include "tests/support/action_cards.h"
#include "tests/support/process_size.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr std::int64_t kSteps = 400'000;

std::string TextOf(const std::optional<TurnPlan>& plan) {
  if (!plan) return "plain";
  std::string text;
  for (const PlannedPlay& play : plan->Plays) text += Joined(play.Position, ">", play.Target, " ");
  for (const PlannedAction& action : plan->Actions) {
    text += Joined(action.Slot, ".", action.Effect, ">", action.Target, " ");
  }
  return text;
}

/// A duel: who has no HP at the end of a turn has lost.
class DuelTest : public SessionTest {
 protected:
  DuelTest() {
    State().CurrentGame = 1;
    State().Games.Reset(1);
    State().CostCard.InPlay = 1;  // as every turn leaves it
    for (int side = 1; side <= 2; ++side) PutPlayerCard(side, {"HP:10", "ENERGY:2"});
    GiveAction(State().RulesCard, "TURNEND", "ALL",
               "REQTRAIT:PLAYER:REQENEMY:REQTRAITLESS:HP:0:WINGAME");
    GiveAction(State().RulesCard, "TURNEND", "ALL",
               "REQTRAIT:PLAYER:REQALLY:REQTRAITLESS:HP:0:LOSEGAME");
  }
  static void Hold(int side, int position, std::string_view name, std::string_view target,
                   std::string_view script, std::string_view priority = "PRIORITY:0") {
    Card card = MakeCard(name, side, {std::string(priority)});
    GiveAction(card, "ENTERPLAY", target, script);
    State().Players[side].Hand[position] = card;
  }
  static bool Has(const std::optional<TurnPlan>& plan, int position) {
    return plan &&
           std::ranges::find(plan->Plays, position, &PlannedPlay::Position) != plan->Plays.end();
  }
};

TEST_F(DuelTest, AWorkingActionThatSpoilsTheMatchIsLeftOut) {
  for (int side = 1; side <= 2; ++side) {
    SetTrait(State().CardTable[State().Players[3 - side].PlayerCard], "HP", 3, 0);
    SetTrait(State().CardTable[State().Players[side].PlayerCard], "HP", 10, 0);
    Hold(side, 1, "Blunder", "ENEMYPLAYER", "MODTRAIT:HP:5", "PRIORITY:50");
    Hold(side, 2, "Stab", "ENEMYPLAYER", "SUBTRAIT:HP:3");
    State().Players[3 - side].Hand[1] = State().Players[3 - side].Hand[2] = Card();
    const auto plan = PlanByPlaying(side, kSteps / 10);
    ASSERT_TRUE(plan) << side;
    EXPECT_FALSE(Has(plan, 1)) << side << ": " << TextOf(plan);
    EXPECT_TRUE(Has(plan, 2)) << side << ": " << TextOf(plan);
  }
}

TEST_F(DuelTest, ACardIsAimedWhereItDecidesTheMatch) {
  Card& idol = PutInPlay(MakeCard("Idol", 1, {"HP:1", "WARD:1"}));
  Card& crumb = PutInPlay(MakeCard("Crumb", 1, {"HP:1", "WARD:1"}));
  GiveAction(idol, "TURNEND", "ENEMYPLAYER", "SUBTRAIT:HP:4");
  RegisterAllHits(idol);
  Hold(2, 4, "Dart", "CARD", "REQTRAIT:WARD:DESTROY");
  const auto plan = PlanByPlaying(2, kSteps / 4);
  ASSERT_TRUE(Has(plan, 4)) << TextOf(plan);
  EXPECT_EQ(plan->Plays[0].Target, idol.Slot) << "not " << crumb.Slot;
  State().EnemyPlan = plan;
  TakeTurn(0);
  EXPECT_EQ(NamesWith("WARD"), "Crumb");
  EXPECT_FALSE(State().EnemyPlan) << "a plan is for one turn";
}

TEST_F(DuelTest, AMenuActionIsAimedByThePlanAlone) {
  Card& lamp = PutInPlay(MakeCard("Lamp", 1));
  const int action = GiveAction(lamp, "MENU:PHASE1:Shine", "CARD", "MODTRAIT:LIT:1");
  lamp.Effects.Edit(action).ChosenTarget = 1;  // of a turn that is over
  for (const int target : {0, 2}) {
    LineUp({{}, {{lamp.Slot, action, target}}});
    EXPECT_EQ(lamp.Effects[action].MenuState, kArmedMenuAction) << target;
    EXPECT_EQ(lamp.Effects[action].ChosenTarget, target);
  }
}

TEST_F(DuelTest, AScriptWithoutAnEndCostsNoMoreThanTheSteps) {
  Hold(1, 1, "Mill", "ALL", "MODTRAIT:DUST:1:REPEAT:ALL:1000");
  GiveAction(State().Players[1].Hand[1], "TRAITCHANGE:DUST", "ALL", "MODTRAIT:DUST:1");
  GiveAction(State().RulesCard, "TURNSTART", "ALL", "MODTRAIT:DUST:1:REPEAT:ALL:1000");
  Playouts playouts(1, kSteps);
  while (playouts.WorkIsLeft()) playouts.Play(std::nullopt, 1, 5, [] {});
  // A command that is being carried out when the steps end may still finish.
  EXPECT_GT(playouts.StepsLeft(), -kSteps / 10);
}

/// The shipped game, some turns into a match.
class MatchInProgressTest : public ::testing::Test {
 protected:
  MatchInProgressTest() {
    SimulationOptions options;
    options.Folder = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games";
    EXPECT_EQ(PrepareSimulation(options, stage_, setup_), "");
    EXPECT_EQ(SeatMatch(setup_, {0, false}, stage_), "");
    stage_.Play(5, 3);
    EXPECT_EQ(State().GameOver, 0);
  }
  ~MatchInProgressTest() override { State() = Session{}; }

  Stage stage_;
  SimulationSetup setup_;
};

TEST_F(MatchInProgressTest, TheSessionIsLeftAsItWas) {
  const std::string digest = StateDigest();
  const auto random = State().Random.State;
  const auto steps = State().Work.Total;
  const auto* desktop = State().Desktop.get();
  const std::string first = TextOf(PlanByPlaying(1, kSteps / 2));
  EXPECT_EQ(StateDigest(), digest);
  EXPECT_EQ(State().Random.State, random);
  EXPECT_EQ(State().Work.Total, steps);
  EXPECT_EQ(State().Desktop.get(), desktop);
  EXPECT_EQ(State().GameOver, 0);
  EXPECT_EQ(TextOf(PlanByPlaying(1, kSteps / 2)), first) << "the same table, the same plan";
}

TEST_F(MatchInProgressTest, ManyTurnsOfThinking) {
  int side = 1;
  ExpectFlat("turns thought over", LongLife(40), [&side] {
    PlanByPlaying(side, kSteps / 10);
    side = 3 - side;
  });
}

/// The first line in which two texts differ, in both; "" where they are equal.
std::string FirstDifference(const std::string& a, const std::string& b) {
  if (a == b) return "";
  const auto at = static_cast<std::size_t>(
      std::distance(a.begin(), std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first));
  const std::size_t line = at == 0 ? 0 : a.rfind('\n', at - 1) + 1;
  return Joined(a.substr(line, 400), "\n---\n", b.substr(line, 400), "\nfrom ", at - line, " on");
}

/// Everything that the side does not see is turned round.
void ChangeHidden(int side) {
  Session& session = State();
  session.Random.State ^= 0x5555;
  const auto turnRound = [](Pile& pile) {  // the first element of a pile stays free
    for (int low = 2, high = pile.UpperBound(); low < high; ++low, --high) {
      std::swap(pile[low], pile[high]);
    }
  };
  turnRound(session.Players[side].Deck);
  PlayerState& other = session.Players[3 - side];
  turnRound(other.Deck);
  int top = other.Deck.UpperBound();
  for (Card& held : other.Hand) {
    while (top > 1 && IsFree(other.Deck[top])) --top;
    if (!IsFree(held) && top > 1) std::swap(held, other.Deck[top--]);
  }
  if (side == 2) PlanAutomaticPlays();  // what the player has lined up
}

/// Every record of the table and the state of a trial as it begins.
std::string DealtFor(int side) {
  Playouts playouts(side, kSteps);
  playouts.Play(std::nullopt, 3, 0, [] {});
  return StateDigest();
}

TEST_F(MatchInProgressTest, HiddenThingsDoNotCount) {
  for (const int side : {1, 2}) {
    const Session before = State();
    const std::string digest = StateDigest();
    const std::string dealt = DealtFor(side);
    const std::string plan = TextOf(PlanByPlaying(side, kSteps / 2));
    ChangeHidden(side);
    EXPECT_TRUE(StateDigest() != digest) << "nothing was changed";
    EXPECT_EQ(FirstDifference(dealt, DealtFor(side)), "") << side;
    EXPECT_EQ(TextOf(PlanByPlaying(side, kSteps / 2)), plan) << side;
    State() = before;
  }
}

TEST_F(MatchInProgressTest, AMatchOfThinkersIsAFunctionOfItsSeed) {
  const auto think = [](int side) { return PlanByPlaying(side, kSteps / 2); };
  stage_.LetThink(think);
  stage_.GiveMinds(1, 1);
  stage_.Play(14, 2);
  const std::string hash = stage_.MatchHash();
  stage_.GiveMinds(0, 0);
  stage_.Play(14, 2);
  EXPECT_NE(stage_.MatchHash(), hash) << "thinking changed nothing";
  stage_.GiveMinds(1, 1);
  stage_.PlayAloud();
  stage_.Play(14, 2);
  EXPECT_EQ(stage_.MatchHash(), hash);
}

}  // namespace
}  // namespace brindlemoor
