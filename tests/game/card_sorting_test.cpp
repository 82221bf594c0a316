// The order of sorted piles, and tidying them.
#include "game/card_sorting.h"

#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

using CardSortingTest = SessionTest;

std::string Names(const Pile& pile) {
  std::string names;
  for (const Card& card : pile) names += (names.empty() ? "" : ", ") + card.Name.Str();
  return names;
}

TEST_F(CardSortingTest, NamesGoUpwards) {
  const struct {
    std::vector<const char*> names;
    const char* sorted;
  } cases[] = {
      {{"apple", "Zebra", "Apple", "\xC3\x84pfel"}, "Apple, Zebra, apple, \xC3\x84pfel"},
      {{"Ann", "10 Orcs", "9 Elves"}, "9 Elves, 10 Orcs, Ann"},
      // Only 0 itself and what is above 0 are numbers.
      {{"1", "0 x", "-5", "Ann", "0", "0.0"}, "0, 1, -5, 0 x, 0.0, Ann"},
      {{"3 b", "2", "3 a", "3.0 c"}, "2, 3 b, 3 a, 3.0 c"},
      {{"", "b", "", "a"}, "a, b, , "},
      {{"LASTSORT", "b", "", "zz"}, "b, zz, LASTSORT, "},
      {{"a"}, "a"},
      {{}, ""},
  };
  for (const auto& row : cases) {
    Pile pile;
    for (const char* name : row.names) pile.Append(MakeCard(name, 1));
    SortCards(pile, "NAME");
    EXPECT_EQ(Names(pile), row.sorted);
  }
}

TEST_F(CardSortingTest, EverythingElseGoesDownwards) {
  // In order: the traits of the cards A, B, C and so on; a card with "" has none.
  const struct {
    const char* spec;
    std::vector<std::string> traits;
    const char* sorted;
  } cases[] = {
      {"TRAIT:HP", {"HP:3", "", "HP:12", "HP:0", "HP", "HP:3"}, "C, A, F, E, D, B"},
      // What does not read as a positive number is a text, and a text is above every number.
      {"TRAIT:HP", {"HP:12", "HP:-5", "HP:high", "HP:0 left"}, "C, D, B, A"},
      {"TRAIT:HP", {"HP:LASTSORT", "HP:1", "", "XP:9"}, "B, A, C, D"},
      {"HP", {"HP:high", "HP:-5", "", "HP:12", "HP:0"}, "D, A, E, B, C"},
      {"AILOVE", {"AILOVE:10", "AILOVE:-100", "", "AILOVE:10"}, "A, D, B, C"},
      {"name", {"NAME:1", "", "NAME:2"}, "C, A, B"},
  };
  for (const auto& row : cases) {
    Pile pile;
    for (const std::string& trait : row.traits) {
      const std::string name(1, static_cast<char>('A' + pile.UpperBound()));
      pile.Append(trait.empty() ? MakeCard(name, 1) : MakeCard(name, 1, {trait}));
    }
    SortCards(pile, row.spec);
    EXPECT_EQ(Names(pile), row.sorted) << row.spec << " " << row.traits[0];
  }
}

TEST_F(CardSortingTest, TheCollectionIsSortedAndLosesItsFreeRecords) {
  Pile& collection = State().Collection;
  collection.Append(MakeCard("d", 1, {"HP:1"}));
  collection.Append(Card());
  collection.Append(MakeCard("c", 1, {"HP:2"}));
  collection.Append(MakeCard("a", 1, {"HP:1"}));
  SortCollectionByTrait("HP");
  EXPECT_EQ(Names(collection), "c, a, d, , ");
  SortCards(collection, "EMPTY");
  EXPECT_EQ(Names(collection), "c, a, d, , ");
  EXPECT_EQ(TraitNumber(collection[1], "HP"), 2);
  EXPECT_EQ(collection[4].Traits.UpperBound(), 0) << "whole records move";
  CompactCollection();
  EXPECT_EQ(Names(collection), "c, a, d");
  SortCollection();
  EXPECT_EQ(Names(collection), "a, c, d");
}

TEST_F(CardSortingTest, ShufflingKeepsTheCards) {
  Pile pile;
  for (char name = 'a'; name <= 'z'; ++name) pile.Append(MakeCard(std::string(1, name), 1));
  const std::string sorted = Names(pile);
  ShuffleCards(pile);
  EXPECT_NE(Names(pile), sorted);
  SortCards(pile, "NAME");
  EXPECT_EQ(Names(pile), sorted);
}

}  // namespace
}  // namespace brindlemoor
