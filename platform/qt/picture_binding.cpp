// Picture boxes: a picture in its proportion, hovered, clicked, dragged and reached by keys.
#include <QApplication>
#include <QElapsedTimer>
#include <QFocusEvent>
#include <QMap>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/picture_drag.h"
#include "platform/qt/picture_face.h"
#include "platform/qt/style.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

namespace {

constexpr QSize kNaturalSize(64, 88);
constexpr QSize kSmallestSize(24, 36);
constexpr int kFrameRadius = 4;

struct MoveKey {
  int Key;
  PictureKey Means;
  QPoint Direction;  ///< in which the focus moves; nowhere for the others
};
constexpr MoveKey kMoveKeys[] = {
    {Qt::Key_Left, PictureKey::kLeft, {-1, 0}}, {Qt::Key_Right, PictureKey::kRight, {1, 0}},
    {Qt::Key_Up, PictureKey::kUp, {0, -1}},     {Qt::Key_Down, PictureKey::kDown, {0, 1}},
    {Qt::Key_PageUp, PictureKey::kPageUp, {}},  {Qt::Key_PageDown, PictureKey::kPageDown, {}},
    {Qt::Key_Home, PictureKey::kHome, {}},      {Qt::Key_End, PictureKey::kEnd, {}},
};

/// The mouse button that a key stands for.
std::optional<MouseButton> ButtonOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return event.modifiers().testFlag(Qt::ShiftModifier) ? MouseButton::kRight
                                                           : MouseButton::kLeft;
    case Qt::Key_Space:
      return MouseButton::kLeft;
    case Qt::Key_Delete:
      return MouseButton::kRight;
    default:
      return std::nullopt;
  }
}

void DrawEmptyFrame(QPainter& painter, QRect place) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(CardEdgeColor());
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), kFrameRadius, kFrameRadius);
  painter.restore();
}

class PictureWidget : public QWidget {
 public:
  PictureWidget(PictureBox& model, FormWindow& window)
      : QWidget(&window), model_(model), window_(window), face_(model, window.Host().Pictures()) {
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
  }

  void Follow() {
    const bool active = model_.MouseMove || model_.MouseUp;
    setFocusPolicy(active ? Qt::StrongFocus : Qt::NoFocus);
    if (model_.PointUp) {
      setCursor(Qt::CrossCursor);
    } else if (model_.MouseUp) {
      setCursor(Qt::PointingHandCursor);
    }
    const std::string& words = !model_.ToolTip.Get().empty()   ? model_.ToolTip.Get()
                               : !model_.Caption.Get().empty() ? model_.Caption.Get()
                                                               : model_.Name;
    setAccessibleName(QString::fromStdString(words));
    setAccessibleDescription(QString::fromStdString(model_.Badge));
    update();
  }

  void setVisible(bool visible) override {
    if (!visible && !isHidden() && window()->focusWidget() == this) HandFocusOn();
    QWidget::setVisible(visible);
  }

  QSize sizeHint() const override { return kNaturalSize; }
  QSize minimumSizeHint() const override { return kSmallestSize; }

 protected:
  bool event(QEvent* event) override {
    // While a picture is dragged the key that gives it up is no shortcut.
    if (event->type() == QEvent::ShortcutOverride && drag_ != nullptr &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      event->accept();
      return true;
    }
    return QWidget::event(event);
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QRect place = face_.Draw(painter, rect(), devicePixelRatioF());
    if (place.isEmpty()) {
      place = rect();
      if (model_.FrameWhenEmpty) DrawEmptyFrame(painter, place);
    }
    if (model_.MouseUp && (hasFocus() || underMouse())) {
      painter.setPen(QPen(HighlightColor(), 2));
      painter.drawRect(place.adjusted(1, 1, -1, -1));
    }
  }

  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

  void mousePressEvent(QMouseEvent* event) override {
    lastPress_.start();
    if (event->button() == Qt::LeftButton) pressed_ = event->position().toPoint();
    if (event->button() == Qt::LeftButton || !event->buttons().testFlag(Qt::LeftButton)) {
      givenUp_ = false;
    }
  }
  /// The second click of a double click may fall on a box that only the first one brought up: it
  /// was not meant for that.
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    notMeant_ = !lastPress_.isValid() || lastPress_.elapsed() > QApplication::doubleClickInterval();
    mousePressEvent(event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const QPoint pointer = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton)) {
      GiveUpDrag();
      givenUp_ = false;
    } else if (drag_ == nullptr && !givenUp_ && CanBeDragged() &&
               (pointer - pressed_).manhattanLength() > QApplication::startDragDistance()) {
      StartDrag();
    }
    if (drag_ != nullptr) {
      drag_->MoveTo(mapTo(window(), pointer));
    } else if (!givenUp_) {
      Hover();
      if (model_.PointMove) TellPoint(UserEventKind::kPointMove, pointer);
    }
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    const QPoint pointer = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    if (drag_ != nullptr || givenUp_) {
      if (!left) return;
      const bool taken = drag_ != nullptr && drag_->Takes(mapTo(window(), pointer));
      GiveUpDrag();
      givenUp_ = false;
      if (taken) Press(MouseButton::kLeft);
      return;
    }
    if (std::exchange(notMeant_, false) || !rect().contains(pointer)) return;
    if (left) {
      if (model_.PointUp) TellPoint(UserEventKind::kPointUp, pointer);
      Press(MouseButton::kLeft);
    }
    if (event->button() == Qt::RightButton) Press(MouseButton::kRight);
  }

  void focusInEvent(QFocusEvent* event) override {
    update();
    switch (event->reason()) {
      case Qt::TabFocusReason:
      case Qt::BacktabFocusReason:
      case Qt::ShortcutFocusReason:
      case Qt::OtherFocusReason:
        if (!quiet_) Hover();
        break;
      default:
        break;
    }
  }
  void focusOutEvent(QFocusEvent*) override {
    GiveUpDrag();
    update();
  }
  void hideEvent(QHideEvent*) override { GiveUpDrag(); }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && drag_ != nullptr) {
      GiveUpDrag();
    } else if (const auto button = ButtonOf(*event)) {
      if (!event->isAutoRepeat()) PressByKey(*button);
    } else if (!Move(event->key())) {
      QWidget::keyPressEvent(event);
    }
  }

 private:
  void Press(MouseButton button) {
    if (!model_.MouseUp) return;
    window_.Deliver({.Kind = UserEventKind::kPress,
                     .Control = model_.Name,
                     .Number = static_cast<int>(button)});
  }

  void Hover() {
    if (model_.MouseMove) window_.Host().Hover(window_.Model(), model_.Name);
  }

  /// Tells where in the picture the pointer is; outside of it nothing.
  void TellPoint(UserEventKind kind, QPoint pointer) {
    const QRect picture = face_.PicturePlace();
    if (!picture.contains(pointer)) return;
    const QPoint point = pointer - picture.topLeft();
    window_.Deliver({.Kind = kind, .Control = model_.Name, .Number = point.x(), .Y = point.y()});
  }

  /// A click by a key. What lies under the keyboard may be another card now.
  void PressByKey(MouseButton button) {
    if (!model_.MouseUp) return;
    const QPointer<QWidget> alive(this);
    Press(button);
    if (alive && hasFocus() && isVisible()) Hover();
  }

  bool TellKey(PictureKey key) {
    return window_.Deliver(
        {.Kind = UserEventKind::kKey, .Control = model_.Name, .Number = static_cast<int>(key)});
  }

  /// Serves a key that moves; false for any other.
  bool Move(int key) {
    for (const MoveKey& row : kMoveKeys) {
      if (row.Key != key) continue;
      if (model_.KeyDown && TellKey(row.Means)) return true;
      if (row.Direction.isNull()) return false;
      MoveFocus(row.Direction);
      return true;
    }
    return false;
  }

  /// The box with the smallest distance; those without one are left out.
  using Distance = std::function<std::optional<double>(const PictureWidget& other, QPoint way)>;
  PictureWidget* Nearest(const Distance& distance) const {
    PictureWidget* nearest = nullptr;
    double shortest = std::numeric_limits<double>::max();
    for (QWidget* widget : window()->findChildren<QWidget*>()) {
      auto* other = dynamic_cast<PictureWidget*>(widget);
      if (other == nullptr || other == this || !other->isVisibleTo(window()) ||
          !other->isEnabled() || other->focusPolicy() == Qt::NoFocus) {
        continue;
      }
      const QPoint way =
          other->mapTo(window(), other->rect().center()) - mapTo(window(), rect().center());
      const auto far = distance(*other, way);
      if (far && *far < shortest) {
        shortest = *far;
        nearest = other;
      }
    }
    return nearest;
  }

  /// Gives the focus to the nearest picture box that lies in a direction.
  void MoveFocus(QPoint direction) {
    PictureWidget* nearest =
        Nearest([direction](const PictureWidget&, QPoint way) -> std::optional<double> {
          const int ahead = QPoint::dotProduct(way, direction);
          if (ahead <= 0) return std::nullopt;
          const int aside = std::abs(way.x() * direction.y()) + std::abs(way.y() * direction.x());
          // What lies straight ahead goes before what is only near.
          return ahead + 3.0 * aside;
        });
    if (nearest != nullptr) nearest->setFocus(Qt::OtherFocusReason);
  }

  /// Gives the focus to the nearest picture box of the same group, if there is one.
  void HandFocusOn() {
    PictureWidget* nearest =
        Nearest([this](const PictureWidget& other, QPoint way) -> std::optional<double> {
          if (other.model_.DragGroup != model_.DragGroup) return std::nullopt;
          return std::hypot(way.x(), way.y());
        });
    if (nearest != nullptr) nearest->TakeFocusOver();
  }

  /// Takes the focus of a box that hides. Whoever hides boxes may be in the middle of it, so the
  /// preview comes when that is over, and only where the focus has come to rest.
  void TakeFocusOver() {
    quiet_ = true;
    setFocus(Qt::OtherFocusReason);
    quiet_ = false;
    QTimer::singleShot(0, this, [this] {
      if (hasFocus() && isVisible()) Hover();
    });
  }

  bool CanBeDragged() const { return !model_.DragGroup.empty() && model_.MouseUp; }

  /// The areas of the other groups in the window: for each the box around its pictures.
  std::vector<QRect> OtherAreas() const {
    QMap<std::string, QRect> areas;
    for (QWidget* widget : window()->findChildren<QWidget*>()) {
      auto* other = dynamic_cast<PictureWidget*>(widget);
      if (other == nullptr) continue;
      const std::string& group = other->model_.DragGroup;
      if (group.empty() || group == model_.DragGroup) continue;
      areas[group] |= QRect(other->mapTo(window(), QPoint(0, 0)), other->size());
    }
    return {areas.begin(), areas.end()};
  }

  void StartDrag() {
    const double ratio = devicePixelRatioF();
    QPixmap picture((QSizeF(size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(font());
    face_.Draw(painter, rect(), ratio);
    painter.end();
    drag_ = new DragLayer(window(), picture, pressed_, OtherAreas());
  }

  /// Ends a drag; the button that is still down does nothing more.
  void GiveUpDrag() {
    if (drag_ == nullptr) return;
    delete drag_;
    givenUp_ = true;
  }

  PictureBox& model_;
  FormWindow& window_;
  PictureFace face_;
  QPointer<DragLayer> drag_;  // of the window
  QPoint pressed_;
  bool givenUp_ = false;  // the left button is down, but is no click
  QElapsedTimer lastPress_;
  bool notMeant_ = false;  // the click that is being made
  bool quiet_ = false;     // the focus comes without a preview
};

}  // namespace

QWidget* BindPictureBox(PictureBox& model, FormWindow& window) {
  auto* box = new PictureWidget(model, window);
  BindCommon(model, *box, window, [box] { box->Follow(); });
  return box;
}

}  // namespace brindlemoor
