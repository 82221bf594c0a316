// The table of all cards: what is typed and pasted reaches the cards, and one step takes it back.
#include "editor/card_cells.h"

#include "language/traits.h"
#include "platform/user_events.h"
#include "tests/editor/card_edit_test.h"

namespace brindlemoor {
namespace {

using Lines = std::vector<std::string>;

class CardCellsTest : public CardEditTest {
 protected:
  void SetUp() override {
    LoadCards({MakeCard("Ant", 1, {"HP:10", "FAST"}), MakeCard("Bat", 1, {"HP:9", "AIR:x:y"}),
               MakeCard("Cat", 1, {"AIR:2"})});
  }
  /// Opens the table and lets a user act in it.
  void InTable(const std::function<void(CardGrid&)>& act) {
    desktop_->ModalForms.emplace_back([&act](Form& form) {
      ASSERT_EQ(form.Name, "CardGrid");
      act(TheCardGrid());
    });
    form_.gridmen.Click();
  }
  static void Send(CardGrid& grid, UserEvent event) {
    EXPECT_EQ(RefuseEvent(grid, event), "");
    ApplyEvent(grid, event);
  }
  static void Put(CardGrid& grid, int row, int column, const std::string& texts) {
    Send(grid, {UserEventKind::kCells, "Cells", texts, row, column});
  }
  static std::string RowText(const CardGrid& grid, int row) {
    std::string text;
    for (std::size_t column = 1; column <= grid.Cells.Columns.Get().size(); ++column) {
      text += grid.Cells.CellText(row, static_cast<int>(column)) + "|";
    }
    return text;
  }
};

TEST_F(CardCellsTest, FieldsAndTraitsAreCells) {
  InTable([](CardGrid& grid) {
    EXPECT_EQ(grid.Cells.Columns.Get(), (Lines{"Name", "Rarity", "Enters Play", "AIR", "HP", "FAST",
                                               "Description", "Unique ID"}));
    EXPECT_TRUE(RowText(grid, 1).starts_with("Ant|0|||10|+|")) << RowText(grid, 1);
    EXPECT_TRUE(RowText(grid, 2).starts_with("Bat|0||x:y|9||")) << RowText(grid, 2);
    EXPECT_EQ(grid.Cells.CellText(4, 1), "");
    EXPECT_FALSE(grid.Cells.CanEdit(8));
  });
  EXPECT_EQ(form_.Caption.Get(), "Card Editor");
}

TEST_F(CardCellsTest, ABlockIsPastedAndTakenBackAtOnce) {
  Choose(1);
  InTable([](CardGrid& grid) {
    Put(grid, 1, 4, "5\t\t+\r\n\t7\t");
    EXPECT_EQ(grid.Cells.CellText(1, 4), "5");
    EXPECT_EQ(grid.Cells.CellText(1, 5), "");
    EXPECT_EQ(grid.Cells.CellText(2, 4), "");
    EXPECT_EQ(grid.Cells.CellText(2, 5), "7");
    grid.undomen.Click();
    EXPECT_EQ(grid.Cells.CellText(1, 5), "10");
    EXPECT_EQ(grid.Cells.CellText(2, 4), "x:y");
    EXPECT_FALSE(grid.undomen.Enabled);
    grid.redomen.Click();
    Put(grid, 3, 2, "101");
    Send(grid, {UserEventKind::kCellOpen, "Cells", "", 3, 8});
  });
  EXPECT_EQ(form_.CardText[0].Text.Get(), "Cat") << "the row's card is edited";
  EXPECT_EQ(form_.RarityCombo.Text.Get(), "101");
  EXPECT_EQ(form_.Caption.Get(), "Card Editor *");
  Choose(1);
  EXPECT_EQ(form_.TraitText[0].Text.Get() + form_.TraitText[1].Text.Get(), "FASTAIR");
}

TEST_F(CardCellsTest, OnlyDescriptionsKeepTheLinesOfACell) {
  LoadCards({MakeCard("Ant", 1, {"HP:10"}), MakeCard("Bat", 1, {"HP:9"})});
  State().Collection[2].Description = "first\r\nsecond";
  Choose(1);
  InTable([this](CardGrid& grid) {
    ASSERT_EQ(grid.Cells.Columns.Get()[4], "Description");
    Put(grid, 2, 5, "\"first\nsecond\"");
    EXPECT_FALSE(grid.undomen.Enabled) << "copied and put back";
    Put(grid, 1, 4, "\"1\n2\"\t\"He said\r\n\"\"Go\"\"\"\n8\t");
    EXPECT_EQ(RowText(grid, 1), "Ant|0||1 2|He said\n\"Go\"|" + Stored(1).UniqueID.Str() + "|");
    EXPECT_EQ(grid.Cells.CellText(2, 4) + grid.Cells.CellText(2, 5), "8");
    grid.undomen.Click();
    EXPECT_EQ(grid.Cells.CellText(2, 5), "first\r\nsecond");
    EXPECT_FALSE(grid.undomen.Enabled);
    grid.redomen.Click();
  });
  EXPECT_EQ(form_.DescText.Text.Get(), "He said\n\"Go\"");
}

TEST_F(CardCellsTest, WhatNoCardCanHoldIsLeftOutWithAWord) {
  struct Case {
    int Row, Column;
    const char* Texts;
    const char* Word;
  };
  const Case cases[] = {
      {1, 1, "", "Row 1, Name: a card needs a name."},
      {1, 2, "102", "Row 1, Rarity: a rarity is a number from 0 to 101."},
      {1, 2, "many", "Row 1, Rarity: a rarity is a number from 0 to 101."},
      {3, 8, "X", "Row 3, Unique ID: unique IDs are not changed here."},
      {3, 1, "Dog\nElk", "Row 4, below the last card: this line is left out."},
      {2, 8, "\tmore", "Row 2, behind the last column: this field is left out."},
  };
  InTable([&cases](CardGrid& grid) {
    for (const Case& one : cases) {
      Put(grid, one.Row, one.Column, one.Texts);
      EXPECT_EQ(grid.Note.Caption.Get(), one.Word) << one.Texts;
    }
    EXPECT_EQ(grid.Cells.CellText(3, 1), "Dog") << "the lines before it are taken";
    EXPECT_NE(RefuseEvent(grid, {UserEventKind::kCells, "Cells", "x", 4, 1}), "");
    EXPECT_NE(RefuseEvent(grid, {UserEventKind::kHeading, "Cells", "", 9, 0}), "");
  });
}

TEST_F(CardCellsTest, SortingChangesRowsOnlyAndPutsEmptyCellsLast) {
  InTable([](CardGrid& grid) {
    const auto names = [&grid] {
      return grid.Cells.CellText(1, 1) + grid.Cells.CellText(2, 1) + grid.Cells.CellText(3, 1);
    };
    grid.Cells.Row = 3;
    Send(grid, {UserEventKind::kHeading, "Cells", "", 5, 0});
    EXPECT_EQ(names(), "BatAntCat") << "9 comes before 10";
    EXPECT_EQ(grid.Cells.Row, 3);
    Send(grid, {UserEventKind::kHeading, "Cells", "", 5, 0});
    EXPECT_EQ(names(), "AntBatCat");
    Send(grid, {UserEventKind::kHeading, "Cells", "", 4, 0});
    EXPECT_EQ(names(), "CatBatAnt") << "numbers before texts";
    Put(grid, 1, 5, "3");
  });
  EXPECT_EQ(Stored(1).Name, "Ant");
  EXPECT_TRUE(HasTrait(Stored(3), "HP")) << "the card of the row, not of the place";
}

TEST_F(CardCellsTest, ATraitThatNoCardHasGetsAColumn) {
  desktop_->TextAnswers = {"SLOW", "A:B"};
  InTable([](CardGrid& grid) {
    grid.TraitButton.Click();
    EXPECT_EQ(grid.Cells.Columns.Get()[6], "SLOW");
    Put(grid, 2, 7, "1");
    grid.TraitButton.Click();
    EXPECT_EQ(grid.Note.Caption.Get(), "The name of a trait holds no colon, comma, quote or #.");
  });
  Choose(2);
  EXPECT_EQ(form_.TraitText[2].Text.Get() + form_.ValueText[2].Text.Get(), "SLOW1");
}

}  // namespace
}  // namespace brindlemoor
