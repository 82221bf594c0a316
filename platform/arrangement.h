// Making the arrangement of a form: cells, rows and columns.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

/// One control; sizes in pixels at 96 dpi, 0 natural.
inline Layout Cell(Control& control, int stretch = 0, int width = 0, int height = 0) {
  return {.Direction = Layout::Kind::kControl,
          .Leaf = &control,
          .Stretch = stretch,
          .Width = width,
          .Height = height};
}

inline Layout Row(std::vector<Layout> children, int stretch = 0) {
  return {.Direction = Layout::Kind::kRow, .Children = std::move(children), .Stretch = stretch};
}

inline Layout Column(std::vector<Layout> children, int stretch = 0) {
  return {.Direction = Layout::Kind::kColumn, .Children = std::move(children), .Stretch = stretch};
}

/// Controls in cells of one size, a multiple of so many columns.
inline Layout GridOf(std::vector<Layout> cells, int columns, int stretch = 0) {
  return {.Direction = Layout::Kind::kGrid,
          .Children = std::move(cells),
          .Stretch = stretch,
          .Columns = columns};
}

/// A row or column with a captioned frame around it.
inline Layout Titled(std::string title, Layout content) {
  content.Title = std::move(title);
  return content;
}

}  // namespace brindlemoor
