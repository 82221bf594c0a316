// From the press of the button to where a picture is let go.
#include "platform/qt/picture_drag.h"

#include <QApplication>
#include <utility>

namespace brindlemoor {

void PictureDrag::Press(QPoint grip) {
  grip_ = grip;
  givenUp_ = false;
}

bool PictureDrag::Begins(QPoint pointer) const {
  return !HasButton() && (pointer - grip_).manhattanLength() > QApplication::startDragDistance();
}

void PictureDrag::Begin(QWidget* window, QPixmap shown, std::vector<QRect> areas) {
  layer_ = new DragLayer(window, std::move(shown), grip_, std::move(areas));
}

void PictureDrag::MoveTo(QPoint pointer) { layer_->MoveTo(pointer); }

bool PictureDrag::LetGo(QPoint pointer) {
  const bool taken = Runs() && layer_->Takes(pointer);
  GiveUp();
  givenUp_ = false;
  return taken;
}

void PictureDrag::GiveUp() {
  if (!Runs()) return;
  delete layer_;
  givenUp_ = true;
}

}  // namespace brindlemoor
