// A text of one line that is wrapped: no key and no paste brings a line end into it.
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

}  // namespace
}  // namespace brindlemoor
