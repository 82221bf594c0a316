// Events of picture boxes.
#include "platform/qt/picture_events.h"

#include "platform/qt/form_window.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

bool PictureEvents::Tell(UserEventKind kind, int number, int y) {
  return window_.Deliver({.Kind = kind, .Control = model_.Name, .Number = number, .Y = y});
}

void PictureEvents::Press(MouseButton button) {
  if (model_.MouseUp) Tell(UserEventKind::kPress, static_cast<int>(button));
}

void PictureEvents::Hover() {
  if (!model_.MouseMove) return;
  window_.Host().Hover(window_.Model(), {.Kind = UserEventKind::kHover, .Control = model_.Name});
}

void PictureEvents::PointMove(QPoint point) {
  if (model_.PointMove) Tell(UserEventKind::kPointMove, point.x(), point.y());
}

void PictureEvents::PointUp(QPoint point) {
  if (model_.PointUp) Tell(UserEventKind::kPointUp, point.x(), point.y());
}

bool PictureEvents::KeyDown(PictureKey key) {
  return model_.KeyDown && Tell(UserEventKind::kKey, static_cast<int>(key));
}

}  // namespace brindlemoor
