// Cards on their way into the table, their actions, and looking them up.
#include "core/cards.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using CardsTest = SessionTest;

TEST_F(CardsTest, AFreshRecordIsReadyForUse) {
  Card card;
  card.Slot = 9;
  card.TraitBits[3] = 7;
  card.OwnerBit = 4;
  InitCard(card, 2, 1);
  EXPECT_EQ(card.Slot, 0);
  EXPECT_EQ(card.Effects.UpperBound(), 1);
  EXPECT_EQ(card.Traits.UpperBound(), 1);
  EXPECT_EQ(card.TraitCaptions.UpperBound(), 1);
  EXPECT_EQ(card.TraitBits, TraitWords());
  EXPECT_EQ(card.OwnerBit, 2);
  EXPECT_EQ(card.NameColor, "#FFFFFF");
  EXPECT_EQ(card.InPlay, 1);
  EXPECT_GT(card.GlobalID, 0);
  InitCard(card, 3, 0);
  EXPECT_EQ(card.OwnerBit, 2) << "an owner without a bit leaves the present one";
  InitCard(card, 0, 0);
  EXPECT_EQ(card.OwnerBit, 4);
  PlayerState player;
  InitPlayer(player, 5);
  EXPECT_EQ(player.Deck.UpperBound(), 1);
  EXPECT_EQ(player.SparePile.UpperBound(), 1);
  EXPECT_EQ(player.Hand.UpperBound(), 10);
  EXPECT_EQ(player.PlayerNo, 5);
}

TEST_F(CardsTest, ACardTakesTheFirstFreeSlot) {
  Card card = MakeCard("Goblin", 1);
  EXPECT_EQ(AddToTable(card), 1) << "a table with only free slots does not grow";
  EXPECT_EQ(State().CardTable.UpperBound(), 1);
  for (int slot = 2; slot <= 5; ++slot) ASSERT_EQ(AddToTable(card), slot);
  FreeCard(State().CardTable[3]);
  card.Name = "Orc";
  card.GlobalID = 4711;
  card.OwnerBit = 0;
  card.InPlay = 1;
  EXPECT_EQ(AddToTable(card), 3);
  const Card& placed = State().CardTable[3];
  EXPECT_EQ(placed.Name, "Orc");
  EXPECT_EQ(placed.Slot, 3);
  EXPECT_EQ(placed.GlobalID, 4711);
  EXPECT_EQ(placed.OwnerBit, 1);
  EXPECT_EQ(State().LastEntered, 3);
  EXPECT_EQ(card.Slot, 0) << "the caller's record is not the table's";
  card.GlobalID = 0;
  EXPECT_NE(State().CardTable[AddToTable(card)].GlobalID, 0);
  EXPECT_EQ(AddToTable(Card()), 0);
}

TEST_F(CardsTest, ACardMayBeCopiedWithinTheTableThatItGrows) {
  AddToTable(MakeCard("Goblin", 1, {"HP:5"}));
  for (int n = 0; n < 40; ++n) AddToTable(State().CardTable[1]);
  EXPECT_EQ(State().CardTable[41].Traits[1], "HP:5");
}

TEST_F(CardsTest, AFullTableTakesNoMoreCards) {
  State().CardTable.Resize(32767);
  for (Card& card : State().CardTable) card.Name = "x";
  EXPECT_EQ(AddToTable(MakeCard("Goblin", 1)), 0);
  EXPECT_EQ(State().CardTable.UpperBound(), 32767);
  EXPECT_NE(State().PhaseBanner, "");
}

TEST_F(CardsTest, ACardWaitsForTheTriggerThatActivatesIt) {
  Card card = MakeCard("Sleeper", 1);
  card.ActivateOn = "PHASE3";
  card.InPlay = 1;
  State().WaitingSlots.Reset(2);
  State().WaitingSlots[1] = 7;
  const int slot = AddToTable(card);
  EXPECT_EQ(State().CardTable[slot].InPlay, 0);
  EXPECT_EQ(State().WaitingSlots[2], slot);
  const int next = AddToTable(card);
  ASSERT_EQ(State().WaitingSlots.UpperBound(), 3);
  EXPECT_EQ(State().WaitingSlots[3], next);
}

TEST_F(CardsTest, EntryScriptsRunBeforeTheCardIsInPlay) {
  Card card = MakeCard("Veteran", 1, {"HP:5"});
  card.EntryScripts = "MODTRAIT:HP:2$|$SETTRAIT:RANK:3$|$";
  const Card& placed = State().CardTable[AddToTable(card)];
  EXPECT_EQ(GetTrait(placed, "HP").Number(), 7);
  EXPECT_EQ(GetTrait(placed, "RANK").Number(), 3);
  EXPECT_EQ(placed.InPlay, 1);

  card.EntryScripts = "DESTROYME$|$";
  const int slot = AddToTable(card);
  EXPECT_TRUE(IsFree(State().CardTable[slot]));
  EXPECT_EQ(State().CardTable[slot].InPlay, 0) << "a card that is gone enters no play";
}

TEST_F(CardsTest, ActionsFillFreeRecordsFirst) {
  Card card = MakeCard("Goblin", 1);
  AddEffect(card, "DESTROYME", 7, "PHASE3", 0, "SELF");
  EXPECT_EQ(card.Effects.UpperBound(), 1);
  AddEffect(card, "REQENEMY:DESTROY", 0, "MENU:TURNSTART:Purchase a booster", 0, "TARGETCARD");
  ASSERT_EQ(card.Effects.UpperBound(), 2);
  EXPECT_EQ(card.Effects[1].Trigger, "PHASE3");
  EXPECT_EQ(card.Effects[1].MenuState, kOrdinaryAction);
  EXPECT_EQ(card.Effects[1].TargetText, "SELF");
  EXPECT_EQ(card.Effects[1].OwnerMask, 255);
  EXPECT_EQ(card.Effects[2].Trigger, "TURNSTART");
  EXPECT_EQ(card.Effects[2].MenuState, kMenuAction);
  EXPECT_EQ(card.Effects[2].MenuCaption, "Purchase a booster");
  EXPECT_EQ(card.Effects[2].OwnerMask, 2);

  // A freed record comes back without anything of the action that it held.
  card.Effects.Edit(2).Script = Text();
  AddEffect(card, "DESTROY", 2, "MENU:TURNSTART:Buy", 1, "ALL");
  ASSERT_EQ(card.Effects.UpperBound(), 2);
  EXPECT_EQ(card.Effects[2].Trigger, "MENU:TURNSTART:Buy") << "kept whole for trait action cards";
  EXPECT_EQ(card.Effects[2].MenuState, kOrdinaryAction);
  EXPECT_EQ(card.Effects[2].MenuCaption, "");
  EXPECT_EQ(card.Effects[2].OwnerMask, 255);

  Card blank;
  AddEffect(blank, "DESTROY", 2, "PHASE1", 0, "ALL");
  EXPECT_EQ(blank.Initialised, 1);
  EXPECT_EQ(blank.Owner, 1);
  EXPECT_EQ(blank.Effects[1].Script, "DESTROY");
}

TEST_F(CardsTest, CardsAreFoundByTheirGlobalId) {
  Card card = MakeCard("Goblin", 1);
  card.GlobalID = 123;
  PutInPlay(MakeCard("Orc", 1));
  PutInPlay(card);
  PutInPlay(card);
  EXPECT_EQ(FindSlot("123"), 2) << "the lowest slot of two";
  EXPECT_EQ(FindSlot("123abc"), 2);
  EXPECT_EQ(FindSlot(""), 0);
  EXPECT_EQ(FindSlot("abc"), 0);
  EXPECT_EQ(FindSlot(123.5), 0);
  FreeCard(State().CardTable[2]);
  EXPECT_EQ(FindSlot("123"), 3) << "a dead card is not found";
  State().Collection.Append(card);
  EXPECT_EQ(FindInCollection(123), 2);
  EXPECT_EQ(FindInCollection(0), 0);
}

TEST_F(CardsTest, TheStartDeckIsSearchedAsFarAsTheDeckReaches) {
  PlayerState& player = State().Players[1];
  player.StartDeck.Reset(1);
  player.StartDeck.Append(MakeCard("Goblin", 1));
  player.StartDeck.Append(MakeCard("Orc", 1));
  player.Deck.Reset(2);
  EXPECT_EQ(FindInStartDeck(player, "Goblin").Name, "Goblin");
  EXPECT_EQ(FindInStartDeck(player, "Orc").Name, "");
  player.Deck.Reset(9);
  EXPECT_EQ(FindInStartDeck(player, "Orc").Name, "Orc");
  EXPECT_EQ(FindInStartDeck(player, "Troll").Name, "");
}

TEST_F(CardsTest, PendingCardsEnterTogetherAndLaterOnesWait) {
  FlushPending();
  QueuePending(MakeCard("First", 1));
  Card freed = MakeCard("Gone", 1);
  FreeCard(freed);
  QueuePending(freed);
  // What this card's entry script queues must not be lost with the list that is being walked.
  Card breeder = MakeCard("Breeder", 1);
  breeder.EntryScripts = "DUPLICATEME:1:0$|$";
  QueuePending(breeder);
  EXPECT_EQ(State().PendingCount, 3);
  FlushPending();
  ASSERT_EQ(State().CardTable.UpperBound(), 2);
  EXPECT_EQ(State().CardTable[1].Name, "First");
  EXPECT_EQ(State().CardTable[2].Name, "Breeder");
  EXPECT_EQ(State().PendingCount, 1);
  FlushPending();
  EXPECT_EQ(State().CardTable.UpperBound(), 3);
}

TEST_F(CardsTest, TheOwnersCardIsTheLivingPlayerCardOfItsSide) {
  const Card& player = PutPlayerCard(2);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 2)), &player);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 1)), nullptr);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 0)), nullptr);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 3)), nullptr);
  FreeCard(State().CardTable[player.Slot]);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 2)), nullptr);
}

TEST_F(CardsTest, ACardSellsByItsRarity) {
  Card card;
  for (const auto& [rarity, value] : {std::pair{0, 1}, {9, 1}, {10, 2}, {101, 11}, {255, 26}}) {
    card.Rarity = static_cast<std::uint8_t>(rarity);
    EXPECT_EQ(SellValue(card), value) << rarity;
  }
}

}  // namespace
}  // namespace brindlemoor
