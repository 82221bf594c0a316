// The turn: card plays, the order of the steps, and the report page.
#include "game/turn.h"

#include "script/card_setup.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

std::string PlaysTable(const char* words, const char* color, std::string_view cells) {
  return Joined("<table width=100%><tr><td colspan=80  bgcolor = ", color, " ><font color=#FFFF00>",
                words, " Card Plays</font></td></tr><tr><td  bgcolor = ", color,
                " ><p align=right>", cells, "</p></td></tr></table>");
}
const std::string kEnemyTable = PlaysTable("Enemy", "#661100", "");

/// Everything that scripts said in braces, in order: "rules PHASE1, card PHASE1, ".
std::string Said(std::string_view page) {
  std::string said;
  for (auto from = page.find('{'); from != page.npos; from = page.find('{', from + 1)) {
    said += Joined(page.substr(from + 1, page.find('}', from) - from - 1), ", ");
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
                  const char* target = "SELF") {
    GiveAction(card, trigger, target, script);
    if (card.Slot > 0) RegisterAllHits(card);
  }
  /// Queues a card in hand that says its name when it enters play. Returns its cell of the report.
  static std::string Queue(int entry, int position, int target = 0) {
    Card& card = State().Players[1].Hand[position];
    card = MakeCard(Joined("C", entry), 1);
    card.Thumb = "t.bmp";
    card.GlobalID = 100 + position;
    Act(card, "ENTERPLAY", Joined("ECHOMINOR:{C", entry, "}"));
    State().PlayQueue[entry] = static_cast<std::uint8_t>(position);
    State().PlayTarget[entry] = static_cast<std::int16_t>(target);
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
  const auto add = [&card](const std::string& step) {
    Act(card, step, Joined("ECHOMINOR:{card ", step, "}"));
    Act(State().RulesCard, step, Joined("ECHOMINOR:{rules ", step, "}"));
  };
  add("TURNSTART");
  add("TURNEND");
  std::string expected = "rules TURNSTART, card TURNSTART, ";
  for (int phase = 1; phase <= 10; ++phase) {
    add(Joined("PHASE", phase));
    if (phase < 10) expected += Joined("rules PHASE", phase, ", ");
    expected += Joined("card PHASE", phase, ", ");
  }
  Act(card, "PHASE9", "SETMYTRAIT:BONUSLUCK:1");
  Act(card, "TURNEND", "REQMYTRAIT:BONUSLUCK:ECHOMINOR:{card has luck}");
  Act(State().RulesCard, "TURNEND", "REQTRAIT:BONUSLUCK:ECHOMINOR:{rules see luck}", "ALL");
  EXPECT_EQ(Said(Report()), expected + "card TURNEND, card has luck, rules TURNEND, ");
  EXPECT_EQ(State().PhaseBanner, "");
}

// Cards that a step makes enter play at the step's next flush.
TEST_F(TurnTest, FlushesStandBetweenRulesAndCards) {
  const std::pair<const char*, const char*> cases[] = {
      {"TURNSTART", "C, "}, {"PHASE3", "C, C, "}, {"TURNEND", "C, "}};
  for (const auto& [step, said] : cases) {
    State().CardTable.Reset(1);
    for (auto& hits : State().HitTable) hits.clear();
    Act(PutInPlay(MakeCard("C", 1)), step, "ECHOMINOR:{C}");
    InitCard(State().RulesCard, 1, 1);
    Act(State().RulesCard, step, "REQNAME:C:DUPLICATE:1:0", "ALL");
    EXPECT_EQ(Said(Report()), said) << step;
    EXPECT_TRUE(State().CardTable.UpperBound() == 2 && State().CardTable[2].InPlay == 1);
  }
}

TEST_F(TurnTest, QueueRunsInOrderAndRowsHoldFivePlays) {
  std::string cells;
  for (const int entry : {1, 2, 3, 6, 7, 8}) {  // free entries between are passed over
    cells += Queue(entry, 11 - entry);
    if (entry == 7) cells += "</tr><tr>";
  }
  const std::string page = Report();
  EXPECT_TRUE(Contains(page, kEnemyTable + PlaysTable("Your", "#004400", cells))) << page;
  EXPECT_EQ(Said(page), "C1, C2, C3, C6, C7, C8, ");
  for (const Card& card : State().Players[1].Hand) EXPECT_TRUE(IsFree(card));
  EXPECT_EQ(State().PlayQueue, (FixedTable<std::uint8_t, 10>{}));
}

TEST_F(TurnTest, NoPlayWaitsForATargetWhenTheQueueHasBeenPlayed) {
  Queue(1, 1);
  State().AwaitingPlayTarget = 1;
  TakeTurn(1);
  EXPECT_EQ(State().AwaitingPlayTarget, 1) << "the first turn leaves the queue alone";
  TakeTurn(0);
  EXPECT_EQ(State().AwaitingPlayTarget, 0);
}

TEST_F(TurnTest, UnpaidCardStaysAndDiscardLeavesNoLine) {
  Queue(1, 1);
  Queue(2, 2, -1);
  const std::string cells =
      Joined("You do not have enough resources to play <font color=\"#FFFFFF\">C1</font>!<br><br>",
             Queue(3, 3, 1));
  Act(State().Players[1].Hand[1], "COST", "REQMYOWNERTRAIT:GOLD");
  EXPECT_FALSE(Contains(Report(1), "Card Plays")) << "skipped plays";
  EXPECT_EQ(State().PlayQueue[1], 1);
  const std::string page = Report();
  EXPECT_TRUE(Contains(page, PlaysTable("Your", "#004400", cells))) << page;
  EXPECT_EQ(Said(page), "C3, ");
  EXPECT_FALSE(IsFree(State().Players[1].Hand[1]));
  EXPECT_TRUE(IsFree(State().Players[1].Hand[2]));
  EXPECT_EQ(State().PlayQueue, (FixedTable<std::uint8_t, 10>{}));
  EXPECT_EQ(State().PlayTarget, (FixedTable<std::int16_t, 10>{}));
  EXPECT_EQ(State().CardTable[3].TargetSlot, 1);
  State().PlayQueue[1] = 200;  // stale: outside the hand, and a card that left it
  State().PlayQueue[2] = 4;
  Report();
  EXPECT_EQ(State().CardTable.UpperBound(), 3);
}

TEST_F(TurnTest, NothingRunsBehindTheEndOfTheGame) {
  Card& card = PutInPlay(MakeCard("C", 1));
  Act(card, "PHASE1", "ECHOMINOR:{one}");
  Act(card, "PHASE2", "ECHOMINOR:{two}:WINGAME");
  Act(card, "PHASE3", "ECHOMINOR:{three}");
  Act(State().RulesCard, "TURNEND", "ECHOMINOR:{end}");
  EXPECT_EQ(Said(Report()), "one, two, ");
  EXPECT_EQ(State().GameOver, 1);
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), "End Game");
}

TEST_F(TurnTest, ReportPage) {
  State().Players[1].Color = "#FFFFFF";
  Act(State().RulesCard, "PHASE4", "ECHOMINOR:{four}");
  const std::string page = Report();
  const std::string tables =
      "<center><table border=\"1\"><th><font color=\"#FFFFFF\">Player 1</font></th><tr><td>"
      "<center>HP: <font color=\"#00FF00\"></font><br></tr></td></table></center><br><br>"
      "<center><table align=center><tr><td colspan=80 bgcolor = 404040><font color = #FFFFFF>"
      "<center>Ann</font></td></tr></table></center>"
      "<center><table align=center><tr><td colspan=80 bgcolor = 000000><font color = >"
      "<center>Player 2</font></td></tr></table></center>";
  EXPECT_TRUE(Contains(
      page, Joined("\n", tables, kEnemyTable, PlaysTable("Your", "#004400", ""), "<table")))
      << page;
  EXPECT_EQ(Said(page), "four, ");
  EXPECT_FALSE(Contains(page, "Starting") || Contains(page, "Total actions"));
  EXPECT_EQ(ReadFile("Display.html"), page);
  EXPECT_EQ(ReadFile("LastDiplayed.html"), page);
  EXPECT_EQ(State().PageText, "");
  EXPECT_EQ(desktop_->Raised, 1);
  State().DebugMode = 1;
  State().StatMasked = 3;
  const std::string debugged = Report();
  EXPECT_TRUE(Contains(debugged,
                       "<table bgcolor=FF9900><tr><td><p><font color=000000>Starting PHASE2"
                       "</font><p></td></tr></table><table bgcolor=FFFF00>"));
  EXPECT_TRUE(Contains(debugged, "Total actions masked: <font color=#FFFFFF>3</font></font><br>"));
}

}  // namespace
}  // namespace brindlemoor
