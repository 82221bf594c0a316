// Text of any colour that a card may ask for can be read.
#include "platform/qt/style.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(Style, TextOfEveryColourCanBeRead) {
  constexpr double kReadable = 3.0;
  for (int red = 0; red <= 255; red += 51) {
    for (int green = 0; green <= 255; green += 51) {
      for (int blue = 0; blue <= 255; blue += 51) {
        const QColor text(red, green, blue);
        const QColor plate = PlateFor(text);
        EXPECT_GE(Contrast(text, plate.isValid() ? plate : WindowColor()), kReadable)
            << text.name().toStdString();
      }
    }
  }
  EXPECT_FALSE(PlateFor(Qt::white).isValid()) << "light text stands on the window itself";
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
}

}  // namespace
}  // namespace brindlemoor
