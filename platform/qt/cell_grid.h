// CellGrid: a layout of equal cells that chooses its number of columns by its room.
#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace brindlemoor {

/// The number of columns with which cells of a proportion are largest in a room: a multiple of
/// step. Of equal ones the fewest.
int ColumnsFor(QSize room, int cells, QSize cell, int step, int spacing);

/// Fills its room with cells row by row. Widgets that are hidden keep their cell.
class CellGrid : public QLayout {
 public:
  explicit CellGrid(int step) : step_(step) {}
  ~CellGrid() override;

  void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal | Qt::Vertical; }
  QSize sizeHint() const override { return SizeFor(LargestCell(&QLayoutItem::sizeHint)); }
  /// On a low screen pictures are rather small than out of sight.
  QSize minimumSize() const override;
  void setGeometry(const QRect& room) override;

 private:
  /// With as many columns as a step has.
  QSize SizeFor(QSize cell) const;
  QSize LargestCell(QSize (QLayoutItem::*size)() const) const;

  int step_;
  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace brindlemoor
