// What a turn brought, and what came to nothing, as the player reads it above the report.
#include "ui/turn_story.h"

#include "game/turn.h"
#include "game/windows.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class TurnStoryTest : public SessionTest {
 protected:
  TurnStoryTest() {
    Card price = MakeCard("OIL", 1);
    GiveAction(price, "COST", "OWNER", "SUBTRAIT:MANA:SRCTRAIT/OIL");
    State().TraitActions[1] = price;
    PutPlayerCard(1, {"HP:9", "MANA:3", "INVISIBLE"});
    PutPlayerCard(2, {"HP:9", "INVISIBLE"});
    State().CurrentGame = 1;
    for (int position = 1; position <= 3; ++position) Deal(position, Joined("Card ", position), 2);
  }
  Card& Deal(int position, std::string_view name, int oil) {
    Card card = MakeCard(name, 1, {Joined("OIL:", oil)});
    GiveAction(card, "COST", "OWNER", Joined("SUBTRAIT:MANA:", oil));
    return State().Players[1].Hand[position] = card;
  }
  Card& Put(std::string_view name, int owner, int hp) {
    return PutInPlay(MakeCard(name, owner, {Joined("HP:", hp)}));
  }
  static void Rule(std::string_view target, std::string_view script) {
    GiveAction(State().RulesCard, "PHASE1", target, script);
  }
  std::string Turn() {
    window_.Command1.Click();
    return window_.Story.Lines.Text.Get();
  }
  void ClickHand(std::size_t position) { window_.Picture2[position]->MouseUp(MouseButton::kLeft); }

  MainWindow& window_ = TheMainWindow();
};

TEST_F(TurnStoryTest, ItTellsOfBothSidesWhatIsDifferentNow) {
  EXPECT_EQ(Turn(), "Nothing has changed on the table.");
  Put("Crab", 2, 5);
  Put("Eel", 2, 2);
  Put("Moth", 1, 4);
  Put("Snail", 1, 1);
  Put("Fog", 2, 0);
  State().Players[1].Deck.Reset(2);
  State().Players[1].Deck[2] = MakeCard("Lantern", 1);
  InitCard(State().RulesCard, 0, 0);
  State().RulesCard.Name = "Rules";
  Rule("ALL", "REQNAME:Crab:SUBTRAIT:HP:3");
  Rule("ALL", "REQNAME:Moth:MODTRAIT:HP:2");
  Rule("ALL", "REQNAME:Eel:DESTROY");
  Rule("ALL", "REQNAME:Fog:DESTROY");
  Rule("ALL", "REQNAME:Snail:MINDCONTROL");
  GiveAction(State().RulesCard, "PHASE2", "ALL", "REQNAME:Crab:SUBTRAIT:HP:1:MODTOKENS:7");
  ClickHand(1);
  EXPECT_EQ(Turn(),
            "Your side: Moth +2 HP (6 left), Card 1 came, 7 tokens earned.\n"
            "The other side: Crab -4 HP (1 left), Eel died, Snail changed sides, Fog went.");
}

/// The report hides these between the plays, or is silent about them.
TEST_F(TurnStoryTest, WhatWasPlannedAndCameToNothingIsToldWithTheReason) {
  GiveAction(State().Players[1].Hand[1], "ENTERPLAY", "TARGETCARD",
             "REQTRAIT:CREATURE:MODTRAIT:HP:-1");
  Card& lamp = Put("Lamp", 1, 3);
  GiveAction(lamp, "MENU:PHASE1:Burn", "SELF", "REQTRAITMORE:HP:9:MODTRAIT:HP:-1");
  GiveAction(lamp, "MENU:PHASE1:Rest", "SELF", "MODTRAIT:HP:1");
  for (const int effect : {1, 2}) lamp.Effects.Edit(effect).MenuState = kArmedMenuAction;
  Card& foe = Put("Foe", 2, 3);
  GiveAction(foe, "MENU:PHASE1:Burn", "SELF", "REQTRAITMORE:HP:9:MODTRAIT:HP:-1");
  RebuildHitTable();
  for (const std::size_t position : {1, 2, 3}) ClickHand(position);
  const std::string story = Turn();
  EXPECT_EQ(story.substr(0, story.find('\n')),
            "Came to nothing: Card 1 (It found no target); Card 2 (Too dear at 2 oil); Card 3 (Too "
            "dear at 2 oil); Lamp: Burn (Requires HP trait of 9 or more).");
  EXPECT_EQ(window_.Story.Lines.Runs(story).size(), 2) << "each line's title has its colour";
  EXPECT_EQ(Turn(), "Nothing has changed on the table.") << "of this turn alone";
}

/// A match is the same, byte by byte, whether or not somebody is told what it brings.
TEST_F(TurnStoryTest, TellingChangesNeitherReportNorDice) {
  Put("Crab", 2, 5);
  SetTrait(Put("Eel", 2, 2), "BONUSHP", "R2Die006", 1);
  Rule("RANDOM", "REQTRAIT:HP:SUBTRAIT:HP:1:ECHO:$TARGETNAME is wet.");
  State().PlayQueue[1] = 1;
  State().PlayQueue[2] = 2;
  const Session start = State();
  const auto play = [this](const GameWindows& windows) {
    State().Windows = &windows;
    TakeTurn(0);
    return Joined(State().Random.State, ReadFile("LastDiplayed.html"));
  };
  const std::string told = play(Windows());
  EXPECT_EQ(State().LastTurn.Refusals.size(), 1);
  EXPECT_NE(told.find("is wet."), std::string::npos);
  EXPECT_NE(told.find("You do not have enough resources to play"), std::string::npos);
  State() = start;
  EXPECT_EQ(play(kNoWindows), told);
}

}  // namespace
}  // namespace brindlemoor
