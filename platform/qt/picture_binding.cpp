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
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/picture_drag.h"
#include "platform/qt/picture_events.h"
#include "platform/qt/picture_face.h"
#include "platform/qt/picture_focus.h"
#include "platform/qt/picture_keys.h"
#include "platform/qt/spoken_widget.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

namespace {

constexpr QSize kNaturalSize(64, 88);
constexpr QSize kSmallestSize(24, 36);

/// Takes the events of a picture box and hands each to what it concerns.
class PictureWidget : public QWidget, public SpokenWidget {
 public:
  PictureWidget(PictureBox& model, FormWindow& window)
      : QWidget(&window),
        SpokenWidget(static_cast<QWidget&>(*this)),
        model_(model),
        window_(window),
        events_(model, window),
        face_(model, window.Host().Pictures()) {
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
  }

  QAccessible::Role Role() const override {
    return model_.MouseUp ? QAccessible::Button : QAccessible::Graphic;
  }
  void Press() override { events_.Press(MouseButton::kLeft); }

  void Follow() {
    const bool active = model_.MouseMove || model_.MouseUp;
    setFocusPolicy(active ? Qt::StrongFocus : Qt::NoFocus);
    if (model_.PointUp) {
      setCursor(Qt::CrossCursor);
    } else if (model_.MouseUp) {
      setCursor(Qt::PointingHandCursor);
    }
    const std::string& words = !model_.Spoken.empty()          ? model_.Spoken
                               : !model_.ToolTip.Get().empty() ? model_.ToolTip.Get()
                               : !model_.Caption.Get().empty() ? model_.Caption.Get()
                                                               : model_.Name;
    setAccessibleName(QString::fromStdString(words));
    setAccessibleDescription(Told());
    update();
  }

  void setVisible(bool visible) override {
    if (!visible && !isHidden() && window()->focusWidget() == this) HandFocusOn();
    QWidget::setVisible(visible);
  }

  QSize sizeHint() const override { return kNaturalSize * window_.PictureSize(); }
  QSize minimumSizeHint() const override { return kSmallestSize; }

 protected:
  bool event(QEvent* event) override {
    // While a picture is dragged the key that gives it up is no shortcut.
    if (event->type() == QEvent::ShortcutOverride && drag_.Runs() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      event->accept();
      return true;
    }
    return QWidget::event(event);
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    face_.Draw(painter, rect(), devicePixelRatioF(),
               model_.MouseUp && (hasFocus() || underMouse()));
  }

  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

  void mousePressEvent(QMouseEvent* event) override {
    lastPress_.start();
    if (event->button() == Qt::LeftButton) {
      drag_.Press(event->position().toPoint());
    } else if (!event->buttons().testFlag(Qt::LeftButton)) {
      drag_.ButtonIsUp();
    }
  }
  /// The second click of a double click may fall on a box that only the first one brought up, or
  /// take back what the first one did: it was not meant for that.
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    notMeant_ = model_.TogglesByClick || !lastPress_.isValid() ||
                lastPress_.elapsed() > QApplication::doubleClickInterval();
    mousePressEvent(event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const QPoint pointer = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton)) {
      drag_.GiveUp();
      drag_.ButtonIsUp();
    } else if (CanBeDragged() && drag_.Begins(pointer)) {
      drag_.Begin(window(), face_.Shown(size(), devicePixelRatioF(), font()), OtherAreas());
    }
    if (drag_.Runs()) {
      drag_.MoveTo(mapTo(window(), pointer));
    } else if (!drag_.HasButton()) {
      events_.Hover();
      if (const auto point = PointAt(pointer)) events_.PointMove(*point);
    }
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    const QPoint pointer = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    if (drag_.HasButton()) {
      if (left && drag_.LetGo(mapTo(window(), pointer))) events_.Press(MouseButton::kLeft);
      return;
    }
    if (std::exchange(notMeant_, false) || !rect().contains(pointer)) return;
    if (left) {
      if (const auto point = PointAt(pointer)) events_.PointUp(*point);
      events_.Press(MouseButton::kLeft);
    }
    if (event->button() == Qt::RightButton) events_.Press(MouseButton::kRight);
  }

  void focusInEvent(QFocusEvent* event) override {
    update();
    switch (event->reason()) {
      case Qt::TabFocusReason:
      case Qt::BacktabFocusReason:
      case Qt::ShortcutFocusReason:
      case Qt::OtherFocusReason:
        HoverSoon();
        break;
      default:
        break;
    }
  }
  void focusOutEvent(QFocusEvent*) override {
    drag_.GiveUp();
    update();
  }
  void hideEvent(QHideEvent*) override { drag_.GiveUp(); }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && drag_.Runs()) {
      drag_.GiveUp();
    } else if (const auto button = ButtonOfKey(event->key(), event->modifiers())) {
      if (!event->isAutoRepeat()) PressByKey(*button);
    } else if (!Move(event->key())) {
      QWidget::keyPressEvent(event);
    }
  }

 private:
  /// Where in the picture the pointer is; nothing outside of it.
  std::optional<QPoint> PointAt(QPoint pointer) const {
    const QRect picture = face_.PicturePlace();
    if (!picture.contains(pointer)) return std::nullopt;
    return pointer - picture.topLeft();
  }

  /// A click by a key. What lies under the keyboard may be another card now.
  void PressByKey(MouseButton button) {
    if (!model_.MouseUp) return;
    const QPointer<QWidget> alive(this);
    events_.Press(button);
    if (alive && hasFocus() && isVisible()) events_.Hover();
  }

  /// Serves a key that moves; false for any other.
  bool Move(int key) {
    const MoveKey* row = FindMoveKey(key);
    if (row == nullptr) return false;
    // Among the pictures of a group up and down are the window's; at its edge the list may scroll.
    std::vector<PictureWidget*> boxes = OthersForFocus();
    if (row->Direction.y() != 0 && GoTowards(OfOwnGroup(boxes), row->Direction)) return true;
    if (events_.KeyDown(row->Means)) return true;
    if (row->Direction.isNull()) return false;
    GoTowards(boxes, row->Direction);
    return true;
  }

  /// Gives the focus to the box that lies in a direction, if there is one.
  bool GoTowards(const std::vector<PictureWidget*>& boxes, QPoint direction) {
    const auto next = SpotTowards(SpotsOf(boxes), Spot().Middle, direction);
    if (next) boxes[*next]->setFocus(Qt::OtherFocusReason);
    return next.has_value();
  }

  std::vector<PictureWidget*> OfOwnGroup(std::vector<PictureWidget*> boxes) const {
    std::erase_if(boxes, [this](const PictureWidget* box) {
      return model_.DragGroup.empty() || box->model_.DragGroup != model_.DragGroup;
    });
    return boxes;
  }

  /// Gives the focus to another box of the group, if there is one.
  void HandFocusOn() {
    const std::vector<PictureWidget*> boxes = OthersForFocus();
    if (const auto next = SpotAfter(SpotsOf(boxes), Spot()))
      boxes[*next]->setFocus(Qt::OtherFocusReason);
  }

  /// Whoever moves the focus may be in the middle of something: hiding boxes, or giving it up for a
  /// page, while the browser engine can't read another one. So the preview comes when that is over,
  /// and only where the focus has come to rest.
  void HoverSoon() {
    QTimer::singleShot(0, this, [this] {
      if (hasFocus() && isVisible()) events_.Hover();
    });
  }

  /// What the picture shows beside the card.
  QString Told() const {
    QStringList words;
    for (const std::string& text : {model_.Badge.Get(), model_.Told.Get()}) {
      if (!text.empty()) words << QString::fromStdString(text);
    }
    if (model_.Framed) words << "chosen";
    if (model_.Dimmed) words << "not possible now";
    return words.isEmpty() ? QString::fromStdString(model_.ToolTip) : words.join(", ");
  }

  bool CanBeDragged() const { return !model_.DragGroup.empty() && model_.MouseUp; }

  /// The other picture boxes of the window.
  std::vector<PictureWidget*> Others() const {
    std::vector<PictureWidget*> others;
    for (QWidget* widget : window()->findChildren<QWidget*>()) {
      auto* other = dynamic_cast<PictureWidget*>(widget);
      if (other != nullptr && other != this) others.push_back(other);
    }
    return others;
  }

  /// Those that can have the focus.
  std::vector<PictureWidget*> OthersForFocus() const {
    std::vector<PictureWidget*> others = Others();
    std::erase_if(others, [this](const PictureWidget* other) {
      return !other->isVisibleTo(window()) || !other->isEnabled() ||
             other->focusPolicy() == Qt::NoFocus;
    });
    return others;
  }

  FocusSpot Spot() const { return {mapTo(window(), rect().center()), model_.DragGroup}; }
  static std::vector<FocusSpot> SpotsOf(const std::vector<PictureWidget*>& boxes) {
    std::vector<FocusSpot> spots;
    spots.reserve(boxes.size());
    for (const PictureWidget* box : boxes) spots.push_back(box->Spot());
    return spots;
  }

  /// The areas of the other groups in the window: for each the box around its pictures.
  std::vector<QRect> OtherAreas() const {
    QMap<std::string, QRect> areas;
    for (const PictureWidget* other : Others()) {
      const std::string& group = other->model_.DragGroup;
      if (group.empty() || group == model_.DragGroup) continue;
      areas[group] |= QRect(other->mapTo(window(), QPoint(0, 0)), other->size());
    }
    return {areas.begin(), areas.end()};
  }

  PictureBox& model_;
  const FormWindow& window_;
  PictureEvents events_;
  PictureFace face_;
  PictureDrag drag_;
  QElapsedTimer lastPress_;
  bool notMeant_ = false;  // the click that is being made
};

}  // namespace

QWidget* BindPictureBox(PictureBox& model, FormWindow& window) {
  auto* box = new PictureWidget(model, window);
  BindCommon(model, *box, window, [box] { box->Follow(); });
  return box;
}

}  // namespace brindlemoor
