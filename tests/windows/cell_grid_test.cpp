// Grids of equal cells: how many columns, and where each cell goes.
#include "platform/qt/cell_grid.h"

#include <gtest/gtest.h>

#include "tests/support/action_cards.h"
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

TEST(CellGrid, AsManyColumnsAsMakeTheCellsLargest) {
  const QSize card(64, 88);
  for (const auto& [room, cells, columns] : Rows<QSize, int, int>{{{360, 640}, 18, 3},
                                                                  {{560, 600}, 18, 6},
                                                                  {{1500, 300}, 18, 9},
                                                                  {{3000, 90}, 18, 18},
                                                                  {{10, 10}, 18, 3},
                                                                  {{900, 900}, 2, 3}}) {
    EXPECT_EQ(ColumnsFor(room, cells, card, 3, 4), columns)
        << room.width() << " by " << room.height();
  }
}

class GridWindowTest : public DesktopTest {};

/// A narrow window scrolls a list by Down at its last row, a wide one has other rows.
TEST_F(GridWindowTest, DownGoesToThePictureBelowAndScrollsOnlyAtTheEdge) {
  std::vector<std::unique_ptr<PictureBox>> pictures;
  std::vector<Layout> cells;
  int scrolled = 0;
  for (int number = 0; number < 6; ++number) {
    auto& picture = pictures.emplace_back(std::make_unique<PictureBox>(Joined("Pic", number)));
    picture->DragGroup = "list";
    picture->MouseUp = [](MouseButton) {};
    picture->KeyDown = [&scrolled](PictureKey key) {
      if (key == PictureKey::kDown) ++scrolled;
      return true;
    };
    cells.push_back(Cell(*picture));
  }
  Form form("Grid");
  form.Width = 300;
  form.Height = 260;
  Layout grid{.Direction = Layout::Kind::kGrid, .Children = cells, .Stretch = 1, .Columns = 3};
  Show(form, {grid});
  Window(form)->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window(form)));
  QWidget* first = Find(form, *pictures[0]);
  EXPECT_EQ(first->y(), Find(form, *pictures[2])->y());
  EXPECT_LT(first->y(), Find(form, *pictures[3])->y());
  first->setFocus();
  QTest::keyClick(first, Qt::Key_Down);
  EXPECT_EQ(scrolled, 0);
  EXPECT_TRUE(Find(form, *pictures[3])->hasFocus());
  QTest::keyClick(Find(form, *pictures[3]), Qt::Key_Down);
  EXPECT_EQ(scrolled, 1);

  Window(form)->resize(900, 160);
  EXPECT_EQ(first->y(), Find(form, *pictures[5])->y()) << "all in one row";
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
