// The layer on which a picture is dragged.
#include "platform/qt/drag_layer.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/style.h"

namespace brindlemoor {

namespace {

constexpr double kSeeThrough = 0.5;

}  // namespace

DragLayer::DragLayer(QWidget* window, QPixmap picture, QPoint grip, std::vector<QRect> areas)
    : QWidget(window), picture_(std::move(picture)), grip_(grip), areas_(std::move(areas)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(window->rect());
  show();
  raise();
}

void DragLayer::MoveTo(QPoint pointer) {
  const bool changes = Takes(pointer) != Takes(pointer_);
  update(Carried());
  pointer_ = pointer;
  update(Carried());
  if (changes) update();
}

bool DragLayer::Takes(QPoint pointer) const {
  return rect().contains(pointer) && std::any_of(areas_.begin(), areas_.end(), [&](QRect area) {
           return area.contains(pointer);
         });
}

QRect DragLayer::Carried() const {
  return {pointer_ - grip_, picture_.deviceIndependentSize().toSize()};
}

void DragLayer::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (const QRect& area : areas_) {
    // A thicker line says that the picture can be let go here.
    const int line = area.contains(pointer_) ? 2 : 1;
    painter.setPen(QPen(HighlightColor(), line));
    painter.drawRect(area.adjusted(0, 0, -1, -1));
  }
  painter.setOpacity(kSeeThrough);
  painter.drawPixmap(Carried().topLeft(), picture_);
}

}  // namespace brindlemoor
