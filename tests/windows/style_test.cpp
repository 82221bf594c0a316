// Text of any colour that a card may ask for can be read.
#include "platform/qt/style.h"

#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

TEST(Style, TextOfEveryColourCanBeRead) {
  for (int step = 0; step < 216; ++step) {
    const QColor text(step / 36 * 51, step / 6 % 6 * 51, step % 6 * 51);
    const QColor plate = PlateFor(text);
    EXPECT_GE(Contrast(text, plate.isValid() ? plate : WindowColor()), 4.5) << step;
  }
  EXPECT_FALSE(PlateFor(Qt::white).isValid()) << "light text stands on the window itself";
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
}

TEST(Style, TheProgramsOwnTextsCanBeRead) {
  ApplyStyle(*qApp);
  const QPalette palette = QApplication::palette();
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::Link, QPalette::Window},
      {QPalette::LinkVisited, QPalette::Window},
      {QPalette::ToolTipText, QPalette::ToolTipBase}};
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (const auto& [text, ground] : texts) {
      EXPECT_GE(Contrast(palette.color(group, text), palette.color(group, ground)), 4.5)
          << group << ": " << text << " on " << ground;
    }
  }
}

}  // namespace
}  // namespace brindlemoor
