// The dark style: one palette and one style sheet.
#include "platform/qt/style.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <algorithm>
#include <cmath>

namespace brindlemoor {

namespace {

constexpr double kSmallestFont = 10.0;  // points
constexpr double kContrast = 4.5;       // that text needs to be read with ease

constexpr const char* kWindow = "#1d2126";
constexpr const char* kRaised = "#2b3138";
constexpr const char* kSunken = "#14171b";
constexpr const char* kText = "#e6e4df";
constexpr const char* kFaded = "#9da3aa";
constexpr const char* kPlate = "#d8d5cc";
constexpr const char* kAccent = "#c99a4b";
constexpr const char* kEdge = "#5a646f";
constexpr const char* kBar = "#8fb0a9";
constexpr const char* kChoice = "#7fd6c2";
constexpr int kVeil = 165;  // of 255

constexpr const char* kSheet = R"(
QToolTip { color: #1d2126; background: #efe6d2; border: 1px solid #8a7a55; padding: 4px; }
QPushButton {
  background: #2f363e; color: #e6e4df; border: 1px solid #454d57; border-radius: 4px;
  padding: 5px 12px; outline: none;
}
QPushButton:hover { background: #3a434d; border-color: #c99a4b; }
QPushButton:focus { border-color: #c99a4b; }
QPushButton:pressed { background: #22272d; }
QPushButton:disabled { color: #9da3aa; border-color: #333a42; }
QMenuBar { background: #171a1e; }
QMenuBar::item { padding: 5px 10px; background: transparent; }
QMenuBar::item:selected { background: #3a434d; }
QMenu { background: #23282e; border: 1px solid #454d57; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 24px; }
QMenu::item:selected { background: #c99a4b; color: #14171b; }
QMenu::item:disabled { color: #9da3aa; background: transparent; }
QLineEdit, QPlainTextEdit, QListWidget, QTableView {
  border: 1px solid #454d57; border-radius: 3px; padding: 3px;
}
QLineEdit:focus, QPlainTextEdit:focus, QListWidget:focus, QTableView:focus { border-color: #c99a4b; }
QComboBox[editable="true"] {
  background: #14171b; border: 1px solid #454d57; border-radius: 3px; padding: 2px 0px 2px 2px;
}
QComboBox[editable="true"]:focus { border-color: #c99a4b; }
QTableView { gridline-color: #333a42; selection-background-color: #5a4a2c; selection-color: #ffffff; }
QHeaderView::section {
  background: #23282e; color: #c9c4b8; border: 0; border-right: 1px solid #333a42;
  border-bottom: 1px solid #454d57; padding: 3px 6px;
}
QTableCornerButton::section { background: #23282e; border: 0; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QRadioButton::indicator, QCheckBox::indicator {
  width: 12px; height: 12px; border: 1px solid #7d838a; background: #14171b;
}
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator { border-radius: 3px; }
QRadioButton::indicator:checked, QCheckBox::indicator:checked {
  background: #c99a4b; border: 1px solid #e6c88e;
}
QRadioButton:focus, QCheckBox:focus { color: #ffffff; }
QRadioButton::indicator:focus, QCheckBox::indicator:focus { border-color: #c99a4b; }
QGroupBox { border: 1px solid #3a434d; border-radius: 4px; margin-top: 10px; padding-top: 3px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #c9c4b8; }
QProgressBar { border: 1px solid #454d57; border-radius: 3px; background: #14171b; }
QProgressBar::chunk { background: #8fb0a9; border-radius: 2px; }
QScrollArea#page > QWidget > QWidget { background: #1d2126; }
)";

/// Relative luminance: the weighted sum of the linear parts of the colour.
double Luminance(QColor color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

QPalette DarkPalette() {
  QPalette palette;
  const std::pair<QPalette::ColorRole, const char*> colors[] = {
      {QPalette::Window, kWindow},
      {QPalette::WindowText, kText},
      {QPalette::Base, kSunken},
      {QPalette::AlternateBase, kRaised},
      {QPalette::Text, kText},
      {QPalette::Button, kRaised},
      {QPalette::ButtonText, kText},
      {QPalette::BrightText, "#ffffff"},
      {QPalette::Highlight, kAccent},
      {QPalette::HighlightedText, kSunken},
      {QPalette::Link, "#99ff33"},
      {QPalette::LinkVisited, "#ffff00"},
      {QPalette::PlaceholderText, kFaded},
      {QPalette::ToolTipBase, "#efe6d2"},
      {QPalette::ToolTipText, kWindow},
  };
  for (const auto& [role, color] : colors) palette.setColor(role, QColor(color));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(kFaded));
  }
  return palette;
}

/// Two cards, one behind the other.
QIcon ProgramIcon() {
  constexpr int kSize = 64;
  QPixmap picture(kSize, kSize);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kSize / 2.0, kSize / 2.0 + 4);
  for (const auto& [angle, color] : {std::pair{-16.0, "#5b3f7a"}, std::pair{10.0, kAccent}}) {
    painter.save();
    painter.rotate(angle);
    painter.setPen(QPen(QColor(kSunken), 2));
    painter.setBrush(QColor(color));
    painter.drawRoundedRect(QRectF(-16, -26, 32, 46), 5, 5);
    painter.restore();
  }
  painter.end();
  return QIcon(picture);
}

}  // namespace

void ApplyStyle(QApplication& application) {
  application.setStyle(QStyleFactory::create("Fusion"));
  application.setPalette(DarkPalette());
  // Without it the letters of a window that has its own size would not reach its controls.
  QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
  application.setStyleSheet(kSheet);
  QFont font = application.font();
  if (font.pointSizeF() < kSmallestFont) font.setPointSizeF(kSmallestFont);
  application.setFont(font);
  application.setWindowIcon(ProgramIcon());
}

double Contrast(QColor one, QColor other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor PlateFor(QColor text) {
  if (Contrast(text, QColor(kWindow)) >= kContrast) return {};
  // Only black and white together are far enough from every colour.
  for (const QColor plate : {QColor(kPlate), QColor(Qt::black)}) {
    if (Contrast(text, plate) >= kContrast) return plate;
  }
  return Qt::white;
}

QColor WindowColor() { return QColor(kWindow); }

QColor HighlightColor() { return QColor(kAccent); }

QColor TextColor() { return QColor(kText); }

QColor CardColor() { return QColor(kRaised); }

QColor CardEdgeColor() { return QColor(kEdge); }

QColor ChoiceColor() { return QColor(kChoice); }

QColor DimColor() {
  QColor veil(kWindow);
  veil.setAlpha(kVeil);
  return veil;
}

QColor BadgeColor() { return QColor(kSunken); }

QColor BarColor() { return QColor(kBar); }

}  // namespace brindlemoor
