// Picture boxes: keys, dragging, where the focus goes, and what stands in for a missing picture.
#include <QImage>
#include <algorithm>
#include <tuple>

#include "platform/qt/style.h"
#include "platform/raster.h"
#include "tests/windows/desktop_test.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

/// Two columns of boxes 60 by 90: 0 to 5 are "hand", 6 to 9 "deck" and 10 can't be dragged.
class PictureBoxTest : public DesktopTest {
 protected:
  PictureBoxTest() {
    std::vector<Layout> rows;
    for (int number = 0; number < 11; ++number) {
      const std::string name = std::to_string(number);
      auto& box = *boxes_.emplace_back(std::make_unique<PictureBox>(name));
      box.DragGroup = number < 6 ? "hand" : number < 10 ? "deck" : "";
      box.MouseMove = [this, name] { told_ += "move" + name + " "; };
      box.MouseUp = [this, name](MouseButton button) {
        told_ += (button == MouseButton::kLeft ? "left" : "right") + name + " ";
      };
      if (number % 2 == 0) rows.push_back({.Direction = Layout::Kind::kRow});
      rows.back().Children.push_back(Cell(box, 60, 90));
    }
    Show(form_, std::move(rows));
    Window(form_)->resize(400, 640);
    Window(form_)->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Window(form_)));
  }
  ~PictureBoxTest() override { desktop_->CloseWindows(); }

  QWidget* Widget(int number) { return Find(form_, *boxes_[static_cast<std::size_t>(number)]); }
  PictureBox& Box(int number) { return *boxes_[static_cast<std::size_t>(number)]; }
  QPoint Centre(int number) {
    return Widget(number)->mapTo(Window(form_), Widget(number)->rect().center());
  }
  std::string Focused() {
    QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? "" : widget->objectName().toStdString();
  }
  /// Moves the pointer, with the left button held, to a place in the window.
  void Move(int number, QPoint place) {
    QMouseEvent event(QEvent::MouseMove, Widget(number)->mapFrom(Window(form_), place),
                      Window(form_)->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(Widget(number), &event);
  }
  QImage Shown() { return Window(form_)->grab().toImage(); }
  QString Save(const QString& name, QColor color) {
    QImage image(60, 90, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(folder_.path() + "/" + name));
    return folder_.path() + "/" + name;
  }

  Form form_{"Form"};
  std::vector<std::unique_ptr<PictureBox>> boxes_;
  std::string told_;
};

TEST_F(PictureBoxTest, PicturesAreReachedByKeysAlone) {
  Box(3).KeyDown = Box(4).KeyDown = [this](PictureKey key) {
    told_ += "key" + std::to_string(static_cast<int>(key)) + " ";
    return key == PictureKey::kDown || key == PictureKey::kEnd;
  };
  Box(5).MouseUp = [this](MouseButton) {
    told_ += "gone ";
    Box(5).Visible = false;
  };
  Widget(10)->setFocus();
  const struct {
    Qt::Key Key;
    const char* Told;
    Qt::KeyboardModifiers Modifiers = Qt::NoModifier;
  } steps[] = {{Qt::Key_Tab, "move0 "},
               {Qt::Key_Return, "left0 move0 "},  // another card may be there now
               {Qt::Key_Right, "move1 "},
               {Qt::Key_Delete, "right1 move1 "},
               {Qt::Key_Right, ""},
               {Qt::Key_PageDown, ""},
               {Qt::Key_Down, "move3 "},
               {Qt::Key_Return, "right3 move3 ", Qt::ShiftModifier},
               {Qt::Key_End, "key7 "},
               {Qt::Key_PageUp, "key4 "},
               {Qt::Key_Home, "key6 "},
               {Qt::Key_Left, "key0 move2 "},
               {Qt::Key_Enter, "left2 move2 "},
               {Qt::Key_Down, "move4 "},
               {Qt::Key_Down, "key3 "},  // no picture of the group lies below
               {Qt::Key_Right, "key1 move5 "},
               {Qt::Key_Space, "gone move4 "}};  // the neighbour has the keyboard then
  for (const auto& [key, expected, modifiers] : steps) {
    told_.clear();
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
    EXPECT_EQ(told_, expected) << QKeySequence(key).toString().toStdString();
  }
}

TEST_F(PictureBoxTest, AClickTellsTheMouseButtonsApart) {
  for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(Widget(10), button);
  }
  QTest::mousePress(Widget(10), Qt::LeftButton);
  QTest::mouseRelease(Widget(10), Qt::LeftButton, {}, {-20, -20});  // let go elsewhere: no click
  EXPECT_EQ(told_, "left10 right10 ");
}

TEST_F(PictureBoxTest, TheFocusStaysInTheGroupWhenItsPictureHides) {
  const struct {
    int Focused;
    std::vector<int> Hidden;
    const char* Then;
    const char* Told;
  } cases[] = {
      {4, {4}, "5", "move5 "},  // as near as 2, and a deck's box is no nearer
      {5, {5, 3}, "2", "move2 "},
      {6, {7, 6}, "8", "move8 "},
      {0, {0, 1, 2}, "", ""},
  };
  for (const auto& [focused, hidden, then, told] : cases) {
    Widget(focused)->setFocus();
    QCoreApplication::processEvents();
    told_.clear();
    for (const int number : hidden) Box(number).Visible = false;
    const std::string meanwhile = std::exchange(told_, "");
    QCoreApplication::processEvents();
    if (*then != '\0') {
      EXPECT_EQ(Focused(), then);
      EXPECT_EQ(meanwhile, "") << "no preview amid the change of many boxes";
      EXPECT_EQ(told_, told);
    } else {
      EXPECT_NE(Focused(), "0") << "nobody of the group is left";
    }
  }
}

TEST_F(PictureBoxTest, APictureIsDraggedToAnotherGroup) {
  Box(9).Visible = false;
  const QPoint between = (Centre(6) + Centre(8)) / 2;
  const QPoint near = Centre(0) + QPoint(2, 0);
  const struct {
    const char* Case;
    int Dragged;
    QPoint Place;
    const char* Told;
    Qt::Key Key = Qt::Key_unknown;
  } cases[] = {
      {"a picture of the deck", 0, Centre(6), "left0 "},
      {"between pictures", 0, between, "left0 "},
      {"where a hidden picture was", 5, Centre(9), "left5 "},
      {"back from the deck", 7, Centre(0), "left7 "},
      {"the same group", 0, Centre(3), ""},
      {"nowhere", 0, Centre(6) + QPoint(200, 0), ""},
      {"no group", 0, Centre(10), ""},
      {"outside the window", 0, Centre(6) - QPoint(200, 0), ""},
      {"a shaking hand", 0, near, "move0 left0 "},
      {"no group of its own", 10, Centre(6), "move10 "},
      {"given up", 0, Centre(6), "", Qt::Key_Escape},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.Case);
    told_.clear();
    QTest::mousePress(Widget(row.Dragged), Qt::LeftButton, {}, Widget(0)->rect().center());
    Move(row.Dragged, row.Place);
    if (row.Key != Qt::Key_unknown) QTest::keyClick(QApplication::focusWidget(), row.Key);
    QTest::mouseRelease(Widget(row.Dragged), Qt::LeftButton, {},
                        Widget(row.Dragged)->mapFrom(Window(form_), row.Place));
    EXPECT_EQ(told_, row.Told);
  }
  // Back to where it came from it is no click, and another button does not end it.
  told_.clear();
  QTest::mousePress(Widget(0), Qt::LeftButton);
  Move(0, Centre(6));
  QTest::mouseRelease(Widget(0), Qt::RightButton);
  Move(0, Centre(0));
  QTest::mouseRelease(Widget(0), Qt::LeftButton);
  EXPECT_EQ(told_, "");
}

TEST_F(PictureBoxTest, ADraggedPictureIsSeenUntilItIsLetGo) {
  Box(0).Picture = Save("red.png", Qt::red).toStdString();
  const QRect area(Widget(6)->mapTo(Window(form_), QPoint(0, 0)),
                   Widget(9)->mapTo(Window(form_), QPoint(59, 89)));
  const QPoint empty = Centre(6) + QPoint(200, 0);
  const auto marked = [&] { return Shown().pixelColor(area.topLeft()) == HighlightColor(); };
  const auto carried = [&] {
    const QColor there = Shown().pixelColor(empty);
    return there.red() > there.blue() + 60;
  };
  for (const bool hides : {false, true}) {
    EXPECT_FALSE(marked() || carried());
    QTest::mousePress(Widget(0), Qt::LeftButton);
    Move(0, empty);
    EXPECT_TRUE(marked() && carried());
    EXPECT_EQ(Shown().pixelColor(area.bottomRight()), HighlightColor());
    if (hides) Box(0).Visible = false;
    if (!hides) Move(0, Centre(6));
    EXPECT_FALSE(carried());
    QTest::mouseRelease(Widget(0), Qt::LeftButton, {}, {-100, 0});
  }
  EXPECT_FALSE(marked());
}

/// How many pixels of an image part have a colour.
int Count(const QImage& image, QRect part, QColor color) {
  int count = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      count += image.pixelColor(x, y) == color ? 1 : 0;
    }
  }
  return count;
}

TEST_F(PictureBoxTest, ABlankCardSaysWhatTheMissingPictureIs) {
  Widget(10)->setFocus();
  const auto face = [this] { return Widget(0)->grab().toImage(); };
  const QImage nothing = face();
  EXPECT_EQ(Count(nothing, nothing.rect(), nothing.pixelColor(0, 0)), 60 * 90);
  Box(0).Badge = "3";
  EXPECT_EQ(face(), nothing) << "no badge without a picture";
  Box(0).Badge = "";
  for (const char* caption :
       {"Oona", "A name of many words that fills more lines than there are in the card",
        "Onesinglewordthatismuchlongerthanthecardiswide", "Two\nlines"}) {
    Box(0).Caption = caption;
    EXPECT_EQ(Widget(0)->accessibleName(), caption);
    const QImage card = face();
    const QRect inner = card.rect().adjusted(4, 4, -4, -4);
    EXPECT_GT(Count(card, inner, TextColor()), 2) << caption;
    EXPECT_EQ(Count(card, card.rect(), TextColor()), Count(card, inner, TextColor())) << caption;
    Box(0).Picture = folder_.path().toStdString() + "/missing.png";
    EXPECT_EQ(face(), card);
    Box(0).Picture = "";
  }
  Widget(0)->setFocus();
  EXPECT_EQ(face().pixelColor(30, 1), HighlightColor());
  EXPECT_GE(Contrast(TextColor(), CardColor()), 7);
}

TEST_F(PictureBoxTest, ABadgeIsReadOnAnyPicture) {
  Widget(10)->setFocus();
  for (const QColor color : {Qt::black, Qt::white, Qt::red}) {
    Box(0).Picture = Save(color.name().mid(1) + ".png", color).toStdString();
    for (const char* badge : {"3", "a badge that is too long"}) {
      Box(0).Badge = badge;
      const QImage image = Widget(0)->grab().toImage();
      const QRect corner(0, 60, 60, 26);  // all but the picture's lower edge
      EXPECT_GT(Count(image, corner, BadgeColor()), 60) << badge;
      EXPECT_GT(Count(image, corner, TextColor()), 5) << badge;
      EXPECT_EQ(Count(image, image.rect(), color) - Count(image, corner, color), 60 * 90 - 60 * 26)
          << badge;
    }
  }
  EXPECT_GE(Contrast(TextColor(), BadgeColor()), 7);
}

/// A drawing of one colour.
std::shared_ptr<const Raster> Drawn(int width, int height, std::int32_t color) {
  auto drawing = std::make_shared<Raster>(width, height);
  for (int y = 0; y < height; ++y) std::fill_n(drawing->Row(y), width, color);
  return drawing;
}

TEST_F(PictureBoxTest, ADrawingStandsInPlaceOfTheFile) {
  Widget(10)->setFocus();
  const auto face = [this] { return Widget(0)->grab().toImage(); };
  Box(0).Picture = Save("green.png", Qt::green).toStdString();
  const auto red = Drawn(20, 20, 0xFF0000);
  for (const auto& [drawing, color, count] :
       {std::tuple{red, Qt::red, 60 * 60},
        {Drawn(40, 20, 0x0000FF), Qt::blue, 60 * 30},
        {Drawn(0, 0, 0), Qt::red, 0},
        {red, Qt::red, 60 * 60},
        {std::shared_ptr<const Raster>(), Qt::green, 60 * 90}}) {
    Box(0).Drawing = drawing;
    EXPECT_EQ(Count(face(), face().rect(), color), count);
  }
}

TEST_F(PictureBoxTest, PlacesOfAPictureInItsOwnSizeAreTold) {
  PictureBox& box = Box(0);
  const auto tell = [this](const char* what) {
    return [this, what](int x, int y) { told_ += Joined(what, x, ",", y, " "); };
  };
  box.PointMove = tell("over");
  box.PointUp = tell("up");
  QTest::mouseClick(Widget(0), Qt::LeftButton, {}, {5, 5});
  EXPECT_EQ(told_, "left0 ") << "no picture, no place";
  box.Picture = Save("red.png", Qt::red).toStdString();
  box.ViewWidth = 50;
  box.ViewHeight = 20;
  Widget(10)->setFocus();
  QImage face = Widget(0)->grab().toImage();
  EXPECT_EQ(Count(face, {0, 0, 50, 20}, Qt::red), 50 * 20);
  EXPECT_EQ(Count(face, face.rect(), Qt::red), 50 * 20);
  const struct {
    QPoint Place;
    Qt::MouseButton Button;
    const char* Told;
  } clicks[] = {
      {{1, 0}, Qt::LeftButton, "up1,0 left0 "}, {{49, 19}, Qt::LeftButton, "up49,19 left0 "},
      {{50, 19}, Qt::LeftButton, "left0 "},     {{49, 20}, Qt::LeftButton, "left0 "},
      {{10, 10}, Qt::RightButton, "right0 "},
  };
  for (const auto& [place, button, told] : clicks) {
    told_.clear();
    QTest::mouseClick(Widget(0), button, {}, place);
    EXPECT_EQ(told_, told);
  }
  told_.clear();
  for (const QPoint place : {QPoint(7, 8), QPoint(7, 25)}) {
    QMouseEvent event(QEvent::MouseMove, place, Widget(0)->mapToGlobal(place), Qt::NoButton, {},
                      {});
    QApplication::sendEvent(Widget(0), &event);
  }
  EXPECT_EQ(told_, "move0 over7,8 move0 ");
  box.ViewWidth = 0;
  box.ViewHeight = 0;
  box.Drawing = Drawn(20, 20, 0);  // 60 by 60 in the middle
  face = Widget(0)->grab().toImage();
  told_.clear();
  for (const int y : {14, 15, 74, 75}) QTest::mouseClick(Widget(0), Qt::LeftButton, {}, {1, y});
  EXPECT_EQ(told_, "left0 up1,0 left0 up1,59 left0 left0 ");
}

TEST_F(PictureBoxTest, MarksAreSeenOnAnyPictureAndStayOnIt) {
  Widget(10)->setFocus();
  Box(0).ViewWidth = 50;
  Box(0).ViewHeight = 50;
  for (const std::int32_t color : {0x000000, 0xFFFFFF, 0x808080}) {
    for (const bool guide : {false, true}) {
      const QColor ground = QColor::fromRgb(static_cast<QRgb>(color));
      Box(0).Drawing = Drawn(50, 50, color);
      Box(0).Marks = std::vector<PictureMark>{{10, 10, 30, 30, guide}, {-40, -40, 99, 99, guide}};
      const QImage face = Widget(0)->grab().toImage();
      double strongest = 1;
      for (int x = 11; x < 30; ++x) {
        for (const int y : {9, 10, 11}) {
          strongest = std::max(strongest, Contrast(face.pixelColor(x, y), ground));
        }
      }
      EXPECT_GE(strongest, guide ? 1.8 : 3) << color;
      EXPECT_EQ(Count(face, {12, 12, 16, 16}, ground), 16 * 16) << color;
      EXPECT_EQ(Count(face, {0, 50, 60, 40}, face.pixelColor(59, 89)), 60 * 40) << color;
    }
  }
}

TEST_F(PictureBoxTest, AnEmptyPlaceHasAFrameWhereItIsWanted) {
  Widget(10)->setFocus();
  const auto face = [this] { return Widget(0)->grab().toImage(); };
  const QColor window = face().pixelColor(30, 45);
  EXPECT_EQ(Count(face(), face().rect(), window), 60 * 90);
  Box(0).FrameWhenEmpty = true;
  const int framed = 60 * 90 - Count(face(), face().rect(), window);
  EXPECT_GE(framed, 2 * (60 + 90) - 30);
  EXPECT_LE(framed, 2 * (60 + 90) + 30);
  Box(0).Picture = Save("red.png", Qt::red).toStdString();
  EXPECT_EQ(Count(face(), face().rect(), Qt::red), 60 * 90);
}

}  // namespace
}  // namespace brindlemoor
