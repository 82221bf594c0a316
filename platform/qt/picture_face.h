// How a picture box looks.
#pragma once

#include <QPixmap>
#include <QRect>
#include <QSize>
#include <memory>

class QFont;
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

  /// Draws the box into room: its picture, or a blank card with its caption where there is no
  /// picture, and badge and marks upon it; where there is nothing of all this, the frame of an
  /// empty box that has one. A ring says that the pointer or the focus is here. The ratio is that
  /// of device pixels.
  void Draw(QPainter& painter, QRect room, double ratio, bool ring);
  /// What the box of a size shows, without frame and ring.
  QPixmap Shown(QSize size, double ratio, const QFont& font);
  /// Where the picture was drawn last; empty without one.
  QRect PicturePlace() const { return picturePlace_; }

 private:
  /// Draws picture or card; returns where, an empty place if there is nothing to draw.
  QRect DrawContent(QPainter& painter, QRect room, double ratio);
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
