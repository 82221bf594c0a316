// The lists of the card editor without a window: the place of the edited card, the unsaved file.
#include "editor/edited_lists.h"

#include "core/strings.h"
#include "data/card_file_writer.h"
#include "game/card_sorting.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class EditedListsTest : public SessionTest {
 protected:
  EditedListsTest() {
    State().Collection.Resize(0);
    for (const char* name : {"Cat", "Ape", "Bat", "Ape"}) EditedLists::AddCard(MakeCard(name, 1));
  }
  static Pile& Cards() { return State().Collection; }
  static std::string Joint(const EditedLists::Names& names) {
    std::string text;
    for (const std::string& name : names) text += name + "|";
    return text;
  }
  EditedLists lists_;
};

TEST_F(EditedListsTest, TheEditedCardKeepsItsPlaceThroughEverySort) {
  for (int place = 1; place <= 4; ++place) {
    lists_.Edit(place);
    const std::int32_t id = Cards()[place].GlobalID;
    for (const char* spec : {"NAME", "EMPTY", "TRAIT:HP", "NAME"}) {
      std::swap(Cards()[1], Cards()[4]);
      SortCards(Cards(), spec);
      lists_.FindEdited();
      ASSERT_TRUE(lists_.HoldsEdited()) << spec;
      EXPECT_EQ(Cards()[lists_.Place()].GlobalID, id) << spec << " of the card at " << place;
    }
  }
  // It is found by what was stored last, not by what it was when its editing began.
  const int place = lists_.Place();
  Card renumbered = Cards()[place];
  renumbered.GlobalID = 4711;
  renumbered.Name = "Aal";
  lists_.Store(renumbered);
  SortCards(Cards(), "NAME");
  lists_.FindEdited();
  EXPECT_EQ(lists_.Place(), 1);
  // Of two with one number, as copied files have them, the one in its place is it.
  Cards()[3].GlobalID = 4711;
  lists_.FindEdited();
  EXPECT_EQ(lists_.Place(), 1);
  Cards()[1] = Card{};
  lists_.FindEdited();
  EXPECT_EQ(lists_.Place(), 3);
  Cards().Resize(2);
  lists_.FindEdited();
  EXPECT_EQ(lists_.Place(), 0) << "it is gone";
  // A card of no list stays one, even when a free place has no number either.
  Cards()[2] = Card{};
  lists_.FindEdited();
  EXPECT_FALSE(lists_.HoldsEdited());
}

TEST_F(EditedListsTest, TheUnsavedFileIsWrittenWithoutATraceInTheSession) {
  State().CardFile = "/game/cards.txt";
  Card& first = Cards()[1];
  const std::string before = Described(Cards());
  const auto bits = State().TraitBitNames;
  const auto typed = [] {
    TraitBitFor("NEVERSEEN");
    Card card = MakeCard("Dog", 1);
    card.UniqueID = "Dog1";
    return card;
  };
  const auto write = [] { return CardFileText(State().CardFile, "COLLECTION", "", 0); };
  struct Row {
    int Place;
    const char* Names;  ///< of the cards in the text
  };
  for (const Row& row : {Row{2, "Cat|Dog|Bat|Ape|"}, Row{0, "Cat|Ape|Bat|Ape|Dog|"}}) {
    lists_.Edit(row.Place);
    const std::string text = lists_.FileText(typed, write);
    EXPECT_EQ(Described(Cards()), before);
    EXPECT_EQ(Cards().UpperBound(), 4);
    EXPECT_EQ(&Cards()[1], &first);
    EXPECT_TRUE(State().TraitBitNames.SharesStorageWith(bits)) << "a name that is in no card";
    WriteFile("text.txt", text);
    const Pile kept = Cards();
    Cards().Resize(0);
    ReadInOrder("/game/text.txt", State().Players[1], "COLLECTION", 1);
    std::string names;
    for (const Card& card : Cards()) names += IsFree(card) ? "" : Joined(card.Name, "|");
    EXPECT_EQ(names, row.Names);
    Cards() = kept;
  }
  // A card that nobody has named is none.
  EXPECT_EQ(lists_.FileText([] { return Card{}; }, write).find("Dog"), std::string::npos);
}

TEST_F(EditedListsTest, TemplatesTakeThePlaceOfTheirName) {
  State().Templates.Reset(1);
  EditedLists::KeepTemplate({MakeCard("Kind", 1), "a.bmp", "", 1});
  EditedLists::KeepTemplate({MakeCard("Sort", 1), "b.bmp", "", 2});
  EditedLists::KeepTemplate({MakeCard("Kind", 1), "c.bmp", "", 3});
  EXPECT_EQ(Joint(EditedLists::TemplateNames()), "Blank Card|Kind|Sort|");
  EXPECT_EQ(State().Templates[1].BackImage, "c.bmp");
}

TEST_F(EditedListsTest, ANewUniqueIDIsNoneOfTheList) {
  const auto random = State().Random;
  const Text id = NewUniqueID("Ape");
  Cards()[3].UniqueID = id;
  State().Random = random;
  EXPECT_NE(NewUniqueID("Ape"), id);
}

}  // namespace
}  // namespace brindlemoor
