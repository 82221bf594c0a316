// Cards as values, and tables whose elements stay where they are.
#include "core/records.h"

#include <gtest/gtest.h>

#include "script/parsed_script.h"
#include "text/joined.h"

namespace brindlemoor {
namespace {

TEST(SharedArrayTest, EachWayOfWritingLeavesTheCopyAlone) {
  SharedArray<Text> array(2);
  array.Edit(1) = "one";
  const SharedArray<Text> kept = array;
  EXPECT_TRUE(kept.SharesStorageWith(array)) << "a copy alone must cost nothing";
  array.Append("three");
  array = kept;
  array.Resize(1);
  array = kept;
  array.Edit(1) = "changed";
  EXPECT_EQ(kept.UpperBound(), 2);
  EXPECT_EQ(kept[1], "one");
  EXPECT_EQ(kept[0], "");
  EXPECT_EQ(kept[3], "") << "outside the array reads as empty";
}

TEST(TextTest, AppendingLeavesCopiesAloneAndForgetsTheParsedForm) {
  Text text;
  text.Append("", "");
  EXPECT_TRUE(text.empty());
  text.Append("HP", ":");
  const Text copy = text;
  text.Append("ARMOR:");
  EXPECT_EQ(text, "HP:ARMOR:");
  EXPECT_EQ(copy, "HP:") << "storage that is shared";

  std::string expected = text.Str();
  bool stayed = false;
  for (int word = 1; word <= 12; ++word) {
    EXPECT_FALSE(ParsedScript::Of(text).HasField(Joined(word))) << "the form of the text so far";
    const char* before = text.View().data();
    text.Append(Joined(word), ":");
    stayed = stayed || text.View().data() == before;
    EXPECT_TRUE(ParsedScript::Of(text).HasField(Joined(word))) << "the form of the longer text";
    expected += Joined(word, ":");
  }
  EXPECT_TRUE(stayed) << "storage that is not shared grows in place";
  text.Append("and ", text);
  EXPECT_EQ(text, Joined(expected, "and ", expected));
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
  table.Resize(1);
  table.Resize(2);
  EXPECT_EQ(table[2].Name, "") << "resized elements are fresh";
}

}  // namespace
}  // namespace brindlemoor
