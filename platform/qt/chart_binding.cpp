// Bar charts: upright bars, each with its count above and its label below.
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/spoken_widget.h"
#include "platform/qt/style.h"

namespace brindlemoor {

namespace {

constexpr QSize kNaturalSize(260, 110);
constexpr int kSmallestWidth = 60;
constexpr int kSmallestRoom = 12;  // for the bars themselves
constexpr int kWidestBar = 36;
constexpr double kBarShare = 0.7;  // of the width that a bar has
constexpr int kLines = 3;          // of text: caption, counts, labels

class ChartWidget : public QWidget, public SpokenWidget {
 public:
  ChartWidget(const BarChart& model, QWidget* parent)
      : QWidget(parent), SpokenWidget(static_cast<QWidget&>(*this)), model_(model) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  }

  QAccessible::Role Role() const override { return QAccessible::Chart; }

  void Follow() {
    QStringList bars;
    for (const ChartBar& bar : model_.Bars.Get()) {
      bars << QString::fromStdString(bar.Label) + ": " + QString::number(bar.Count);
    }
    QStringList words;
    if (!model_.Caption.Get().empty()) words << QString::fromStdString(model_.Caption);
    if (!bars.isEmpty()) words << bars.join(", ");
    setAccessibleName(words.join(": "));
    update();
  }

  QSize sizeHint() const override { return kNaturalSize; }
  QSize minimumSizeHint() const override {
    return {kSmallestWidth, kLines * fontMetrics().height() + kSmallestRoom};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(TextColor());
    const int line = fontMetrics().height();
    DrawLine(painter, QRectF(0, 0, width(), line), QString::fromStdString(model_.Caption));
    const std::vector<ChartBar>& bars = model_.Bars;
    if (bars.empty()) return;
    int most = 1;
    for (const ChartBar& bar : bars) most = std::max(most, bar.Count);
    const double slot = static_cast<double>(width()) / static_cast<double>(bars.size());
    QRectF place(0, 2 * line, slot, std::max(0, height() - kLines * line));
    for (const ChartBar& bar : bars) {
      DrawBar(painter, place, bar, most);
      place.translate(slot, 0);
    }
  }

 private:
  /// Draws a bar into the lower part of its room, its label under the room.
  void DrawBar(QPainter& painter, QRectF room, const ChartBar& bar, int most) const {
    const int line = fontMetrics().height();
    const int count = std::max(bar.Count, 0);
    const int width = std::min(kWidestBar, std::max(1, static_cast<int>(room.width() * kBarShare)));
    int height = static_cast<int>(room.height() * count / most);
    if (count > 0) height = std::max(height, 1);
    QRect filled(0, qRound(room.bottom()) - height, width, height);
    filled.moveLeft(qRound(room.center().x() - width / 2.0));
    painter.fillRect(filled, BarColor());
    const QString number = QString::number(bar.Count);
    if (fontMetrics().horizontalAdvance(number) <= room.width()) {
      DrawLine(painter, QRectF(room.left(), filled.top() - line, room.width(), line), number);
    }
    DrawLine(painter, QRectF(room.left(), room.bottom(), room.width(), line),
             QString::fromStdString(bar.Label));
  }

  void DrawLine(QPainter& painter, QRectF room, const QString& text) const {
    painter.drawText(
        room, Qt::AlignCenter | Qt::TextSingleLine,
        fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room.width())));
  }

  const BarChart& model_;
};

}  // namespace

QWidget* BindBarChart(BarChart& model, FormWindow& window) {
  auto* chart = new ChartWidget(model, &window);
  BindCommon(model, *chart, window, [chart] { chart->Follow(); });
  return chart;
}

}  // namespace brindlemoor
