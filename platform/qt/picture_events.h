// What a picture box tells the logic.
#pragma once

#include <QPoint>

#include "platform/controls.h"
#include "platform/user_events.h"

namespace brindlemoor {

class FormWindow;

/// Tells only what the box has a handler for.
class PictureEvents {
 public:
  PictureEvents(PictureBox& model, FormWindow& window) : model_(model), window_(window) {}

  void Press(MouseButton button);
  /// The pointer or the focus came to the box.
  void Hover();
  /// The pointer is at a point of the picture.
  void PointMove(QPoint point);
  /// The left button was let go at a point of the picture.
  void PointUp(QPoint point);
  /// True where the logic has served the key.
  bool KeyDown(PictureKey key);

 private:
  bool Tell(UserEventKind kind, int number, int y = 0);

  PictureBox& model_;
  FormWindow& window_;
};

}  // namespace brindlemoor
