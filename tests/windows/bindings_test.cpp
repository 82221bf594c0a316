// What the user does reaches the models' handlers; what the program does is shown and calls nobody.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>

#include "platform/qt/geometry_report.h"
#include "platform/qt/style.h"
#include "tests/windows/desktop_test.h"

namespace brindlemoor {
namespace {

struct ControlsForm : Form {
  ControlsForm() : Form("ControlsForm") {
    Lines.MultiLine = true;
    Combo.Items = {"One", "Two", "Three"};
    Free.Items = {"One", "Two", "Three"};
    Free.Editable = true;
    List.Items = {"Alpha", "Beta"};
    Bar.Maximum = 9;
    const auto count = [this] { ++Events; };
    Push.Click = Options[0].Click = Options[1].Click = Check.Click = List.Click = count;
    Line.Change = Lines.Change = Combo.Change = Free.Change = Bar.Change = count;
  }
  ~ControlsForm() override = default;

  int Events = 0;
  Button Push{"Push"};
  Label Words{"Words"};
  TextBox Line{"Line"}, Lines{"Lines"};
  ComboBox Combo{"Combo"}, Free{"Free"};
  ListBox List{"List"};
  OptionButton Options[2]{OptionButton{"Option(0)"}, OptionButton{"Option(1)"}};
  CheckBox Check{"Check"};
  ScrollBar Bar{"Bar"};
};

class ControlsTest : public DesktopTest {
 protected:
  ControlsTest() {
    Show(form_, {Cell(form_.Push), Cell(form_.Words), Cell(form_.Line), Cell(form_.Lines),
                 Cell(form_.Combo), Cell(form_.Free), Cell(form_.List), Cell(form_.Options[0]),
                 Cell(form_.Options[1]), Cell(form_.Check), Cell(form_.Bar)});
  }
  ~ControlsTest() override { desktop_->CloseWindows(); }

  ControlsForm form_;
};

TEST_F(ControlsTest, WhatTheProgramSetsIsShownAndCallsNobody) {
  form_.Push.Caption = "Go";
  form_.Push.ToolTip = "a <b> & c";
  form_.Line.Text = "line";
  form_.Line.Placeholder = "Search";
  form_.Lines.Text = "a\r\nb";
  form_.Combo.Text = "Three";
  form_.Free.Text = "Four";
  form_.List.Selected = 2;
  form_.Options[1].Value = true;
  form_.Check.Value = true;
  form_.Bar.Value = 4;
  EXPECT_EQ(Find<QPushButton>(form_, form_.Push)->text(), "&Go");
  EXPECT_EQ(Find(form_, form_.Push)->toolTip(), "<qt>a &lt;b&gt; &amp; c</qt>");
  EXPECT_EQ(Find<QLineEdit>(form_, form_.Line)->text(), "line");
  EXPECT_EQ(Find<QLineEdit>(form_, form_.Line)->placeholderText(), "Search");
  EXPECT_EQ(Find<QPlainTextEdit>(form_, form_.Lines)->toPlainText(), "a\nb");
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->currentIndex(), 2);
  EXPECT_EQ(Find<QComboBox>(form_, form_.Free)->currentText(), "Four");
  EXPECT_EQ(Find<QListWidget>(form_, form_.List)->currentRow(), 1);
  EXPECT_TRUE(Find<QRadioButton>(form_, form_.Options[1])->isChecked());
  EXPECT_TRUE(Find<QCheckBox>(form_, form_.Check)->isChecked());
  EXPECT_EQ(Find<QScrollBar>(form_, form_.Bar)->value(), 4);
  EXPECT_EQ(form_.Events, 0);
  EXPECT_EQ(form_.Lines.Text.Get(), "a\r\nb");
  form_.Combo.Text = "Nine";  // not in the list, but still read
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->placeholderText(), "Nine");
  form_.Combo.Items = {"Eight", "Nine"};
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->currentText(), "Nine");
}

TEST_F(ControlsTest, WhatTheUserDoesIsStoredAndToldOnce) {
  int enters = 0;
  auto* list = Find<QListWidget>(form_, form_.List);
  QTest::mouseClick(Find(form_, form_.Push), Qt::LeftButton);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(1)).center());
  EXPECT_EQ(form_.List.Selected.Get(), 2);
  EXPECT_EQ(form_.Events, 2);
  const std::pair<const Control*, int> keys[] = {
      {&form_.Push, Qt::Key_Return}, {&form_.Line, Qt::Key_X},      {&form_.Lines, Qt::Key_Y},
      {&form_.Combo, Qt::Key_Down},  {&form_.Free, Qt::Key_F},      {&form_.List, Qt::Key_Up},
      {&form_.Check, Qt::Key_Space}, {&form_.Bar, Qt::Key_PageDown}};
  for (const auto& [control, key] : keys) {
    const int before = form_.Events;
    QTest::keyClick(Find(form_, *control), static_cast<Qt::Key>(key));
    EXPECT_EQ(form_.Events, before + 1) << control->Name;
  }
  QTest::keyClick(Find(form_, form_.Line), Qt::Key_Return);
  EXPECT_EQ(enters, 0) << "nobody asked";
  form_.Line.Enter = [&enters] { ++enters; };
  QTest::keyClick(Find(form_, form_.Line), Qt::Key_Return);
  QTest::keyClick(Find(form_, form_.Line), Qt::Key_Enter);
  EXPECT_EQ(enters, 2);
  EXPECT_EQ(form_.Line.Text.Get(), "x");
  EXPECT_EQ(form_.Lines.Text.Get(), "y");
  EXPECT_EQ(form_.Combo.Text.Get(), "One");
  EXPECT_EQ(form_.Free.Text.Get(), "f");
  EXPECT_EQ(form_.List.Selected.Get(), 1);
  EXPECT_TRUE(form_.Check.Value);
  EXPECT_EQ(form_.Bar.Value.Get(), 1);
  form_.Options[0].Value = true;
  QTest::keyClick(Find(form_, form_.Options[1]), Qt::Key_Space);
  EXPECT_TRUE(form_.Options[1].Value && !form_.Options[0].Value) << "one of an array is chosen";
}

TEST_F(ControlsTest, ItemsOpenByDoubleClickAndEnter) {
  auto* list = Find<QListWidget>(form_, form_.List);
  const auto centre = [list](int row) { return list->visualItemRect(list->item(row)).center(); };
  const auto doubleClick = [&](int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, centre(row));
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, centre(row));
  };
  doubleClick(0);
  QTest::keyClick(list, Qt::Key_Return);
  std::string opened;
  form_.List.Open = [this, &opened] {
    opened += form_.List.Items.Get()[static_cast<std::size_t>(form_.List.Selected - 1)] + " ";
    form_.List.Items = {"Up", "Gamma"};
    form_.List.Selected = 2;
  };
  doubleClick(1);
  EXPECT_EQ(opened, "Beta ");
  for (const auto key : {Qt::Key_Return, Qt::Key_Up, Qt::Key_Enter}) QTest::keyClick(list, key);
  EXPECT_EQ(opened, "Beta Gamma Up ");
  form_.List.Items = {};
  form_.List.Selected = 0;
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(opened, "Beta Gamma Up ") << "there is nothing to open";
}

TEST_F(DesktopTest, EscapePressesTheButtonThatCancels) {
  Form form("Form");
  Button other("Other"), cancel("Cancel");
  TextBox text("Text");
  PictureBox picture("Picture");
  picture.MouseUp = [](MouseButton) {};
  int pressed = 0;
  cancel.Cancel = true;
  cancel.Click = [&pressed] { ++pressed; };
  Show(form, {Cell(other), Cell(text), Cell(picture, 60, 90), Cell(cancel)});
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window(form)));
  for (const Control* control : std::initializer_list<Control*>{&other, &text, &picture}) {
    Find(form, *control)->setFocus();
    QTest::keyClick(Find(form, *control), Qt::Key_Escape);
  }
  EXPECT_EQ(pressed, 3);
  cancel.Enabled = false;
  QTest::keyClick(Find(form, text), Qt::Key_Escape);
  EXPECT_EQ(pressed, 3);
  desktop_->CloseWindows();
}

TEST_F(ControlsTest, ItemsOfOneTextAreToldApart) {
  int clicks = 0;
  form_.Combo.Click = [&clicks] { ++clicks; };
  form_.Combo.Items = {"Ape", "Bat", "Ape"};
  form_.Combo.Select(3);
  auto* combo = Find<QComboBox>(form_, form_.Combo);
  EXPECT_EQ(combo->currentIndex(), 2);
  QTest::keyClick(combo, Qt::Key_Home);
  EXPECT_EQ(form_.Combo.Selected, 1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(form_.Events, 0) << "a choice is a click, no change";
  form_.Combo.Text = "Bat";  // the number counts only with its text
  EXPECT_EQ(combo->currentIndex(), 1);
  QTest::keyClick(Find(form_, form_.Free), Qt::Key_T);
  EXPECT_EQ(form_.Free.Selected, 0);
}

TEST_F(ControlsTest, TheGeometryReportTellsWhatControlsSay) {
  form_.Push.Caption = "Fish & Chips";
  form_.Words.Caption = "Two\nlines";
  form_.Line.Text = "line";
  form_.Lines.Text = "a\r\nb";
  form_.Free.Text = "Four";
  const QString file = folder_.path() + "/geometry";
  const auto textOf = [&file](const Control& control) {
    QFile report(file);
    report.open(QIODevice::ReadOnly);
    for (const QByteArray& line : report.readAll().split('\n')) {
      const QByteArrayList fields = line.split('\t');
      if (fields[0] == "control" && fields[1] == control.Name.c_str()) return fields.last();
    }
    return QByteArray("no line");
  };
  GeometryReport report(file);
  ASSERT_TRUE(QTest::qWaitFor([&file] { return QFile::exists(file); }));
  EXPECT_EQ(textOf(form_.Push), "Fish & Chips");
  EXPECT_EQ(textOf(form_.Words), "Two lines");
  EXPECT_EQ(textOf(form_.Line), "line");
  EXPECT_EQ(textOf(form_.Lines), "a b");
  EXPECT_EQ(textOf(form_.Free), "Four");
  EXPECT_EQ(textOf(form_.List), "");
}

/// The widths of the unbroken stretches of a colour along a line of pixels.
std::vector<int> Runs(const QImage& image, int row, QColor color) {
  std::vector<int> runs;
  bool inside = false;
  for (int x = 0; x < image.width(); ++x) {
    const bool here = image.pixelColor(x, row) == color;
    if (here && !inside) runs.push_back(0);
    if (here) ++runs.back();
    inside = here;
  }
  return runs;
}

struct FramedForm : Form {
  FramedForm() : Form("FramedForm") {
    Group.Caption = "Actions";
    Text.MultiLine = true;
    Text.RightClick = [this] { Group.Visible = false; };
  }
  ~FramedForm() override = default;
  Frame Group{"Group"};
  TextBox Text{"Text"};
};

TEST_F(DesktopTest, AFrameIsHiddenWithWhatItHolds) {
  FramedForm form;
  Layout frame{.Direction = Layout::Kind::kColumn, .Children = {Cell(form.Text)}};
  frame.Group = &form.Group;
  Show(form, {frame});
  auto* text = Find<QPlainTextEdit>(form, form.Text);
  EXPECT_EQ(Find<QGroupBox>(form, form.Group)->title(), "Actions");
  EXPECT_TRUE(text->isVisible());
  form.Text.ReadOnly = true;
  QTest::keyClick(text, Qt::Key_A);
  EXPECT_EQ(form.Text.Text.Get(), "");
  form.Text.ReadOnly = false;
  QTest::keyClick(text, Qt::Key_A);
  EXPECT_EQ(form.Text.Text.Get(), "a");
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), text->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(text->viewport(), &event);
  EXPECT_FALSE(text->isVisible());
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, UndoIsTheFormsInItsBoxesAndTheirOwnElsewhere) {
  Form form("Form");
  TextBox line("Line"), lines("Lines"), own("Own");
  ComboBox combo("Combo");
  lines.MultiLine = true;
  combo.Editable = true;
  line.FormUndoes = lines.FormUndoes = combo.FormUndoes = true;
  MenuItem menu("menu", "Edit"), undo("undo", "Undo"), redo("redo", "Redo");
  undo.Shortcut = "Ctrl+Z";
  redo.Shortcut = "Ctrl+Y";
  int undone = 0;
  int redone = 0;
  undo.Click = [&undone] { ++undone; };
  redo.Click = [&redone] { ++redone; };
  menu.Items = {&undo, &redo};
  form.Menus = {&menu};
  Show(form, {Cell(line), Cell(lines), Cell(combo), Cell(own)});
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window(form)));
  const auto press = [&form](const Control& control, Qt::Key key) {
    QTest::keyClick(Find(form, control), key, Qt::ControlModifier);
  };
  for (const Control* control : std::initializer_list<Control*>{&line, &lines, &combo, &own}) {
    QTest::keyClick(Find(form, *control), Qt::Key_X);
  }
  for (const Control* control : std::initializer_list<Control*>{&line, &lines, &combo}) {
    undone = redone = 0;
    press(*control, Qt::Key_Z);
    press(*control, Qt::Key_Y);
    EXPECT_TRUE(undone == 1 && redone == 1) << control->Name;
    undo.Enabled = false;
    press(*control, Qt::Key_Z);
    undo.Enabled = true;
  }
  EXPECT_EQ(line.Text.Get() + lines.Text.Get() + combo.Text.Get(), "xxx") << "nothing else to undo";
  press(own, Qt::Key_Z);
  EXPECT_EQ(own.Text.Get(), "");
  EXPECT_EQ(undone, 1);
  desktop_->CloseWindows();
}

struct GridForm : Form {
  GridForm() : Form("GridForm") {
    Cells.Columns = {"One", "Two"};
    Cells.RowCount = 2;
    Cells.CellText = [this](int row, int column) { return Texts[row - 1][column - 1]; };
    Cells.CanEdit = [](int) { return true; };
    Cells.CellsTyped = [this](int row, int column, const std::string& texts) {
      Typed = std::to_string(row) + std::to_string(column) + texts;
    };
  }
  ~GridForm() override = default;

  std::string Texts[2][2] = {{"a\r\nb", "\"Go\""}, {"c\td", ""}};
  std::string Typed;
  Grid Cells{"Cells"};
};

TEST_F(DesktopTest, CellsOfManyLinesGoThroughTheClipboardAndTheirBox) {
  GridForm form;
  Show(form, {Cell(form.Cells)});
  auto* view = Find<QTableView>(form, form.Cells);
  const std::string copied = "\"a\nb\"\t\"\"\"Go\"\"\"\n\"c\td\"\t\n";
  view->setCurrentIndex(view->model()->index(0, 0));
  view->selectAll();
  QTest::keySequence(view, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
  QTest::keySequence(view, QKeySequence::Paste);
  EXPECT_EQ(form.Typed, "11" + copied);
  // One cell goes into all that are chosen; what was typed behind its lines leaves them.
  QApplication::clipboard()->setText("\"x\r\ny\"\r\n");
  QTest::keySequence(view, QKeySequence::Paste);
  const std::string one = "\"x\ny\"";
  EXPECT_EQ(form.Typed, "11" + one + "\t" + one + "\n" + one + "\t" + one + "\n");
  view->setCurrentIndex(view->model()->index(0, 0));
  QTest::keyClick(view, Qt::Key_F2);
  auto* box = view->findChild<QLineEdit*>();
  ASSERT_NE(box, nullptr);
  box->end(false);
  QTest::keyClicks(box, "!");
  QTest::keyClick(box, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(form.Typed, "11\"a\nb!\"\n");
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, TimersTickOnlyWhileTheirFormCanBeUsed) {
  constexpr int kInterval = 20;
  constexpr int kLongEnough = 10 * kInterval;
  Form form("Form");
  Timer timer("Timer");
  int ticks = 0;
  timer.Interval = kInterval;
  timer.Tick = [&ticks] { ++ticks; };
  form.Timers = {&timer};
  Show(form, {});
  const auto ticksSoon = [&ticks] {
    ticks = 0;
    return QTest::qWaitFor([&ticks] { return ticks > 1; }, kLongEnough);
  };
  EXPECT_FALSE(ticksSoon()) << "not switched on";
  timer.Enabled = true;
  EXPECT_TRUE(ticksSoon());
  for (int typed = 0; typed < 10; ++typed) {
    ticks = 0;
    timer.Interval = kLongEnough;
    QTest::qWait(kInterval);
    timer.Enabled = false;
    timer.Enabled = true;
    EXPECT_EQ(ticks, 0) << "its interval begins anew";
  }
  timer.Interval = kInterval;
  Later([&] {
    EXPECT_FALSE(ticksSoon()) << "a question is open";
    QApplication::activeModalWidget()->close();
  });
  desktop_->MessageBox("Wait");
  EXPECT_TRUE(ticksSoon());
  desktop_->HideForm(form);
  EXPECT_FALSE(ticksSoon()) << "hidden";
  desktop_->ShowForm(form, false);
  EXPECT_TRUE(ticksSoon());
  timer.Tick = [&] { timer.Enabled = false; };
  ASSERT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, BarsOfAChartAreAsHighAsTheirCounts) {
  Form form("Form");
  BarChart chart("Chart");
  chart.Caption = "Cost";
  Show(form, {Cell(chart, 240, 120)});
  QWidget* widget = Find(form, chart);
  const auto rowsOf = [widget](std::size_t bars) {
    const QImage image = widget->grab().toImage();
    int rows = 0;
    for (int row = 0; row < image.height(); ++row) {
      rows += Runs(image, row, BarColor()).size() >= bars ? 1 : 0;
    }
    return rows;
  };
  EXPECT_EQ(widget->accessibleName(), "Cost");
  EXPECT_EQ(rowsOf(1), 0);
  chart.Bars = {{"1", 20}, {"a label that is much too long", 10}, {"3", 0}, {"4+", -2}};
  EXPECT_EQ(widget->accessibleName(),
            "Cost: 1: 20, a label that is much too long: 10, 3: 0, 4+: -2");
  EXPECT_NEAR(rowsOf(1), 2 * rowsOf(2), 1);
  EXPECT_GT(rowsOf(2), 20);
  EXPECT_EQ(rowsOf(3), 0) << "nothing stands for none";
  const int lowest = widget->height() - widget->fontMetrics().height() - 2;
  EXPECT_EQ(Runs(widget->grab().toImage(), lowest, BarColor()), (std::vector{36, 36}));
  chart.Bars = std::vector<ChartBar>(100, {"x", 1'000'000});
  EXPECT_GT(rowsOf(100), 20) << "narrow bars stay apart";
  EXPECT_GE(Contrast(BarColor(), WindowColor()), 3);
  EXPECT_GE(Contrast(TextColor(), WindowColor()), 7);
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
