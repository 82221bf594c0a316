// How a picture box looks.
#pragma once

#include <QRect>

class QPainter;

namespace brindlemoor {

class PictureCache;
struct PictureBox;

/// Draws the picture of a box into room, or a blank card with its caption where there is no
/// picture, and its badge upon it. Returns where, an empty place if there is nothing to draw. The
/// ratio is that of device pixels.
QRect DrawPicture(QPainter& painter, QRect room, const PictureBox& model, PictureCache& pictures,
                  double ratio);

}  // namespace brindlemoor
