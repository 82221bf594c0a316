// The plan below the report: what it leaves, what of it will not work, and the way back.
#include "ui/plan_panel.h"

#include "game/turn.h"
#include "scenario/state_digest.h"
#include "script/trait_actions.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

/// A player with 3 oil, kept in MANA, and 1 heart.
class PlanPanelTest : public SessionTest {
 protected:
  PlanPanelTest() {
    Card price = MakeCard("OIL", 1);
    GiveAction(price, "COST", "OWNER", "SUBTRAIT:MANA:SRCTRAIT/OIL");
    State().TraitActions[1] = price;
    PutPlayerCard(1, {"HP:9", "MANA:3", "HEARTS:1"});
    PutPlayerCard(2, {"HP:9"});
    State().CurrentGame = 1;
  }
  Card& Deal(int position, std::string_view name, int oil) {
    Card card = MakeCard(name, 1, {Joined("OIL:", oil)});
    GiveAction(card, "COST", "OWNER", Joined("SUBTRAIT:MANA:", oil));
    return State().Players[1].Hand[position] = card;
  }
  void Click(std::size_t position) { window_.Picture2[position]->MouseUp(MouseButton::kLeft); }
  std::string Lines() const {
    std::string all;
    for (const std::string& line : plan_.Lines.Items.Get()) all += line + "\n";
    return all;
  }
  /// The badge of a hand card, in brackets when it is planned, with a "-" when it is dimmed.
  std::string Hand(std::size_t position) const {
    const PictureBox& picture = *window_.Picture2[position];
    const std::string badge = Joined(picture.Badge.Get(), picture.Dimmed ? " -" : "");
    return picture.Framed ? "[" + badge + "]" : badge;
  }

  MainWindow& window_ = TheMainWindow();
  PlanPanel& plan_ = window_.Plan;
};

TEST_F(PlanPanelTest, ThePlanTellsWhatItLeavesAndWhatCannotBePaid) {
  Deal(1, "Moth", 2);
  Deal(2, "Crab", 2);
  Deal(3, "Kettle", 5);
  Deal(4, "Bread", 0);
  const std::string table = StateDigest();
  const std::uint64_t dice = State().Random.State;
  UpdateHand();
  EXPECT_EQ(plan_.Left.Caption.Get(), "You have 3 oil, 1 hearts.");
  EXPECT_EQ(Joined(Hand(1), "|", Hand(2), "|", Hand(3), "|", Hand(4)), "2 oil|2 oil|5 oil -|free");
  EXPECT_EQ(StateDigest(), table) << "looking changes nothing";
  EXPECT_EQ(State().Random.State, dice);

  Click(1);
  EXPECT_EQ(plan_.Left.Caption.Get(), "Left after your plan: 1 oil, 1 hearts.");
  EXPECT_EQ(Joined(Hand(1), "|", Hand(2), "|", Hand(4)), "[2 oil]|2 oil -|free");
  EXPECT_FALSE(plan_.Warning.Visible);
  Click(2);
  EXPECT_EQ(Lines(), "Play Moth\nPlay Crab  -  Not enough left: it costs 2 oil.\n");
  EXPECT_EQ(plan_.Warning.Caption.Get(), "This will not work: Play Crab.");
  EXPECT_EQ(Hand(2), "[2 oil -]");

  plan_.Lines.Selected = 1;
  plan_.TakeBack.Click();
  EXPECT_EQ(Lines(), "Play Crab\n");
  EXPECT_FALSE(plan_.Warning.Visible) << "the other one can be paid now";
  plan_.TakeBack.Click();
  EXPECT_FALSE(plan_.TakeBack.Enabled);
  TakeTurn(0);
  EXPECT_EQ(TraitNumber(State().CardTable[State().Players[1].PlayerCard], "MANA"), 3);
  State().GameOver = 1;
  HideHand();
  EXPECT_FALSE(plan_.Panel.Visible);
}

/// A card that brings oil pays for the next one, as it will in the turn.
TEST_F(PlanPanelTest, EachPlaySeesThoseBeforeIt) {
  GiveAction(Deal(1, "Barrel", 3), "ENTERPLAY", "OWNER", "MODTRAIT:MANA:4");
  Deal(2, "Moth", 2);
  Click(1);
  Click(2);
  EXPECT_EQ(Lines(), "Play Barrel\nPlay Moth\n");
  EXPECT_EQ(plan_.Left.Caption.Get(), "Left after your plan: 2 oil, 1 hearts.");
  TakeTurn(0);
  EXPECT_EQ(TraitNumber(State().CardTable[State().Players[1].PlayerCard], "MANA"), 2);
}

TEST_F(PlanPanelTest, TargetsThatAreMissingAreToldOfAtOnce) {
  GiveAction(Deal(1, "Bolt", 1), "ENTERPLAY", "TARGETCARD", "REQTRAIT:CREATURE:MODTRAIT:HP:-1");
  Click(1);
  EXPECT_EQ(Lines(), "Play Bolt  -  It finds no target now.\n");
  Click(1);
  Card& crab = PutInPlay(MakeCard("Crab", 2, {"CREATURE", "HP:2"}));
  Click(1);
  EXPECT_EQ(Lines(), "Play Bolt  -  Click a target, or it picks one itself.\n");
  State().Links.Cards = {crab.GlobalID};
  WB_BeforeNavigate(Joined("CARD", crab.GlobalID));
  EXPECT_EQ(Lines(), "Play Bolt on Crab\n");

  Card& lamp = PutInPlay(MakeCard("Lamp", 1));
  GiveAction(lamp, "MENU:PHASE1:Burn", "TARGETCARD", "MODTRAIT:HP:-1");
  State().Links.DescribedCard = lamp.GlobalID;
  const std::string menu = Joined("MENUACTION:", lamp.GlobalID, ":1");
  CardDescWB_BeforeNavigate(menu);
  EXPECT_EQ(Lines(), "Play Bolt on Crab\nLamp: Burn  -  Now click its target.\n");
  WB_BeforeNavigate(Joined("CARD", crab.GlobalID));
  EXPECT_EQ(Lines(), "Play Bolt on Crab\nLamp: Burn, on Crab\n");
  plan_.TakeBack.Click();
  EXPECT_EQ(int{lamp.Effects[1].MenuState}, int{kMenuAction});
  EXPECT_EQ(Lines(), "Play Bolt on Crab\n");
  EXPECT_EQ(TraitNumber(crab, "HP"), 2) << "nothing was carried out";
}

}  // namespace
}  // namespace brindlemoor
