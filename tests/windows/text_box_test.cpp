// Wrapped texts: no key and no paste brings a line end into one of one line, and others come to
// rest at every size.
#include <QClipboard>
#include <QPlainTextEdit>

#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

TEST_F(DesktopTest, AWrappedLineStaysOneLine) {
  Form form("WrappedForm");
  TextBox box("Box");
  int entered = 0;
  box.MultiLine = true;
  box.Enter = [&entered] { ++entered; };
  Show(form, {Cell(box, 120)});
  auto* edit = Find<QPlainTextEdit>(form, box);
  EXPECT_LT(edit->minimumHeight(), edit->minimumSizeHint().height()) << "it fits into a row";
  QTest::keyClicks(edit, "DESTROY");
  QTest::keyClick(edit, Qt::Key_Return);
  QTest::keyClick(edit, Qt::Key_Enter, Qt::KeypadModifier);
  QApplication::clipboard()->setText(":ECHO:a\r\nb\n\nc");
  edit->paste();
  EXPECT_EQ(box.Text.Get(), "DESTROY:ECHO:a b c");
  EXPECT_EQ(entered, 2);
  box.Text = "of\r\na file";  // what others wrote stays
  QTest::keyClicks(edit, "x");
  EXPECT_EQ(box.Text.Get(), "xof\na file");
  box.Text = "5\xC2\xA0HP";  // a blank that keeps both together
  QTest::keyClicks(edit, "x");
  EXPECT_EQ(box.Text.Get(), "x5\xC2\xA0HP");
  desktop_->CloseWindows();
}

/// Counts what a widget is laid out anew by.
class LayoutCounter : public QObject {
 public:
  int Count = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    Count += event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest ? 1 : 0;
    return false;
  }
};

TEST_F(DesktopTest, ATextOfSeveralLinesComesToRestAtEverySize) {
  Form form("StoryForm");
  TextBox box("Story");
  box.MultiLine = true;
  box.ReadOnly = true;
  box.Text =
      "New cards: Cold Puddle (2), Cricket (4), Dormouse Watch, Firefly (2), Frog Choir (3), Full "
      "Moon, Goodnight Song (2), Hazelnuts (2) and 1 more.\nFile, Quit / New Game leads back to "
      "the list of games.";
  Show(form, {Cell(box)});
  auto* edit = Find<QPlainTextEdit>(form, box);
  LayoutCounter counter;
  edit->viewport()->installEventFilter(&counter);
  for (int height = 50; height < 80; ++height) {
    for (int width = 700; width < 940; width += 5) {
      edit->resize(width, height);
      for (int round = 0; round < 20; ++round) QCoreApplication::processEvents();
      counter.Count = 0;
      for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
      ASSERT_EQ(counter.Count, 0) << width << " x " << height;
    }
  }
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
