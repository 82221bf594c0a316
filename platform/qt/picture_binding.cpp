// Picture boxes: a picture in its proportion, hovered, clicked and reached by keys.
#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <cmath>
#include <limits>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/style.h"

namespace brindlemoor {

namespace {

constexpr QSize kNaturalSize(100, 150);
constexpr QSize kSmallestSize(24, 36);

class PictureWidget : public QWidget {
 public:
  PictureWidget(PictureBox& model, FormWindow& window)
      : QWidget(&window), model_(model), desktop_(window.Desktop()) {
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
  }

  void Follow() {
    const bool active = model_.MouseMove || model_.MouseUp;
    setFocusPolicy(active ? Qt::StrongFocus : Qt::NoFocus);
    if (model_.MouseUp) setCursor(Qt::PointingHandCursor);
    setAccessibleName(
        QString::fromStdString(model_.ToolTip.Get().empty() ? model_.Name : model_.ToolTip.Get()));
    update();
  }

  QSize sizeHint() const override { return kNaturalSize; }
  QSize minimumSizeHint() const override { return kSmallestSize; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const double ratio = devicePixelRatioF();
    QPixmap picture = desktop_.Pictures().Scaled(QString::fromStdString(model_.Picture),
                                                 (QSizeF(size()) * ratio).toSize());
    const bool marked = model_.MouseUp && (hasFocus() || underMouse());
    QPainter painter(this);
    QRect place = rect();
    if (!picture.isNull()) {
      picture.setDevicePixelRatio(ratio);
      place = QRect(QPoint(0, 0), picture.deviceIndependentSize().toSize());
      place.moveCenter(rect().center());
      painter.drawPixmap(place.topLeft(), picture);
    }
    if (marked) {
      painter.setPen(QPen(HighlightColor(), 2));
      painter.drawRect(place.adjusted(1, 1, -1, -1));
    }
  }

  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }
  void mouseMoveEvent(QMouseEvent*) override { desktop_.Hover(model_); }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (!rect().contains(event->position().toPoint())) return;
    if (event->button() == Qt::LeftButton) Press(MouseButton::kLeft);
    if (event->button() == Qt::RightButton) Press(MouseButton::kRight);
  }

  void focusInEvent(QFocusEvent* event) override {
    update();
    switch (event->reason()) {
      case Qt::TabFocusReason:
      case Qt::BacktabFocusReason:
      case Qt::ShortcutFocusReason:
      case Qt::OtherFocusReason:
        desktop_.Hover(model_);
        break;
      default:
        break;
    }
  }
  void focusOutEvent(QFocusEvent*) override { update(); }

  void keyPressEvent(QKeyEvent* event) override {
    const bool shifted = (event->modifiers() & Qt::ShiftModifier) != 0;
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        if (!event->isAutoRepeat()) Press(shifted ? MouseButton::kRight : MouseButton::kLeft);
        break;
      case Qt::Key_Space:
        if (!event->isAutoRepeat()) Press(MouseButton::kLeft);
        break;
      case Qt::Key_Delete:
        if (!event->isAutoRepeat()) Press(MouseButton::kRight);
        break;
      case Qt::Key_Left:
        MoveFocus({-1, 0});
        break;
      case Qt::Key_Right:
        MoveFocus({1, 0});
        break;
      case Qt::Key_Up:
        MoveFocus({0, -1});
        break;
      case Qt::Key_Down:
        MoveFocus({0, 1});
        break;
      default:
        QWidget::keyPressEvent(event);
    }
  }

 private:
  void Press(MouseButton button) {
    if (model_.MouseUp) model_.MouseUp(button);
  }

  /// Gives the focus to the nearest picture box that lies in a direction.
  void MoveFocus(QPoint direction) {
    PictureWidget* nearest = nullptr;
    double shortest = std::numeric_limits<double>::max();
    for (QWidget* widget : window()->findChildren<QWidget*>()) {
      auto* other = dynamic_cast<PictureWidget*>(widget);
      if (other == nullptr || other == this || !other->isVisible() ||
          other->focusPolicy() == Qt::NoFocus) {
        continue;
      }
      const QPoint way =
          other->mapTo(window(), other->rect().center()) - mapTo(window(), rect().center());
      const int ahead = QPoint::dotProduct(way, direction);
      if (ahead <= 0) continue;
      const int aside = std::abs(way.x() * direction.y()) + std::abs(way.y() * direction.x());
      // What lies straight ahead goes before what is only near.
      const double distance = ahead + 3.0 * aside;
      if (distance < shortest) {
        shortest = distance;
        nearest = other;
      }
    }
    if (nearest != nullptr) nearest->setFocus(Qt::OtherFocusReason);
  }

  PictureBox& model_;
  QtPlatform& desktop_;
};

}  // namespace

QWidget* BindPictureBox(PictureBox& model, FormWindow& window) {
  auto* box = new PictureWidget(model, window);
  BindCommon(model, *box, window, [box] { box->Follow(); });
  return box;
}

}  // namespace brindlemoor
