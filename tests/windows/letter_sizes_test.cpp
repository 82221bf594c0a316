// The size of a window's letters: keys and wheel, what grows with it, and what is remembered.
#include <QFile>
#include <QWheelEvent>

#include "platform/qt/style.h"
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

class LetterSizesTest : public DesktopTest {
 protected:
  static void SetUpTestSuite() { ApplyStyle(*qApp); }

  struct Table : Form {
    explicit Table(const char* name = "Table") : Form(name) {
      Headline.Caption = "You have won";
      Headline.Headline = true;
    }
    Label Headline{"Headline"};
    Button Turn{"Turn"};
    PictureBox Picture{"Picture"};
    TextBox Search{"Search"};
  };

  void ShowTable(Table& table) {
    Show(table, {Cell(table.Headline), Cell(table.Turn, 100, 40), Cell(table.Picture, 120, 80),
                 Cell(table.Search)});
    Window(table)->resize(900, 600);
    Window(table)->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window(table)));
  }
  void StartAgain() {
    desktop_->CloseWindows();
    desktop_.reset();
    desktop_ = std::make_unique<QtPlatform>(std::make_unique<LocalFileSystem>(),
                                            folder_.path().toStdString(), 1);
  }
  QByteArray Kept() const {
    QFile file(folder_.path() + "/LetterSizes.settings");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
  }
  void Keep(const QByteArray& text) const {
    QFile file(folder_.path() + "/LetterSizes.settings");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
};

TEST_F(LetterSizesTest, KeysChangeTheTextsOfOneWindowAndAreRemembered) {
  Table table;
  Table other("Other");
  ShowTable(other);
  ShowTable(table);
  const double ordinary = Find(table, table.Turn)->font().pointSizeF();
  const int headline = Find(table, table.Headline)->sizeHint().height();
  for (int press = 0; press < 5; ++press) QTest::keyClick(Window(table), '+', Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(Find(table, table.Turn)->font().pointSizeF(), 1.5 * ordinary);
  EXPECT_EQ(Find(table, table.Turn)->size(), QSize(150, 60));
  EXPECT_GT(Find(table, table.Headline)->sizeHint().height(), 1.3 * headline);
  // A window of 900 pixels has no room for larger pictures.
  EXPECT_EQ(Find(table, table.Picture)->size(), QSize(120, 80));
  EXPECT_DOUBLE_EQ(Find(other, other.Turn)->font().pointSizeF(), ordinary);

  Window(table)->resize(2732, 600);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return Find(table, table.Picture)->size() == QSize(180, 120); }, 3000));

  StartAgain();
  Table again;
  ShowTable(again);
  EXPECT_DOUBLE_EQ(Find(again, again.Turn)->font().pointSizeF(), 1.5 * ordinary);
  QTest::keyClick(Window(again), '0', Qt::ControlModifier);
  EXPECT_EQ(Find(again, again.Turn)->size(), QSize(100, 40));
  EXPECT_EQ(Kept(), "");
  desktop_->CloseWindows();
}

TEST_F(LetterSizesTest, WhatAFileOfAnotherHandSaysIsBounded) {
  const std::pair<const char*, double> files[] = {{"Table=99999\n", 3.0},
                                                  {"Table=-4\n", 0.5},
                                                  {"Table=999999999999999\n", 1.0},
                                                  {"Table=120", 1.2},
                                                  {"=\n\nTable\nTable=x\r\nTable=140\r\n", 1.4},
                                                  {"Other=200\n", 1.0}};
  const double ordinary = QApplication::font().pointSizeF();
  for (const auto& [text, size] : files) {
    Keep(text);
    StartAgain();
    Table table;
    ShowTable(table);
    EXPECT_DOUBLE_EQ(Find(table, table.Turn)->font().pointSizeF(), size * ordinary) << text;
    desktop_->CloseWindows();
  }
}

TEST_F(LetterSizesTest, TheWheelOverAPageChangesThemWhileCtrlIsHeld) {
  Table table;
  ShowTable(table);
  QWidget& search = *Find(table, table.Search);
  Window(table)->TakeLetterWheel(search);
  const auto turn = [&](int way, Qt::KeyboardModifiers keys) {
    QWheelEvent wheel({5, 5}, search.mapToGlobal(QPointF(5, 5)), {}, {0, way}, {}, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&search, &wheel);
  };
  turn(120, {});
  EXPECT_EQ(Kept(), "none");
  turn(120, Qt::ControlModifier);
  turn(120, Qt::ControlModifier);
  turn(-120, Qt::ControlModifier);
  EXPECT_EQ(Kept(), "Table=110\n");
  // A touch pad sends many small pieces of a step.
  for (int piece = 0; piece < 12; ++piece) turn(10, Qt::ControlModifier);
  EXPECT_EQ(Kept(), "Table=120\n");
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
