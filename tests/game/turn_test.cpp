// The turn: card plays, the order of the steps, and the report page.
#include "game/turn.h"

#include <gtest/gtest.h>

#include "script/target_types.h"
#include "script/triggers.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

constexpr const char* kEnemyTable =
    "<table width=100%><tr><td colspan=80  bgcolor = #661100 ><font color=#FFFF00>"
    "Enemy Card Plays</font></td></tr><tr><td  bgcolor = #661100 ><p align=right>"
    "</p></td></tr></table>";

std::string PlayerPlaysTable(std::string_view cells) {
  return Joined(
      "<table width=100%><tr><td colspan=80  bgcolor = #004400 ><font color=#FFFF00>"
      "Your Card Plays</font></td></tr><tr><td  bgcolor = #004400 ><p align=right>",
      cells, "</p></td></tr></table>");
}

/// Everything that scripts said in braces, in order: "rules PHASE1, card PHASE1".
std::string Said(std::string_view page) {
  std::string said;
  for (auto from = page.find('{'); from != page.npos; from = page.find('{', from + 1)) {
    if (!said.empty()) said += ", ";
    said += page.substr(from + 1, page.find('}', from) - from - 1);
  }
  return said;
}

class TurnTest : public SessionTest {
 protected:
  TurnTest() {
    for (int side = 1; side <= 2; ++side) PutPlayerCard(side, {"INVISIBLE"});
    State().Profile.PlayerName = "Ann";
  }
  static void Act(Card& card, const std::string& trigger, const std::string& script,
                  int target = kTargetSelf) {
    AddEffect(card, script, target, trigger, 0, TargetTypeName(target));
    if (card.Slot > 0) RegisterAllHits(card);
  }
  /// A card in hand that says its name when it enters play.
  static Card& PutInHand(int position, const std::string& name) {
    Card& card = State().Players[1].Hand[position];
    card = MakeCard(name, 1);
    card.Thumb = "t.bmp";
    card.GlobalID = 100 + position;
    Act(card, "ENTERPLAY", Joined("ECHOMINOR:{", name, "}"));
    return card;
  }
  static void Queue(int entry, int position, int target = 0) {
    State().PlayQueue[entry] = static_cast<std::uint8_t>(position);
    State().PlayTarget[entry] = static_cast<std::int16_t>(target);
  }
  static std::string Cell(int position) {
    return Joined("<td><center><a href=\"CARD", 100 + position,
                  "\"><img  border = \"0\" src=\"\"></img></a></td>");
  }
  std::string Report(int skipPlays = 0) {
    TakeTurn(skipPlays);
    return desktop_->Pages["WB"];
  }
  static bool Contains(std::string_view page, std::string_view part) {
    return page.find(part) != page.npos;
  }
};

TEST_F(TurnTest, StepsRunInTheirOrder) {
  Card& card = PutInPlay(MakeCard("C", 1));
  std::string expected;
  const std::vector<std::string> steps = {"TURNSTART", "PHASE1", "PHASE2",  "PHASE3",
                                          "PHASE4",    "PHASE5", "PHASE6",  "PHASE7",
                                          "PHASE8",    "PHASE9", "PHASE10", "TURNEND"};
  for (const std::string& step : steps) {
    Act(card, step, Joined("ECHOMINOR:{card ", step, "}"));
    Act(State().RulesCard, step, Joined("ECHOMINOR:{rules ", step, "}"));
    if (step == "TURNEND") {
      expected += ", card TURNEND, rules TURNEND";
    } else {
      if (step != "PHASE10") expected += Joined(", rules ", step);
      expected += Joined(", card ", step);
    }
  }
  EXPECT_EQ(Said(Report()), expected.substr(2));
  EXPECT_EQ(State().PhaseBanner, "");
}

// Cards that a step makes enter play at the step's next flush.
TEST_F(TurnTest, FlushesStandBetweenRulesAndCards) {
  struct {
    const char* step;
    const char* said;
  } const cases[] = {{"TURNSTART", "C"}, {"PHASE3", "C, C"}, {"TURNEND", "C"}};
  for (const auto& row : cases) {
    State().CardTable.Reset(1);
    for (auto& hits : State().HitTable) hits.clear();
    Card& card = PutInPlay(MakeCard("C", 1));
    Act(card, row.step, "ECHOMINOR:{C}");
    InitCard(State().RulesCard, 1, 1);
    Act(State().RulesCard, row.step, "REQNAME:C:DUPLICATE:1:0", kTargetAll);
    EXPECT_EQ(Said(Report()), row.said) << row.step;
    EXPECT_TRUE(State().CardTable.UpperBound() == 2 && State().CardTable[2].InPlay == 1);
  }
}

TEST_F(TurnTest, BonusesEndBetweenCardsAndRules) {
  Card& card = PutInPlay(MakeCard("C", 1));
  Act(card, "PHASE9", "SETMYTRAIT:BONUSLUCK:1");
  Act(card, "TURNEND", "REQMYTRAIT:BONUSLUCK:ECHOMINOR:{card sees it}");
  Act(State().RulesCard, "TURNEND", "REQTRAIT:BONUSLUCK:ECHOMINOR:{rules see it}", kTargetAll);
  EXPECT_EQ(Said(Report()), "card sees it");
}

TEST_F(TurnTest, QueueRunsInOrderAndRowsHoldFivePlays) {
  std::string cells;
  for (int entry = 1; entry <= 6; ++entry) {
    PutInHand(11 - entry, Joined("C", entry));
    // Free entries between the queued ones are passed over.
    Queue(entry < 4 ? entry : entry + 2, 11 - entry);
    cells += Cell(11 - entry);
    if (entry == 5) cells += "</tr><tr>";
  }
  const std::string page = Report();
  EXPECT_TRUE(Contains(page, kEnemyTable + PlayerPlaysTable(cells))) << page;
  EXPECT_EQ(Said(page), "C1, C2, C3, C4, C5, C6");
  for (int position = 1; position <= 10; ++position) {
    EXPECT_TRUE(IsFree(State().Players[1].Hand[position]));
    EXPECT_EQ(State().PlayQueue[position], 0);
  }
}

TEST_F(TurnTest, UnpaidCardStaysAndDiscardLeavesNoLine) {
  for (int position = 1; position <= 3; ++position) PutInHand(position, Joined("C", position));
  Act(State().Players[1].Hand[1], "COST", "REQMYOWNERTRAIT:GOLD");
  Queue(1, 1);
  Queue(2, 2, -1);
  Queue(3, 3, 1);
  const std::string page = Report();
  EXPECT_TRUE(
      Contains(page, PlayerPlaysTable(Joined("You do not have enough resources to play <font "
                                             "color=\"#FFFFFF\">C1</font>!<br><br>",
                                             Cell(3)))))
      << page;
  EXPECT_EQ(Said(page), "C3");
  EXPECT_FALSE(IsFree(State().Players[1].Hand[1]));
  EXPECT_TRUE(IsFree(State().Players[1].Hand[2]));
  EXPECT_EQ(State().PlayQueue, (FixedTable<std::uint8_t, 10>{}));
  EXPECT_EQ(State().PlayTarget, (FixedTable<std::int16_t, 10>{}));
  EXPECT_EQ(State().CardTable[3].TargetSlot, 1);
}

TEST_F(TurnTest, SkippedPlaysLeaveTheQueueUntouched) {
  PutInHand(1, "C1");
  Queue(1, 1);
  const std::string page = Report(1);
  EXPECT_FALSE(Contains(page, "Card Plays"));
  EXPECT_EQ(State().PlayQueue[1], 1);
}

// A stale queue must not reach outside the hand or play a card that left it.
TEST_F(TurnTest, OddQueueEntriesAreHarmless) {
  Queue(1, 200);
  Queue(2, 4);
  const int before = State().CardTable.UpperBound();
  Report();
  EXPECT_EQ(State().CardTable.UpperBound(), before);
  EXPECT_EQ(State().PlayQueue[1], 0);
}

TEST_F(TurnTest, NothingRunsBehindTheEndOfTheGame) {
  Card& card = PutInPlay(MakeCard("C", 1));
  Act(card, "PHASE1", "ECHOMINOR:{one}");
  Act(card, "PHASE2", "ECHOMINOR:{two}:WINGAME");
  Act(card, "PHASE3", "ECHOMINOR:{three}");
  Act(State().RulesCard, "TURNEND", "ECHOMINOR:{end}");
  EXPECT_EQ(Said(Report()), "one, two");
  EXPECT_EQ(State().GameOver, 1);
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), "End Game");
}

TEST_F(TurnTest, ReportPage) {
  State().Players[1].Color = "#FFFFFF";
  Act(State().RulesCard, "PHASE4", "ECHOMINOR:{four}");
  TakeTurn(0);
  const std::string page = ReadFile("Display.html");
  const std::string tables =
      "<center><table border=\"1\"><th><font color=\"#FFFFFF\">Player 1</font></th><tr><td>"
      "<center>HP: <font color=\"#00FF00\"></font><br></tr></td></table></center><br><br>"
      "<center><table align=center><tr><td colspan=80 bgcolor = 404040><font color = #FFFFFF>"
      "<center>Ann</font></td></tr></table></center>"
      "<center><table align=center><tr><td colspan=80 bgcolor = 000000><font color = >"
      "<center>Player 2</font></td></tr></table></center>";
  EXPECT_TRUE(Contains(page, Joined("\n", tables, kEnemyTable, PlayerPlaysTable(""), "<table")))
      << page;
  EXPECT_EQ(Said(page), "four");
  EXPECT_EQ(ReadFile("LastDiplayed.html"), page);
  EXPECT_EQ(desktop_->Pages["WB"], page);
  EXPECT_EQ(State().PageText, "");
  EXPECT_EQ(desktop_->Raised, 1);
}

TEST_F(TurnTest, DebugModeShowsBannersAndCounters) {
  State().StatMasked = 3;
  State().StatNotMasked = 4;
  State().StatCancelled = 5;
  Report();
  const std::string quiet = desktop_->Pages["WB"];
  EXPECT_FALSE(Contains(quiet, "Starting") || Contains(quiet, "Total actions"));
  EXPECT_EQ(State().StatMasked + State().StatNotMasked + State().StatCancelled, 0);

  State().DebugMode = 1;
  State().StatMasked = 3;
  State().StatNotMasked = 4;
  State().StatCancelled = 5;
  std::string expected = PlayerPlaysTable("");
  const std::pair<const char*, const char*> banners[] = {
      {"TURNSTART", "FFFFFF"}, {"PHASE1", "FF0000"}, {"PHASE2", "FF9900"},  {"PHASE3", "FFFF00"},
      {"PHASE4", "00FF00"},    {"PHASE5", "0000FF"}, {"PHASE6", "9900FF"},  {"PHASE7", "FF0000"},
      {"PHASE8", "FFAA00"},    {"PHASE9", "FFFF00"}, {"PHASE10", "00FF00"}, {"TURNEND", "FFFFFF"}};
  for (const auto& [step, color] : banners) {
    expected += Joined("<table bgcolor=", color, "><tr><td><p><font color=000000>Starting ", step,
                       "</font><p></td></tr></table>");
  }
  expected +=
      "<br><br><font size=+2>Total actions masked: <font color=#FFFFFF>3</font></font><br>"
      "<br><br><font size=+2 color=#FF0000>Actions not masked: <font color=#FFFFFF>4</font></font>"
      "<br><br><br><font size=+2 color=#AA9999>Actions cancelled by counters: "
      "<font color=#FFFFFF>5</font></font><br>";
  EXPECT_TRUE(Contains(Report(), expected)) << desktop_->Pages["WB"];
}

// The game list offers the button too: a turn without a game changes nothing.
TEST_F(TurnTest, TurnWithoutPlayerCards) {
  State().CardTable.Reset(1);
  for (int side = 1; side <= 2; ++side) State().Players[side].PlayerCard = 0;
  const std::string page = Report();
  EXPECT_TRUE(Contains(page, Joined("\n<br><br></table></center></table></center>", kEnemyTable)))
      << page;
}

}  // namespace
}  // namespace brindlemoor
