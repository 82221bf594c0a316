// Test positions of the deck manager, and decks in the middle of a match.
#include "game/turn.h"
#include "language/target_types.h"
#include "script/card_entry.h"
#include "script/triggers.h"
#include "tests/ui/deck_manager_session.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class TestPositionTest : public DeckManagerSession {};

TEST_F(TestPositionTest, ATestPositionIsLaidOutAndPlayed) {
  WriteFile("rules.txt", "#RULESCARD\n#EFFECT, SELF, TURNSTART, \"ECHO:the sun rises\"\n");
  PutPlayerCard(1);
  PutInPlay(MakeCard("Leftover", 1));
  State().Players[2].Hand[1] = MakeCard("Leftover", 2);
  State().Decks[1].Cards.Reset(0);
  for (int card = 1; card <= 12; ++card) {
    State().Decks[1].Cards.Append(MakeCard(Joined("C", card / 10, card % 10), 1));
  }
  State().Decks[2].Cards[1] = MakeCard("King", 2, {"PLAYER:1"});
  State().Decks[3].Cards[1] = MakeCard("Ogre", 1);
  Open(kTestPosition);
  desktop_->ExpectedMessages = {"Please choose the rules file to use for this card set.",
                                "Please choose the rules file to use for this card set.",
                                "Please choose the rules file to use for this card set."};
  desktop_->FileAnswers = {std::nullopt, "/else/where/none.txt", "/game/rules.txt"};
  form_.Command2.Click();
  EXPECT_TRUE(form_.Shown && State().DeckManagerMode == kTestPosition) << "cancelled";
  form_.Command2.Click();
  EXPECT_FALSE(form_.Shown);
  EXPECT_TRUE(TheMainWindow().Shown);
  EXPECT_EQ(State().GameFileName, "rules.txt");
  EXPECT_EQ(Joined(int{State().TestFromEditor}, int{State().DebugMode}), "11");
  EXPECT_EQ(Names(State().Players[1].Hand), "C01 C02 C03 C04 C05 C06 C07 C08 C09 - ");
  EXPECT_EQ(Names(State().Players[1].Deck), "- C10 C11 C12 ");
  EXPECT_EQ(Names(State().Players[2].Hand), "- - - - - - - - - - ");
  EXPECT_EQ(Names(State().CardTable), "King Ogre ");
  EXPECT_EQ(State().CardTable[1].Owner, 1);
  EXPECT_EQ(State().CardTable[2].Owner, 2);
  EXPECT_EQ(State().Players[1].PlayerCard, 1);
  EXPECT_NE(desktop_->Pages["WB"].find("the sun rises"), std::string::npos);
}

/// Else plans of an earlier game would play and discard the author's cards.
TEST_F(TestPositionTest, ATestPositionBeginsWithoutThePlansOfTheGameBefore) {
  WriteFile("rules.txt", "#RULESCARD\n");
  State().GameFileName = "rules.txt";
  Session& state = State();
  Card& king = PutPlayerCard(1);
  AddEffect(king, "ECHO:armed in another game", kTargetSelf, "MENU:ONDEATH:Curse", 0, "SELF");
  king.Effects.Edit(1).MenuState = kArmedMenuAction;
  Card& goblin = PutInPlay(MakeCard("Goblin", 1));
  AddEffect(goblin, "MODTRAIT:HP:1", kTargetSelf, "PHASE1", 0, "SELF");
  RegisterAllHits(goblin);
  Card waiting = MakeCard("Sleeper", 1);
  waiting.ActivateOn = "PHASE3";
  AddToTable(waiting);
  QueuePending(MakeCard("Pending", 1));
  for (int position = 1; position <= 2; ++position) {
    state.Players[1].Hand[position] = MakeCard("Old", 1);
    QueuePlay(position, position == 1 ? 0 : -1);
  }
  state.AwaitingPlayTarget = state.AwaitingMenuTarget = 1;
  state.SelectedSlot = 2;
  ShowPlayMenu();
  state.Decks[1].Cards.Reset(0);
  for (const char* name : {"New1", "New2"}) state.Decks[1].Cards.Append(MakeCard(name, 1));
  state.Decks[2].Cards[1] = MakeCard("Ogre", 1);
  Open(kTestPosition);
  form_.Command2.Click();

  EXPECT_EQ(
      Joined(int{state.PlayQueue[1]}, int{state.PlayQueue[2]}, state.PlayTarget[2],
             int{state.AwaitingPlayTarget}, int{state.AwaitingMenuTarget}, state.SelectedSlot),
      "000000");
  EXPECT_EQ(desktop_->Pages["InPlayWB"].find("Old"), std::string::npos);
  EXPECT_EQ(desktop_->Pages["WB"].find("armed in another game"), std::string::npos);
  EXPECT_EQ(Names(state.CardTable), "Ogre - - ") << "nothing comes that waited before";
  for (const auto& hits : state.HitTable) EXPECT_TRUE(hits.empty());
  EXPECT_EQ(state.WaitingSlots[1], 0);
  TakeTurn(0);
  EXPECT_EQ(Names(state.Players[1].Hand), "New1 New2 - - - - - - - - ");
}

TEST_F(TestPositionTest, InMidGameArmedActionsKeepTheirCards) {
  Own({"Elf", "Orc"});
  Card& actor = PutInPlay(MakeCard("Mage", 1));
  for (const int target : {1, 2}) {
    AddEffect(actor, "MODTRAIT:HP:1", kTargetCollection, "MENU:PHASE1:Train", 0, "COLLECTION");
    actor.Effects.Edit(target).MenuState = kArmedMenuAction;
    actor.Effects.Edit(target).ChosenTarget = target;
  }
  desktop_->ModalForms.emplace_back([this](Form&) {
    EXPECT_EQ(State().DeckManagerInGame, 1);
    form_.Option1[1]->Click();
    ClickCollection(1);  // Orc into deck 2
    desktop_->AcceptMessages = true;
    form_.Command5.Click();
    desktop_->YesNoAnswers = {true};
    ClickCollection(0);  // Elf is sold
    EXPECT_FALSE(form_.QueryClose());
  });
  const auto planned = [this] {
    const std::string& plan = desktop_->Pages["InPlayWB"];
    const auto first = plan.find("in their collection.");
    return (first != plan.npos) + (plan.find("in their collection.", first + 1) != plan.npos);
  };
  ShowPlayMenu();
  EXPECT_EQ(planned(), 2);
  TheMainWindow().deckmanagermen.Click();
  EXPECT_EQ(planned(), 1) << "the plan page says what is planned";
  EXPECT_EQ(actor.Effects[1].MenuState, kMenuAction) << "its card has gone";
  EXPECT_EQ(Joined(actor.Effects[2].MenuState, actor.Effects[2].ChosenTarget,
                   int{actor.Effects[2].PickedPile}),
            "212");
  State().TurnRunning = 1;
  TheMainWindow().deckmanagermen.Click();  // no second form: a turn runs
  EXPECT_EQ(State().DeckManagerInGame, 0);
}

}  // namespace
}  // namespace brindlemoor
