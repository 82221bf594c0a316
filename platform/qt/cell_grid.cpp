// Choosing the columns of a grid, and placing its cells.
#include "platform/qt/cell_grid.h"

#include <algorithm>

namespace brindlemoor {

namespace {

constexpr QSize kSmallestCell(56, 56);

int RowsFor(int cells, int columns) { return (cells + columns - 1) / columns; }

/// The room of one of several cells in a line.
double Part(int length, int cells, int spacing) {
  return (length - static_cast<double>(spacing) * (cells - 1)) / cells;
}

}  // namespace

int ColumnsFor(QSize room, int cells, QSize cell, int step, int spacing) {
  int best = step;
  double largest = 0;
  for (int columns = step; columns < cells + step; columns += step) {
    const double scale =
        std::min(Part(room.width(), columns, spacing) / cell.width(),
                 Part(room.height(), RowsFor(cells, columns), spacing) / cell.height());
    if (scale <= largest) continue;
    largest = scale;
    best = columns;
  }
  return best;
}

CellGrid::~CellGrid() = default;

QLayoutItem* CellGrid::itemAt(int index) const {
  const auto place = static_cast<std::size_t>(index);
  return index >= 0 && place < items_.size() ? items_[place].get() : nullptr;
}

QLayoutItem* CellGrid::takeAt(int index) {
  if (itemAt(index) == nullptr) return nullptr;
  const auto place = items_.begin() + index;
  QLayoutItem* item = place->release();
  items_.erase(place);
  return item;
}

QSize CellGrid::LargestCell(QSize (QLayoutItem::*size)() const) const {
  QSize largest(1, 1);
  for (const auto& item : items_) largest = largest.expandedTo((item.get()->*size)());
  return largest;
}

QSize CellGrid::minimumSize() const {
  return SizeFor(LargestCell(&QLayoutItem::minimumSize).boundedTo(kSmallestCell));
}

QSize CellGrid::SizeFor(QSize cell) const {
  const int rows = RowsFor(count(), step_);
  return {step_ * cell.width() + (step_ - 1) * spacing(),
          rows * cell.height() + std::max(0, rows - 1) * spacing()};
}

void CellGrid::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  if (items_.empty()) return;
  const int columns =
      ColumnsFor(room.size(), count(), LargestCell(&QLayoutItem::sizeHint), step_, spacing());
  const double width = Part(room.width(), columns, spacing());
  const double height = Part(room.height(), RowsFor(count(), columns), spacing());
  for (int index = 0; index < count(); ++index) {
    const int column = index % columns;
    const int row = index / columns;
    const QRectF place(room.x() + column * (width + spacing()),
                       room.y() + row * (height + spacing()), width, height);
    items_[static_cast<std::size_t>(index)]->setGeometry(place.toRect());
  }
}

}  // namespace brindlemoor
