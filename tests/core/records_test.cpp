// Cards as values, and tables whose elements stay where they are.
#include "core/records.h"

#include <gtest/gtest.h>

#include "core/state.h"

namespace brindlemoor {
namespace {

/// Gives every field of a card another content, a different one for each number.
void FillCard(Card& card, int n) {
  const Text text = Joined("text ", n);
  for (Text* field : {&card.Name, &card.Picture, &card.Thumb, &card.AuxText, &card.Description,
                      &card.NameColor, &card.ChangedTraits, &card.SourceFile, &card.UniqueID,
                      &card.ActivateOn, &card.EntryScripts}) {
    *field = text;
  }
  card.Traits.Resize(n + 1);
  card.Traits.Edit(1) = text;
  card.TraitCaptions.Resize(n + 1);
  card.TraitCaptions.Edit(1) = text;
  card.Effects.Resize(n + 1);
  card.Effects.Edit(1).Script = text;
  card.Effects.Edit(1).NeedMyBits[8] = static_cast<std::uint32_t>(n);
  card.InPlay = card.Owner = card.Initialised = static_cast<std::uint8_t>(n);
  card.TraitActionsApplied = card.Rarity = static_cast<std::uint8_t>(n);
  card.TargetSlot = card.StoredTarget = card.Slot = static_cast<std::int16_t>(n);
  card.GlobalID = card.OwnerBit = n;
  card.TraitBits[1] = card.TraitBits[8] = static_cast<std::uint32_t>(n);
}

/// What a card holds, as one text.
std::string Described(const Card& card) {
  std::string out;
  for (const Text& field :
       {card.Name, card.Picture, card.Thumb, card.AuxText, card.Description, card.NameColor,
        card.ChangedTraits, card.SourceFile, card.UniqueID, card.ActivateOn, card.EntryScripts}) {
    out += Joined(field, "|");
  }
  for (const Text& item : card.Traits) out += Joined("t", item, "|");
  for (const Text& item : card.TraitCaptions) out += Joined("c", item, "|");
  for (const CardEffect& effect : card.Effects) {
    out += Joined("e", effect.Script, effect.NeedMyBits[8], "|");
  }
  for (const int number :
       {int{card.InPlay}, int{card.Owner}, int{card.Initialised}, int{card.TraitActionsApplied},
        int{card.Rarity}, int{card.TargetSlot}, int{card.StoredTarget}, int{card.Slot},
        int{card.GlobalID}, int{card.OwnerBit}, static_cast<int>(card.TraitBits[1]),
        static_cast<int>(card.TraitBits[8])}) {
    out += Joined(number, "|");
  }
  return out;
}

TEST(CardTest, ACopyAndItsOriginalNeverSeeEachOthersChanges) {
  Card original;
  FillCard(original, 1);
  const std::string first = Described(original);
  Card copy = original;
  ASSERT_EQ(Described(copy), first);
  FillCard(copy, 2);
  const std::string second = Described(copy);
  EXPECT_NE(second, first);
  EXPECT_EQ(Described(original), first);
  Card assigned;
  assigned = copy;
  FillCard(copy, 3);
  EXPECT_EQ(Described(assigned), second);
  FillCard(original, 4);
  EXPECT_EQ(Described(assigned), second);
  EXPECT_NE(Described(copy), second);
}

TEST(CardTest, EachWayOfWritingAnArrayLeavesTheCopyAlone) {
  SharedArray<Text> array(2);
  array.Edit(1) = "one";
  const SharedArray<Text> kept = array;
  EXPECT_TRUE(kept.SharesStorageWith(array)) << "a copy alone must cost nothing";
  array.Append("three");
  EXPECT_EQ(kept.UpperBound(), 2);
  array = kept;
  array.Resize(1);
  EXPECT_EQ(kept.UpperBound(), 2);
  array = kept;
  array.Edit(1) = "changed";
  EXPECT_EQ(kept[1], "one");
  EXPECT_EQ(kept[0], "");
  EXPECT_EQ(kept[3], "") << "outside the array reads as empty";
}

TEST(TableTest, ElementsKeepTheirAddressWhileTheTableGrowsAndIsAssigned) {
  Pile table(3);
  Card* second = &table[2];
  second->Name = "Goblin";
  for (int added = 0; added < 500; ++added) table.Append(Card());
  EXPECT_EQ(&table[2], second);
  EXPECT_EQ(table.UpperBound(), 503);
  Pile snapshot = table;
  second->Name = "Orc";
  EXPECT_EQ(snapshot[2].Name, "Goblin");
  table = snapshot;
  EXPECT_EQ(&table[2], second);
  EXPECT_EQ(second->Name, "Goblin");
}

TEST(TableTest, ResizedElementsAreFresh) {
  Table<Text> table;
  EXPECT_EQ(table.Append("one"), 1);
  EXPECT_EQ(table.Append("two"), 2);
  table.Resize(1);
  table.Resize(2);
  EXPECT_EQ(table[2], "");
  EXPECT_EQ(table[1], "one");
  table.Reset(2);
  EXPECT_EQ(table[1], "");
  const Table<Text> moved = std::move(table);
  EXPECT_EQ(moved.UpperBound(), 2);
  int count = 0;
  for (const Text& text : moved) count += text.empty() ? 1 : 0;
  EXPECT_EQ(count, 2);
}

/// Notes its own end.
struct Marker : TextAttachment {
  explicit Marker(int& count) : ends(count) {}
  ~Marker() override { ++ends; }
  int& ends;
};

TEST(TextTest, WhatIsAttachedLivesAsLongAsTheTextInAnyCopy) {
  int ends = 0;
  Text copy;
  {
    const Text text("script");
    text.Attach(std::make_unique<Marker>(ends));
    copy = text;
    EXPECT_EQ(Text("script").Attachment(), nullptr);
  }
  EXPECT_EQ(ends, 0);
  EXPECT_NE(copy.Attachment(), nullptr);
  copy = Text("other");
  EXPECT_EQ(ends, 1);
  Text().Attach(std::make_unique<Marker>(ends));
  EXPECT_EQ(ends, 2) << "an empty text keeps nothing";
}

TEST(InternTextTest, EqualTextsShareOneStorageAndTheTableIsBounded) {
  State() = Session{};
  const Text first = InternText(std::string("REQALLY:") + "DESTROYME");
  EXPECT_TRUE(first.SharesStorageWith(InternText("REQALLY:DESTROYME")));
  EXPECT_FALSE(first.SharesStorageWith(InternText("REQALLY")));
  for (int n = 0; n < 30000; ++n) EXPECT_EQ(InternText(Joined("s", n)), Joined("s", n));
  EXPECT_LE(State().InternedTexts.size(), 10000U);
  EXPECT_EQ(first, "REQALLY:DESTROYME") << "texts in use outlive the table";
  EXPECT_EQ(InternText("").size(), 0U);
  State() = Session{};
}

TEST(ProblemsTest, AreKeptInOrderUpToABound) {
  State() = Session{};
  for (int line = 1; line <= 5000; ++line) AddProblem("rules.txt", line, "odd");
  EXPECT_EQ(State().Problems.front().Line, 1);
  EXPECT_EQ(State().Problems.front().File, "rules.txt");
  EXPECT_LE(State().Problems.size(), 2000U);
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
