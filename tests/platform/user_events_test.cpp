// Events as values: what the user did reaches the model and its handler, and nothing impossible
// does.
#include "platform/user_events.h"

#include <algorithm>
#include <map>

#include "editor/editor_forms.h"
#include "platform/arrangement.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

/// A form with a control of every kind that knows events; each handler notes itself.
struct Everything : Form {
  Everything() : Form("Everything") {
    Items.Items = {"one", "two"};
    Combo.Items = {"one", "two"};
    Bar.Maximum = 9;
    Arrangement = Column({Row({Cell(Push), Cell(Word), Cell(Mark), Cell(Line)}),
                          Row({Cell(Combo), Cell(Items), Cell(Bar), Cell(Picture), Cell(View)})});
    Entry.Items = {&Inner};
    Menus = {&Entry};
    Timers = {&Clock};
    const auto note = [this](const char* what) { return [this, what] { Heard += what; }; };
    Push.Click = note("push ");
    Mark.Click = note("mark ");
    Line.Change = note("change ");
    Line.Enter = note("enter ");
    Combo.Change = note("combo ");
    Items.Click = note("item ");
    Items.Open = note("open ");
    Bar.Change = note("bar ");
    Picture.MouseMove = note("hover ");
    Picture.MouseUp = [this](MouseButton button) {
      Heard += button == MouseButton::kRight ? "right " : "left ";
    };
    Picture.PointUp = [this](int x, int y) { Heard += Joined(x, ",", y, " "); };
    Picture.KeyDown = [](PictureKey key) { return key == PictureKey::kHome; };
    View.BeforeNavigate = [](const std::string& url) { return url == "taken"; };
    View.LinkPointed = [this](const std::string& url) { Heard += url; };
    Inner.Click = note("menu ");
    Clock.Tick = note("tick ");
    QueryClose = [] { return true; };
  }
  Button Push{"Push"};
  Label Word{"Word"};
  CheckBox Mark{"Mark"};
  TextBox Line{"Line"};
  ComboBox Combo{"Combo"};
  ListBox Items{"Items"};
  ScrollBar Bar{"Bar"};
  PictureBox Picture{"Picture"};
  BrowserView View{"View"};
  MenuItem Entry{"Entry", "Entry"};
  MenuItem Inner{"Inner", "Inner"};
  Timer Clock{"Clock"};
  std::string Heard;
};

TEST(UserEventsTest, PutTheirValueIntoTheModelAndCallItsHandler) {
  using Kind = UserEventKind;
  Everything form;
  const struct {
    UserEvent Event;
    const char* Heard;
    bool Answer = false;
  } cases[] = {
      {{Kind::kClick, "Push"}, "push "},
      {{Kind::kClick, "Word"}, ""},
      {{Kind::kMark, "Mark", "", 1}, ""},
      {{Kind::kClick, "Mark"}, "mark "},
      {{Kind::kType, "Line", "typed"}, "change "},
      {{Kind::kEnter, "Line"}, "enter "},
      {{Kind::kChoose, "Combo", "", 2}, "combo "},
      {{Kind::kChoose, "Items", "", 1}, "item "},
      {{Kind::kOpen, "Items", "", 2}, "open "},
      {{Kind::kScroll, "Bar", "", 9}, "bar "},
      {{Kind::kHover, "Picture"}, "hover "},
      {{Kind::kPress, "Picture", "", 1}, "right "},
      {{Kind::kPointUp, "Picture", "", 3, 40}, "3,40 "},
      {{Kind::kPointMove, "Picture", "", 3, 40}, ""},
      {{Kind::kKey, "Picture", "", static_cast<int>(PictureKey::kHome)}, "", true},
      {{Kind::kKey, "Picture", "", 0}, ""},
      {{Kind::kLink, "View", "taken"}, "", true},
      {{Kind::kLink, "View", "other"}, ""},
      {{Kind::kPoint, "View", "taken"}, "taken"},
      {{Kind::kMenu, "Inner"}, "menu "},
      {{Kind::kTick, "Clock"}, "tick "},
      {{Kind::kClose}, "", true},
      {{Kind::kActivate}, ""},
  };
  for (const auto& row : cases) {
    form.Heard.clear();
    const std::string_view word = RowOf(row.Event.Kind).Word;
    EXPECT_EQ(RefuseEvent(form, row.Event), "") << word;
    EXPECT_EQ(ApplyEvent(form, row.Event), row.Answer) << word;
    EXPECT_EQ(form.Heard, row.Heard) << word;
    EXPECT_EQ(FindEventRow(word)->Kind, row.Event.Kind);
  }
  EXPECT_TRUE(form.Mark.Value);
  EXPECT_EQ(form.Line.Text.Get(), "typed");
  EXPECT_EQ(form.Combo.Text.Get(), "two");
  EXPECT_EQ(form.Items.Selected.Get(), 2);
  EXPECT_EQ(form.Bar.Value.Get(), 9);
}

TEST(UserEventsTest, RefuseWhatNoUserCanDo) {
  using Kind = UserEventKind;
  Everything form;
  for (const UserEvent& event : {
           UserEvent{Kind::kClick, "Nobody"},
           UserEvent{Kind::kClick, "Line"},
           UserEvent{Kind::kClick, ""},
           UserEvent{Kind::kClose, "Push"},
           UserEvent{Kind::kMenu, "Push"},
           UserEvent{Kind::kTick, "Inner"},
           UserEvent{Kind::kMark, "Mark", "", 2},
           UserEvent{Kind::kChoose, "Combo", "", 3},
           UserEvent{Kind::kChoose, "Items", "", -1},
           UserEvent{Kind::kOpen, "Items", "", 0},
           UserEvent{Kind::kScroll, "Bar", "", 10},
           UserEvent{Kind::kPress, "Picture", "", 2},
           UserEvent{Kind::kPoint, "Picture", "taken"},
           UserEvent{Kind::kKey, "Picture", "", 8},
           UserEvent{Kind::kPointUp, "Picture", "", -1},
           UserEvent{Kind::kPointMove, "Picture", "", 0, 1 << 30},
       }) {
    EXPECT_NE(RefuseEvent(form, event), "") << event.Control;
    EXPECT_FALSE(ApplyEvent(form, event));
  }
  EXPECT_EQ(form.Heard, "");
}

/// Events find their control by its name.
void CountNames(const Layout& layout, std::map<std::string, int>& names) {
  if (layout.Leaf != nullptr) ++names[layout.Leaf->Name];
  for (const Layout& child : layout.Children) CountNames(child, names);
}
void CountNames(const std::vector<MenuItem*>& items, std::map<std::string, int>& names) {
  for (const MenuItem* item : items) {
    ++names[item->Name];
    CountNames(item->Items, names);
  }
}

using FormNamesTest = SessionTest;

TEST_F(FormNamesTest, AreThoseOfOneControlEach) {
  WriteFile("blank.htm", "");
  std::map<std::string, int> forms;
  for (const Form* form :
       {static_cast<Form*>(&TheMainWindow()), static_cast<Form*>(&TheProfileMenu()),
        static_cast<Form*>(&TheHelpForm()), static_cast<Form*>(&TheDeckManager()),
        static_cast<Form*>(&TheProgressForm()), static_cast<Form*>(&TheCardEdit()),
        static_cast<Form*>(&TheEffectPicker()), static_cast<Form*>(&TheCounterPicker()),
        static_cast<Form*>(&TheValGen()), static_cast<Form*>(&ThePicPick())}) {
    EXPECT_EQ(++forms[form->Name], 1) << form->Name;
    std::map<std::string, int> controls;
    std::map<std::string, int> menus;
    CountNames(form->Arrangement, controls);
    CountNames(form->Menus, menus);
    EXPECT_FALSE(controls.empty()) << form->Name;
    for (const auto& names : {controls, menus}) {
      for (const auto& [name, count] : names) EXPECT_EQ(count, 1) << form->Name << " " << name;
    }
  }
}

}  // namespace
}  // namespace brindlemoor
