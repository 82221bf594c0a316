// Text of any colour that a card may ask for can be read.
#include "platform/qt/style.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(Style, TextOfEveryColourCanBeRead) {
  for (int step = 0; step < 216; ++step) {
    const QColor text(step / 36 * 51, step / 6 % 6 * 51, step % 6 * 51);
    const QColor plate = PlateFor(text);
    EXPECT_GE(Contrast(text, plate.isValid() ? plate : WindowColor()), 3) << step;
  }
  EXPECT_FALSE(PlateFor(Qt::white).isValid()) << "light text stands on the window itself";
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
}

}  // namespace
}  // namespace brindlemoor
