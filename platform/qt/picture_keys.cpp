// The keys that move, and those that click.
#include "platform/qt/picture_keys.h"

#include <algorithm>
#include <iterator>

namespace brindlemoor {

namespace {

constexpr MoveKey kMoveKeys[] = {
    {Qt::Key_Left, PictureKey::kLeft, {-1, 0}}, {Qt::Key_Right, PictureKey::kRight, {1, 0}},
    {Qt::Key_Up, PictureKey::kUp, {0, -1}},     {Qt::Key_Down, PictureKey::kDown, {0, 1}},
    {Qt::Key_PageUp, PictureKey::kPageUp, {}},  {Qt::Key_PageDown, PictureKey::kPageDown, {}},
    {Qt::Key_Home, PictureKey::kHome, {}},      {Qt::Key_End, PictureKey::kEnd, {}},
};

}  // namespace

const MoveKey* FindMoveKey(int key) {
  const auto* row = std::ranges::find(kMoveKeys, key, &MoveKey::Key);
  return row != std::end(kMoveKeys) ? row : nullptr;
}

std::optional<MouseButton> ButtonOfKey(int key, Qt::KeyboardModifiers modifiers) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return modifiers.testFlag(Qt::ShiftModifier) ? MouseButton::kRight : MouseButton::kLeft;
    case Qt::Key_Space:
      return MouseButton::kLeft;
    case Qt::Key_Delete:
      return MouseButton::kRight;
    default:
      return std::nullopt;
  }
}

}  // namespace brindlemoor
