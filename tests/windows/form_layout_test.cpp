// Arrangements of real widgets: what collapses takes room only while something in it is shown.
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

TEST_F(DesktopTest, AColumnCollapsesWithTheLastOfItsControls) {
  Form form("CollapsingForm");
  Label first("First");
  Label second("Second");
  Label beside("Beside");
  Layout inner = {.Children = {Cell(second)}, .Width = 120};
  Layout column = {.Children = {Cell(first), std::move(inner)}, .Collapses = true};
  Layout row = {.Direction = Layout::Kind::kRow, .Children = {std::move(column), Cell(beside)}};
  row.Children.back().Stretch = 1;
  second.Visible = false;
  Show(form, {std::move(row)});
  Window(form)->resize(400, 100);
  const auto left = [&] {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    return Find(form, beside)->mapTo(Window(form), QPoint()).x();
  };
  const int room = left();
  EXPECT_GE(room, 120);
  first.Visible = false;
  EXPECT_LT(left(), 20);
  second.Visible = true;
  EXPECT_EQ(left(), room);
  second.Visible = false;
  EXPECT_LT(left(), 20);
  first.Visible = true;
  EXPECT_EQ(left(), room) << "a fixed cell keeps its width beside what is shown";
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
