// What is seen of a picture that is being dragged.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

namespace brindlemoor {

/// Lies over a window while a picture is dragged in it: shows the picture at the pointer and frames
/// the areas that would take it. The mouse goes through it. Places are those of the window.
class DragLayer : public QWidget {
 public:
  /// grip is where in the picture the pointer holds it.
  DragLayer(QWidget* window, QPixmap picture, QPoint grip, std::vector<QRect> areas);

  void MoveTo(QPoint pointer);
  /// Whether an area would take what is let go there.
  bool Takes(QPoint pointer) const;
  /// Where the picture is now.
  QRect Carried() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  QPoint grip_;
  QPoint pointer_;
  std::vector<QRect> areas_;
};

}  // namespace brindlemoor
