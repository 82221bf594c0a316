// How a picture box looks.
#pragma once

#include <QPixmap>
#include <QRect>
#include <QSize>
#include <memory>

class QPainter;

namespace brindlemoor {

class PictureCache;
class Raster;
struct PictureBox;

/// Draws a picture box, and keeps what it scaled of the box's drawing.
class PictureFace {
 public:
  PictureFace(const PictureBox& model, PictureCache& pictures)
      : model_(model), pictures_(pictures) {}

  /// Draws the picture of the box into room, or a blank card with its caption where there is no
  /// picture, and its badge and marks upon it. Returns where, an empty place if there is nothing to
  /// draw. The ratio is that of device pixels.
  QRect Draw(QPainter& painter, QRect room, double ratio);
  /// Where the picture was drawn last; empty without one.
  QRect PicturePlace() const { return picturePlace_; }

 private:
  /// The picture as large as fits into box, in device pixels.
  QPixmap Scaled(QSize box);
  void DrawScaled(QPainter& painter, QRect room, QPixmap picture, double ratio);

  const PictureBox& model_;
  PictureCache& pictures_;
  QRect picturePlace_;
  std::shared_ptr<const Raster> drawn_;  // what scaledDrawing_ was made of
  QSize drawnFor_;
  QPixmap scaledDrawing_;
};

}  // namespace brindlemoor
