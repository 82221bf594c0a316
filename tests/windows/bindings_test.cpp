// What the user does reaches the models' handlers; what the program does is shown and calls nobody.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

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
  form_.Line.Text = "line";
  form_.Lines.Text = "a\r\nb";
  form_.Combo.Text = "Three";
  form_.Free.Text = "Four";
  form_.List.Selected = 2;
  form_.Options[1].Value = true;
  form_.Check.Value = true;
  form_.Bar.Value = 4;
  EXPECT_EQ(Find<QPushButton>(form_, form_.Push)->text(), "&Go");
  EXPECT_EQ(Find<QLineEdit>(form_, form_.Line)->text(), "line");
  EXPECT_EQ(Find<QPlainTextEdit>(form_, form_.Lines)->toPlainText(), "a\nb");
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->currentIndex(), 2);
  EXPECT_EQ(Find<QComboBox>(form_, form_.Free)->currentText(), "Four");
  EXPECT_EQ(Find<QListWidget>(form_, form_.List)->currentRow(), 1);
  EXPECT_TRUE(Find<QRadioButton>(form_, form_.Options[1])->isChecked());
  EXPECT_TRUE(Find<QCheckBox>(form_, form_.Check)->isChecked());
  EXPECT_EQ(Find<QScrollBar>(form_, form_.Bar)->value(), 4);
  EXPECT_EQ(form_.Events, 0);
  EXPECT_EQ(form_.Lines.Text.Get(), "a\r\nb");
}

TEST_F(ControlsTest, WhatTheUserDoesIsStoredAndToldOnce) {
  QTest::mouseClick(Find(form_, form_.Push), Qt::LeftButton);
  EXPECT_EQ(form_.Events, 1);
  QTest::keyClick(Find(form_, form_.Push), Qt::Key_Return);
  EXPECT_EQ(form_.Events, 2);
  QTest::keyClick(Find(form_, form_.Line), 'x');
  EXPECT_EQ(form_.Line.Text.Get(), "x");
  QTest::keyClick(Find(form_, form_.Lines), 'y');
  EXPECT_EQ(form_.Lines.Text.Get(), "y");
  EXPECT_EQ(form_.Events, 4);
  QTest::keyClick(Find(form_, form_.Combo), Qt::Key_Down);
  EXPECT_EQ(form_.Combo.Text.Get(), "One");
  QTest::keyClick(Find(form_, form_.Free), 'F');
  EXPECT_EQ(form_.Free.Text.Get(), "F");
  EXPECT_EQ(form_.Events, 6);
  auto* list = Find<QListWidget>(form_, form_.List);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(1)).center());
  EXPECT_EQ(form_.List.Selected.Get(), 2);
  QTest::keyClick(list, Qt::Key_Up);
  EXPECT_EQ(form_.List.Selected.Get(), 1);
  EXPECT_EQ(form_.Events, 8);
  QTest::keyClick(Find(form_, form_.Check), Qt::Key_Space);
  EXPECT_TRUE(form_.Check.Value);
  QTest::keyClick(Find(form_, form_.Bar), Qt::Key_PageDown);
  EXPECT_EQ(form_.Bar.Value.Get(), 1);
  EXPECT_EQ(form_.Events, 10);
}

TEST_F(ControlsTest, OneOptionOfAnArrayIsChosen) {
  form_.Options[0].Value = true;
  QTest::keyClick(Find(form_, form_.Options[1]), Qt::Key_Space);
  EXPECT_FALSE(form_.Options[0].Value);
  EXPECT_TRUE(form_.Options[1].Value);
  form_.Options[0].Value = true;
  EXPECT_FALSE(form_.Options[1].Value);
}

TEST_F(ControlsTest, AnItemThatIsNotInTheListIsStillRead) {
  form_.Combo.Text = "Nine";
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->currentIndex(), -1);
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->placeholderText(), "Nine");
  form_.Combo.Items = {"Eight", "Nine"};
  EXPECT_EQ(Find<QComboBox>(form_, form_.Combo)->currentText(), "Nine");
}

TEST_F(ControlsTest, ToolTipsAreWrappedAndNeverMarkup) {
  form_.Push.ToolTip = "a <b> & c";
  EXPECT_EQ(Find(form_, form_.Push)->toolTip(), "<qt>a &lt;b&gt; &amp; c</qt>");
}

TEST_F(DesktopTest, HiddenPicturesKeepTheirPlaceAndHiddenButtonsGiveItUp) {
  Form form("Form");
  PictureBox picture("Picture");
  Button hidden("Hidden");
  Button below("Below");
  Show(form, {Cell(picture, 60, 90), Cell(hidden), Cell(below)});
  const auto top = [&] {
    QCoreApplication::processEvents();
    return Find(form, below)->y();
  };
  const int full = top();
  picture.Visible = false;
  EXPECT_EQ(top(), full);
  hidden.Visible = false;
  EXPECT_LT(top(), full);
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, PicturesCanBeReachedByKeysAlone) {
  Form form("Form");
  std::vector<std::unique_ptr<PictureBox>> boxes;
  std::string told;
  Button first("First");
  std::vector<Layout> rows{Cell(first)};
  for (int number = 0; number < 4; ++number) {
    const std::string name = std::to_string(number);
    boxes.push_back(std::make_unique<PictureBox>(name));
    boxes.back()->MouseMove = [&told, name] { told += "move" + name + " "; };
    boxes.back()->MouseUp = [&told, name](MouseButton button) {
      told += (button == MouseButton::kLeft ? "left" : "right") + name + " ";
    };
    if (number % 2 == 0) rows.push_back({.Direction = Layout::Kind::kRow});
    rows.back().Children.push_back(Cell(*boxes.back(), 60, 90));
  }
  Show(form, std::move(rows));
  Window(form)->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(Window(form)));
  Find(form, first)->setFocus();
  const struct {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Told;
  } kSteps[] = {
      {Qt::Key_Tab, Qt::NoModifier, "move0 "},
      {Qt::Key_Return, Qt::NoModifier, "left0 "},
      {Qt::Key_Right, Qt::NoModifier, "move1 "},
      {Qt::Key_Delete, Qt::NoModifier, "right1 "},
      {Qt::Key_Right, Qt::NoModifier, ""},
      {Qt::Key_Down, Qt::NoModifier, "move3 "},
      {Qt::Key_Return, Qt::ShiftModifier, "right3 "},
      {Qt::Key_Left, Qt::NoModifier, "move2 "},
      {Qt::Key_Enter, Qt::NoModifier, "left2 "},
      {Qt::Key_Up, Qt::NoModifier, "move0 "},
      {Qt::Key_Up, Qt::NoModifier, ""},
  };
  for (const auto& [key, modifiers, expected] : kSteps) {
    told.clear();
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    EXPECT_EQ(told, expected) << QKeySequence(key).toString().toStdString();
  }
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, MouseButtonsOnPicturesAreToldApart) {
  Form form("Form");
  PictureBox picture("Picture");
  std::string told;
  picture.MouseUp = [&told](MouseButton button) {
    told += button == MouseButton::kLeft ? "left " : "right ";
  };
  Show(form, {Cell(picture, 60, 90)});
  QWidget* widget = Find(form, picture);
  QTest::mouseClick(widget, Qt::LeftButton);
  QTest::mouseClick(widget, Qt::RightButton);
  QTest::mouseClick(widget, Qt::MiddleButton);
  QTest::mousePress(widget, Qt::LeftButton);
  QTest::mouseRelease(widget, Qt::LeftButton, {}, {-20, -20});  // dragged away: no click
  EXPECT_EQ(told, "left right ");
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, AMenuEntryShowsTheMarkOfTheModel) {
  Form form("Form");
  MenuItem menu("menu", "Options"), entry("entry", "Debug Mode"), help("help", "Help");
  entry.Checkable = true;
  int clicks = 0;
  entry.Click = [&] { ++clicks; };
  help.Click = [&] { clicks += 10; };
  menu.Items = {&entry};
  form.Menus = {&menu, &help};
  Show(form, {});
  QAction* action = Window(form)->findChild<QAction*>("entry");
  ASSERT_NE(action, nullptr);
  action->trigger();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(action->isChecked()) << "the handler did not set it";
  entry.Checked = true;
  EXPECT_TRUE(action->isChecked());
  entry.Enabled = false;
  action->trigger();
  EXPECT_EQ(clicks, 1);
  Window(form)->findChild<QAction*>("help")->trigger();
  EXPECT_EQ(clicks, 11);
  desktop_->CloseWindows();
}

TEST_F(DesktopTest, AccessKeysFollowTheCaptions) {
  Form form("Form");
  Button turn("Turn"), other("Other");
  turn.Caption = "Take Turn";
  other.Caption = "Try";
  Show(form, {Cell(turn), Cell(other)});
  EXPECT_EQ(Find<QPushButton>(form, other)->text(), "T&ry");
  turn.Caption = "End Game";
  EXPECT_EQ(Find<QPushButton>(form, turn)->text(), "&End Game");
  EXPECT_EQ(Find<QPushButton>(form, other)->text(), "&Try");
  turn.Caption = "Turn";
  turn.Visible = false;
  EXPECT_EQ(Find<QPushButton>(form, other)->text(), "&Try") << "a hidden button takes no key";
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
