// What keys of the keyboard mean on a picture.
#pragma once

#include <QPoint>
#include <optional>

#include "platform/controls.h"

namespace brindlemoor {

struct MoveKey {
  int Key;           ///< of Qt::Key
  PictureKey Means;  ///< what the picture's own handler is told
  QPoint Direction;  ///< in which the focus moves without one; nowhere for (0, 0)
};

/// The row of a key that moves; null for any other.
const MoveKey* FindMoveKey(int key);
/// The mouse button that a key stands for.
std::optional<MouseButton> ButtonOfKey(int key, Qt::KeyboardModifiers modifiers);

}  // namespace brindlemoor
