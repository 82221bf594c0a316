// Raster: a picture as the program itself draws it, pixel by pixel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brindlemoor {

/// Rows of pixels, each a colour with red high and blue low (0xRRGGBB). Places count from 0.
class Raster {
 public:
  Raster() = default;
  /// A black picture. Sizes below 1 give an empty one.
  Raster(int width, int height)
      : width_(width > 0 && height > 0 ? width : 0),
        height_(width > 0 && height > 0 ? height : 0),
        pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

  int Width() const { return width_; }
  int Height() const { return height_; }
  bool Empty() const { return pixels_.empty(); }
  bool Holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

  /// The colour of a pixel; -1 outside the picture.
  std::int32_t Pixel(int x, int y) const { return Holds(x, y) ? Row(y)[x] : -1; }
  /// Does nothing outside the picture.
  void SetPixel(int x, int y, std::int32_t color) {
    if (Holds(x, y)) Row(y)[x] = color;
  }

  /// The pixels of a row, from the left; y must lie in the picture.
  const std::int32_t* Row(int y) const { return pixels_.data() + Offset(y); }
  std::int32_t* Row(int y) { return pixels_.data() + Offset(y); }

  bool operator==(const Raster&) const = default;

 private:
  std::size_t Offset(int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<std::int32_t> pixels_;
};

}  // namespace brindlemoor
