// What the user does reaches the models' handlers; what the program does is shown and calls nobody.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
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
  form_.Push.ToolTip = "a <b> & c";
  form_.Line.Text = "line";
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

TEST_F(DesktopTest, PicturesAreReachedByKeysAloneAndTellMouseButtonsApart) {
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
    const char* Told;
    Qt::KeyboardModifiers Modifiers = Qt::NoModifier;
  } steps[] = {{Qt::Key_Tab, "move0 "},
               {Qt::Key_Return, "left0 "},
               {Qt::Key_Right, "move1 "},
               {Qt::Key_Delete, "right1 "},
               {Qt::Key_Right, ""},
               {Qt::Key_Down, "move3 "},
               {Qt::Key_Return, "right3 ", Qt::ShiftModifier},
               {Qt::Key_Left, "move2 "},
               {Qt::Key_Enter, "left2 "},
               {Qt::Key_Up, "move0 "},
               {Qt::Key_Up, ""}};
  for (const auto& [key, expected, modifiers] : steps) {
    told.clear();
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    EXPECT_EQ(told, expected) << QKeySequence(key).toString().toStdString();
  }
  boxes[0]->MouseMove = nullptr;
  told.clear();
  QWidget* widget = Find(form, *boxes[0]);
  for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(widget, button);
  }
  QTest::mousePress(widget, Qt::LeftButton);
  QTest::mouseRelease(widget, Qt::LeftButton, {}, {-20, -20});  // dragged away: no click
  EXPECT_EQ(told, "left0 right0 ");
  desktop_->CloseWindows();
}

}  // namespace
}  // namespace brindlemoor
