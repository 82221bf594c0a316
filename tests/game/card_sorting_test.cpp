// The order of sorted piles, and tidying them.
#include "game/card_sorting.h"

#include <gtest/gtest.h>

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
  struct {
    const char* what;
    std::vector<const char*> names;
    const char* sorted;
  } const cases[] = {
      {"by character code",
       {"apple", "Zebra", "Apple", "\xC3\x84pfel"},
       "Apple, Zebra, apple, \xC3\x84pfel"},
      {"numbers in front", {"Ann", "10 Orcs", "9 Elves"}, "9 Elves, 10 Orcs, Ann"},
      {"only 0 itself and what is above 0 are numbers",
       {"1", "0 x", "-5", "Ann", "0", "0.0"},
       "0, 1, -5, 0 x, 0.0, Ann"},
      {"equal numbers stay", {"3 b", "2", "3 a", "3.0 c"}, "2, 3 b, 3 a, 3.0 c"},
      {"free records go behind", {"", "b", "", "a"}, "a, b, , "},
      {"so does this name", {"LASTSORT", "b", "", "zz"}, "b, zz, LASTSORT, "},
      {"one", {"a"}, "a"},
      {"none", {}, ""},
  };
  for (const auto& row : cases) {
    Pile pile;
    for (const char* name : row.names) pile.Append(MakeCard(name, 1));
    SortCards(pile, "NAME");
    EXPECT_EQ(Names(pile), row.sorted) << row.what;
  }
}

TEST_F(CardSortingTest, EverythingElseGoesDownwards) {
  // In order: the traits of the cards A, B, C and so on; a card with "" has none.
  struct {
    const char* spec;
    std::vector<const char*> traits;
    const char* sorted;
  } const cases[] = {
      {"TRAIT:HP", {"HP:3", "", "HP:12", "HP:0", "HP", "HP:3"}, "C, A, F, E, D, B"},
      // What does not read as a positive number is a text, and a text is above every number.
      {"TRAIT:HP", {"HP:12", "HP:-5", "HP:high", "HP:0 left"}, "C, D, B, A"},
      {"TRAIT:HP", {"HP:LASTSORT", "HP:1", "", "XP:9"}, "B, A, C, D"},
      {"HP", {"HP:high", "HP:-5", "", "HP:12", "HP:0"}, "D, A, E, B, C"},
      {"AILOVE", {"AILOVE:10", "AILOVE:-100", "", "AILOVE:10"}, "A, D, B, C"},
      {"name", {"NAME:1", "", "NAME:2"}, "C, A, B"},
      {"hp", {"HP:1", "HP:2"}, "B, A"},
  };
  for (const auto& row : cases) {
    Pile pile;
    for (const char* trait : row.traits) {
      const std::string name(1, static_cast<char>('A' + pile.UpperBound()));
      std::vector<std::string> traits;
      if (*trait != 0) traits.push_back(trait);
      pile.Append(MakeCard(name, 1, traits));
    }
    SortCards(pile, row.spec);
    EXPECT_EQ(Names(pile), row.sorted) << row.spec << " " << row.traits[0];
  }
}

TEST_F(CardSortingTest, FilledRecordsComeFirst) {
  Pile pile(5);
  pile[2] = MakeCard("b", 1, {"HP:3"});
  pile[5] = MakeCard("a", 1);
  const int globalId = pile[2].GlobalID;
  SortCards(pile, "EMPTY");
  EXPECT_EQ(Names(pile), "b, a, , , ");
  EXPECT_EQ(pile[1].GlobalID, globalId);
  EXPECT_EQ(TraitNumber(pile[1], "HP"), 3);
  EXPECT_TRUE(pile[3].Traits.UpperBound() == 0) << "whole records move";
}

TEST_F(CardSortingTest, TheCollectionIsSortedByTraitAndName) {
  Pile& collection = State().Collection;
  for (const auto& [name, trait] : std::vector<std::pair<const char*, const char*>>{
           {"d", "HP:1"}, {"", ""}, {"c", "HP:2"}, {"a", "HP:1"}, {"b", "XP:1"}}) {
    Card card = MakeCard(name, 1);
    if (*name != 0) card = MakeCard(name, 1, {trait});
    collection.Append(card);
  }
  SortCollectionByTrait("HP");
  EXPECT_EQ(Names(collection), "c, a, d, b, , ");
  SortCollection();
  EXPECT_EQ(Names(collection), "a, b, c, d");
}

TEST_F(CardSortingTest, CompactingKeepsOrderAndAnEmptyPile) {
  Pile& collection = State().Collection;
  collection.Reset(3);
  CompactCollection();
  EXPECT_EQ(collection.UpperBound(), 3);
  for (const char* name : {"b", "", "a", ""}) collection.Append(MakeCard(name, 1));
  CompactCollection();
  EXPECT_EQ(Names(collection), "b, a");
  CompactCollection();
  EXPECT_EQ(Names(collection), "b, a");
}

TEST_F(CardSortingTest, ShufflingKeepsTheCards) {
  std::string sorted;
  Pile pile;
  for (char name = 'a'; name <= 'z'; ++name) pile.Append(MakeCard(std::string(1, name), 1));
  sorted = Names(pile);
  for (const std::uint64_t seed : {1, 2, 3}) {
    State().Random.State = seed;
    Pile shuffled = pile;
    ShuffleCards(shuffled);
    EXPECT_NE(Names(shuffled), sorted);
    SortCards(shuffled, "NAME");
    EXPECT_EQ(Names(shuffled), sorted);
  }
}

}  // namespace
}  // namespace brindlemoor
