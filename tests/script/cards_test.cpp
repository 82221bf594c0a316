// Cards on their way into the table, their actions, and looking them up.
#include "core/cards.h"

#include "script/card_entry.h"
#include "script/card_setup.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using CardsTest = SessionTest;

TEST_F(CardsTest, ACardTakesTheFirstFreeSlot) {
  Card card = MakeCard("Goblin", 1, {"HP:5"});
  EXPECT_EQ(AddToTable(card), 1) << "a table with only free slots does not grow";
  for (int slot = 2; slot <= 41; ++slot) ASSERT_EQ(AddToTable(State().CardTable[1]), slot);
  EXPECT_EQ(State().CardTable[41].Traits[1], "HP:5") << "copied within the table that it grows";
  FreeCard(State().CardTable[3]);
  card.OwnerBit = 0;
  card.GlobalID = 0;
  EXPECT_EQ(AddToTable(card), 3);
  EXPECT_EQ(State().CardTable[3].Slot, 3);
  EXPECT_EQ(State().CardTable[3].OwnerBit, 1);
  EXPECT_NE(State().CardTable[3].GlobalID, 0);
  EXPECT_EQ(State().LastEntered, 3);
  EXPECT_EQ(card.Slot, 0) << "the caller's record is not the table's";
  EXPECT_EQ(AddToTable(Card()), 0);
  State().CardTable.Resize(32767);
  for (Card& filled : State().CardTable) filled.Name = "x";
  EXPECT_EQ(AddToTable(card), 0) << "a full table takes no more";
  EXPECT_NE(State().PhaseBanner, "");
}

TEST_F(CardsTest, ACardEntersPlayAtOnceAfterItsScriptsOrWithItsTrigger) {
  Card card = MakeCard("Veteran", 1, {"HP:5"});
  card.EntryScripts = "MODTRAIT:HP:2$|$SETTRAIT:RANK:3$|$";
  AddToTable(card);
  EXPECT_EQ(TraitNumber(State().CardTable[1], "HP"), 7);
  EXPECT_EQ(TraitNumber(State().CardTable[1], "RANK"), 3);
  EXPECT_EQ(State().CardTable[1].InPlay, 1);
  card.ActivateOn = "PHASE3";
  card.InPlay = 1;
  State().WaitingSlots.Reset(2);
  State().WaitingSlots[1] = 7;
  EXPECT_EQ(State().CardTable[AddToTable(card)].InPlay, 0);
  AddToTable(card);
  EXPECT_EQ(State().WaitingSlots[2], 2) << "free elements come first";
  EXPECT_EQ(State().WaitingSlots[3], 3);
  card.EntryScripts = "DESTROYME$|$";
  card.ActivateOn = Text();
  AddToTable(card);
  EXPECT_TRUE(IsFree(State().CardTable[4]));
  EXPECT_EQ(State().CardTable[4].InPlay, 0) << "a card that is gone enters no play";
}

TEST_F(CardsTest, ActionsFillFreeRecordsFirst) {
  Card card = MakeCard("Goblin", 1);
  const auto action = [&](int n) {
    const CardEffect& e = card.Effects[n];
    return Joined(e.Trigger, "|", int{e.MenuState}, e.MenuCaption, "|", e.TargetText, e.OwnerMask);
  };
  AddEffect(card, "DESTROYME", 7, "PHASE3", 0, "SELF");
  AddEffect(card, "REQENEMY:DESTROY", 0, "MENU:TURNSTART:Buy a booster", 0, "TARGETCARD");
  EXPECT_EQ(action(1), "PHASE3|0|SELF255");
  EXPECT_EQ(action(2), "TURNSTART|1Buy a booster|TARGETCARD2");
  // A freed record comes back without anything of the action that it held.
  card.Effects.Edit(2).Script = Text();
  AddEffect(card, "DESTROY", 2, "MENU:TURNSTART:Buy", 1, "ALL");
  EXPECT_EQ(card.Effects.UpperBound(), 2);
  EXPECT_EQ(action(2), "MENU:TURNSTART:Buy|0|ALL255") << "kept whole for trait action cards";
}

TEST_F(CardsTest, CardsAreFoundByIdNameAndOwner) {
  Card card = MakeCard("Goblin", 1);
  card.GlobalID = 123;
  for (int copies = 1; copies <= 2; ++copies) PutInPlay(card);
  EXPECT_EQ(FindSlot("123abc"), 1) << "the lowest slot of two";
  EXPECT_EQ(FindSlot("abc"), 0);
  EXPECT_EQ(FindSlot(123.5), 0);
  FreeCard(State().CardTable[1]);
  EXPECT_EQ(FindSlot("123"), 2) << "a dead card is not found";
  State().Collection.Append(card);
  EXPECT_EQ(FindInCollection(123), 2);
  EXPECT_EQ(FindInCollection(0), 0);

  const Card& owner = PutPlayerCard(2);
  EXPECT_EQ(OwnerCard(MakeCard("Orc", 2)), &owner);
  for (const int side : {0, 1, 3}) EXPECT_EQ(OwnerCard(MakeCard("Orc", side)), nullptr) << side;
  FreeCard(State().CardTable[owner.Slot]);
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
