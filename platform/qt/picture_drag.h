// The drag of a picture by the left mouse button.
#pragma once

#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <vector>

#include "platform/qt/drag_layer.h"

namespace brindlemoor {

/// Follows the left button of one picture from the press on. Unless it says so, places are those of
/// the window.
class PictureDrag {
 public:
  /// The left button went down, at a place of the picture.
  void Press(QPoint grip);
  /// The left button is found to be up: the next press is an ordinary one.
  void ButtonIsUp() { givenUp_ = false; }

  /// Whether the pointer, at a place of the picture, has come so far that a drag begins.
  bool Begins(QPoint pointer) const;
  /// Begins to drag what the picture shows; the areas would take it.
  void Begin(QWidget* window, QPixmap shown, std::vector<QRect> areas);
  void MoveTo(QPoint pointer);
  /// The left button was let go: ends the drag. True where an area takes the picture.
  bool LetGo(QPoint pointer);
  /// Ends a drag; the button that is still down does nothing more.
  void GiveUp();

  bool Runs() const { return layer_ != nullptr; }
  /// Whether the left button that is down belongs to a drag, and is no click.
  bool HasButton() const { return Runs() || givenUp_; }

 private:
  QPointer<DragLayer> layer_;  // of the window
  QPoint grip_;
  bool givenUp_ = false;
};

}  // namespace brindlemoor
