// Labels: text in its own colour that shortens or wraps itself to the room it has.
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "platform/passing_label.h"
#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/spoken_widget.h"
#include "platform/qt/style.h"

namespace brindlemoor {

namespace {

constexpr int kLongText = 40;  // characters from which a label may take several lines
constexpr int kPadding = 2;
constexpr double kHeadlineScale = 1.7;
constexpr int kPlateRadius = 3;

class LabelWidget : public QWidget, public SpokenWidget {
 public:
  LabelWidget(const Label& model, FormWindow& window)
      : QWidget(&window),
        SpokenWidget(static_cast<QWidget&>(*this)),
        model_(model),
        window_(window) {}

  QAccessible::Role Role() const override {
    return model_.Click ? QAccessible::Link : QAccessible::StaticText;
  }

  void Follow() {
    text_ = QString::fromStdString(model_.Caption);
    setAccessibleName(text_);
    QSizePolicy policy(QSizePolicy::Preferred,
                       IsLong() ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    policy.setHeightForWidth(IsLong());
    policy.setRetainSizeWhenHidden(dynamic_cast<const PassingLabel*>(&model_) == nullptr);
    setSizePolicy(policy);
    if (model_.Click) setCursor(Qt::PointingHandCursor);
    updateGeometry();
    update();
  }

  QSize sizeHint() const override {
    const QFontMetrics metrics(Letters());
    const int width =
        std::min(metrics.horizontalAdvance(text_), kLongText * metrics.averageCharWidth());
    return {width + 2 * kPadding, metrics.height()};
  }
  QSize minimumSizeHint() const override { return {0, QFontMetrics(Letters()).height()}; }
  bool hasHeightForWidth() const override { return IsLong() && minimumHeight() != maximumHeight(); }
  int heightForWidth(int width) const override {
    return QFontMetrics(Letters())
        .boundingRect(QRect(0, 0, width - 2 * kPadding, 10'000), Qt::TextWordWrap, text_)
        .height();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setFont(Letters());
    const QFontMetrics metrics(Letters());
    const QRect room = rect().adjusted(kPadding, 0, -kPadding, 0);
    const bool wraps = room.height() >= 2 * metrics.height();
    const QString text = wraps ? text_ : metrics.elidedText(text_, Qt::ElideRight, room.width());
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | (wraps ? Qt::TextWordWrap : 0);
    const QColor color = QColor::fromRgb(static_cast<QRgb>(model_.TextColor.Get()));
    if (const QColor plate = PlateFor(color); plate.isValid() && !text.isEmpty()) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(Qt::NoPen);
      painter.setBrush(plate);
      painter.drawRoundedRect(
          metrics.boundingRect(room, flags, text).adjusted(-kPadding, 0, kPadding, 0), kPlateRadius,
          kPlateRadius);
    }
    painter.setPen(isEnabled() ? color : palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(room, flags, text);
  }

  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::FontChange) updateGeometry();
    QWidget::changeEvent(event);
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
        model_.Click) {
      window_.Deliver({.Kind = UserEventKind::kClick, .Control = model_.Name});
    }
  }

 private:
  QFont Letters() const {
    QFont letters = font();
    if (model_.Headline) {
      letters.setPointSizeF(letters.pointSizeF() * kHeadlineScale);
      letters.setBold(true);
    }
    return letters;
  }
  bool IsLong() const { return text_.size() > kLongText; }

  const Label& model_;
  FormWindow& window_;
  QString text_;
};

}  // namespace

QWidget* BindLabel(Label& model, FormWindow& window) {
  auto* label = new LabelWidget(model, window);
  BindCommon(model, *label, window, [label] { label->Follow(); });
  return label;
}

}  // namespace brindlemoor
