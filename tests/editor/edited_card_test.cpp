// The edited card without a window: its rows beyond those that are seen, and its steps.
#include "editor/edited_card.h"

#include "core/strings.h"
#include "language/target_types.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class EditedCardTest : public SessionTest {
 protected:
  EditedCardTest() {
    Card ape = MakeCard("Ape", 1, {"HP:1", "COST:2"});
    ape.UniqueID = "Ape1";
    edited_.Load(ape);
    edited_.BeginHistory();
  }
  EditedCard edited_;
};

TEST_F(EditedCardTest, EveryRowIsReachedByScrollingAndBuilt) {
  CardRows& rows = edited_.Rows;
  for (int top = 1; top <= kLastTopRow; ++top) {
    rows.Tops = {static_cast<std::uint8_t>(top), static_cast<std::uint8_t>(top),
                 static_cast<std::uint8_t>(top)};
    for (int row = 0; row < kVisibleRows; ++row) {
      rows.Trait(row) = {Joined("T", top + row), "1"};
      rows.Caption(row) = {Joined("T", top + row), Joined("says ", top + row)};
      rows.Effect(row) = {"COST", "ALL", Joined("ECHO:", top + row)};
    }
  }
  rows.Tops = {kLastTopRow, kLastTopRow, kLastTopRow};
  rows.Trait(kVisibleRows - 1) = {"LAST", ""};
  rows.Effect(kVisibleRows - 1) = {"COST", "ALL", "LAST"};
  const Card card = edited_.WithRows();
  ASSERT_EQ(card.Traits.UpperBound(), kCardRows);
  ASSERT_EQ(card.Effects.UpperBound(), kCardRows);
  EXPECT_EQ(card.Traits[kCardRows], "LAST");
  EXPECT_EQ(card.Effects[kCardRows].Script, "LAST");
  for (int item = 1; item < kCardRows; ++item) {
    EXPECT_EQ(card.Traits[item], Joined("T", item, ":1"));
    EXPECT_EQ(card.TraitCaptions[item], Joined("says ", item));
    EXPECT_EQ(card.Effects[item].Script, Joined("ECHO:", item));
  }
  EXPECT_EQ(State().EditCard.Traits[1], "HP:1") << "the card keeps its lists until it is stored";
  // Those that did not fit are told of, but not what a trait brought: it is no row anywhere.
  EXPECT_EQ(BehindTheRows(card), "");
  Card larger = card;
  AddEffect(larger, "TRAIT:TRAITEFFECT:T1:ECHO:x", kTargetAll, "COST", 0, "ALL");
  EXPECT_EQ(BehindTheRows(larger), "");
  larger.Traits.Append(Text("MORE"));
  EXPECT_EQ(BehindTheRows(larger), "1 trait does not fit into these rows; it is kept.");
  AddEffect(larger, "ECHO:x", kTargetAll, "COST", 0, "ALL");
  EXPECT_EQ(BehindTheRows(larger),
            "1 trait and 1 action do not fit into these rows; they are kept.");
}

TEST_F(EditedCardTest, StepsTakeTheCardAndItsRowsTogether) {
  Card& card = State().EditCard;
  const std::string loaded = Described(edited_.WithRows());
  card.Name = "Gnu";
  edited_.Rows.Trait(0).Value = "5";
  EXPECT_TRUE(edited_.Note("ValueText(0)", true));
  EXPECT_FALSE(edited_.IsSaved());
  edited_.MarkSaved();
  const std::string changed = Described(edited_.WithRows());
  // To look elsewhere, and to be stored and read again, is no step.
  edited_.Rows.Tops.Trait = 20;
  EXPECT_FALSE(edited_.Note("TraitScroll", false));
  edited_.Load(edited_.WithRows());
  edited_.Refresh();
  EXPECT_TRUE(edited_.IsSaved());
  ASSERT_TRUE(edited_.CanUndo());
  edited_.Undo();
  EXPECT_EQ(Described(edited_.WithRows()), loaded);
  EXPECT_FALSE(edited_.CanUndo());
  EXPECT_FALSE(edited_.IsSaved()) << "the file has the change that was undone";
  edited_.Redo();
  EXPECT_EQ(Described(edited_.WithRows()), changed);
  EXPECT_TRUE(edited_.IsSaved());
}

TEST_F(EditedCardTest, AFreePlaceIsLoadedAsAFreshCard) {
  edited_.Load(Card{});
  EXPECT_NE(State().EditCard.GlobalID, 0);
  EXPECT_EQ(edited_.Rows.Traits[1], TraitRow{}) << "nothing of the card before";
  edited_.BeginHistory();
  State().EditCard.Name = "New";
  edited_.Note("CardText(0)", true);
  edited_.GiveUniqueID();
  const Text id = State().EditCard.UniqueID;
  EXPECT_TRUE(id.View().starts_with("New"));
  edited_.Undo();
  edited_.GiveUniqueID();
  EXPECT_EQ(State().EditCard.UniqueID, id) << "images are called by it";
}

}  // namespace
}  // namespace brindlemoor
