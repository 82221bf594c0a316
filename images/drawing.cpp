// The bevelled frame, and the reduction of a picture that averages and carries over.
#include "images/drawing.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace brindlemoor {
namespace {

// Corners farther out than this are drawn in to it, so that no rectangle takes long.
constexpr int kFarthestPlace = 65'535;

bool AllFinite(std::initializer_list<double> numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [](double n) { return std::isfinite(n); });
}

int PlaceOf(double corner) {
  return std::clamp(RoundToEven(corner), -kFarthestPlace, kFarthestPlace);
}

/// Four whole corners, both of them inside.
struct Corners {
  int X1;
  int Y1;
  int X2;
  int Y2;
};

Corners CornersOf(double x1, double y1, double x2, double y2) {
  return {PlaceOf(x1), PlaceOf(y1), PlaceOf(x2), PlaceOf(y2)};
}

Corners Within(const Corners& area, const Raster& raster) {
  return {std::max(area.X1, 0), std::max(area.Y1, 0), std::min(area.X2, raster.Width() - 1),
          std::min(area.Y2, raster.Height() - 1)};
}

int Part(std::int32_t color, int shift) { return (color >> shift) & 0xFF; }

std::int32_t FadedColor(std::int32_t pixel, std::int32_t frame, double share) {
  std::int32_t color = 0;
  for (const int shift : {16, 8, 0}) {
    const int own = std::max(Part(pixel, shift), 1);
    color |= RoundToEven(own * share + Part(frame, shift) * (1 - share)) << shift;
  }
  return color;
}

/// What the samples of one pixel were; black ones are left out beside a colour.
enum class Met { kNothing, kBlack, kColor };

/// The reduction of one picture: the sums live on from pixel to pixel.
class Reduction {
 public:
  Reduction(const Raster& source, const Corners& from, Raster& target, const Corners& to)
      : source_(source),
        from_(from),
        target_(target),
        to_(to),
        xRatio_(static_cast<double>(from.X2 - from.X1) / (to.X2 - to.X1)),
        yRatio_(static_cast<double>(from.Y2 - from.Y1) / (to.Y2 - to.Y1)) {}

  void Draw() {
    const int lastY = std::min(to_.Y2, target_.Height() - 1);
    double drift = 0;
    for (int row = 1; row <= from_.Y2 - from_.Y1 && to_.Y1 + row <= lastY; ++row) {
      drift += yRatio_ - 1;
      const double sourceY = row + from_.Y1 + drift;
      if (sourceY > from_.Y2 || to_.Y1 + row < 0) continue;
      DrawRow(to_.Y1 + row, sourceY);
    }
  }

 private:
  void DrawRow(int y, double sourceY) {
    const int lastX = std::min(to_.X2, target_.Width() - 1);
    double position = 0;
    int x = to_.X1;
    while (position + from_.X1 + 1 < from_.X2 && x < lastX) {
      position += xRatio_;
      const int sourceX = static_cast<int>(position) + from_.X1;
      if (sourceX + 1 > from_.X2) continue;
      if (++x < 0) continue;
      met_ = Met::kNothing;
      if (xRatio_ > 1) AddAcross(sourceX, sourceY);
      if (yRatio_ > 1) AddDown(sourceX, sourceY);
      // What was carried over would fill a black area with the colour beside it.
      if (met_ == Met::kBlack) red_ = green_ = blue_ = 0;
      target_.Row(y)[x] = RoundToEven(red_) << 16 | RoundToEven(green_) << 8 | RoundToEven(blue_);
    }
  }

  void AddAcross(int sourceX, double sourceY) {
    const double wholeY = std::floor(sourceY);
    if (wholeY < 0 || wholeY >= source_.Height()) return;
    const std::int32_t* pixels = source_.Row(static_cast<int>(wholeY));
    int samples = 1;  // what was carried over counts as one
    for (double k = sourceX - xRatio_ / 2; k <= sourceX + xRatio_ / 2; k += 1) {
      if (k <= 0) continue;
      const int x = static_cast<int>(k);
      if (k >= from_.X2 || x >= source_.Width()) break;
      if (x >= from_.X1) Add(pixels[x], samples);
    }
    Average(samples);
  }

  void AddDown(int sourceX, double sourceY) {
    if (sourceX < 0 || sourceX >= source_.Width()) return;
    int samples = 1;
    for (double k = sourceY - yRatio_ / 2; k <= sourceY + yRatio_ / 2; k += 1) {
      if (k <= 0) continue;
      const int y = static_cast<int>(k);
      if (k >= from_.Y2 || y >= source_.Height()) break;
      Add(source_.Row(y)[sourceX], samples);
    }
    Average(samples);
  }

  void Add(std::int32_t color, int& samples) {
    if ((color & 0xFFFFFF) == 0) {
      if (met_ == Met::kNothing) met_ = Met::kBlack;
      return;
    }
    met_ = Met::kColor;
    red_ += Part(color, 16);
    green_ += Part(color, 8);
    blue_ += Part(color, 0);
    ++samples;
  }

  void Average(int samples) {
    if (samples == 1) return;
    red_ /= samples;
    green_ /= samples;
    blue_ /= samples;
  }

  const Raster& source_;
  const Corners from_;
  Raster& target_;
  const Corners to_;
  const double xRatio_;
  const double yRatio_;
  double red_ = 0;
  double green_ = 0;
  double blue_ = 0;
  Met met_ = Met::kNothing;
};

}  // namespace

int RoundToEven(double number) {
  constexpr double kLeast = std::numeric_limits<int>::min();
  constexpr double kMost = std::numeric_limits<int>::max();
  if (std::isnan(number)) return 0;
  return static_cast<int>(std::nearbyint(std::clamp(number, kLeast, kMost)));
}

void BevelFrame(Raster& surface, double x1, double y1, double x2, double y2,
                std::int32_t lightColor, std::int32_t darkColor, int width) {
  if (width < 1 || !AllFinite({x1, y1, x2, y2})) return;
  const Corners frame = CornersOf(x1, y1, x2, y2);
  const Corners shown = Within(frame, surface);
  for (int y = shown.Y1; y <= shown.Y2; ++y) {
    std::int32_t* pixels = surface.Row(y);
    const int dy = std::min(y - frame.Y1, frame.Y2 - y);
    for (int x = shown.X1; x <= shown.X2; ++x) {
      const int dx = std::min(x - frame.X1, frame.X2 - x);
      const int distance = std::min(dx, dy);
      if (distance > width) continue;
      // Meant: in a frame much longer one way the middle of a light band is dark.
      const bool light = frame.X2 - x >= dy && frame.Y2 - y >= dx;
      const double share = static_cast<double>(std::max(distance, 1)) / width;
      pixels[x] = FadedColor(pixels[x], light ? lightColor : darkColor, share);
    }
  }
}

void ResamplePicture(const Raster& source, Raster& target, double sx1, double sy1, double sx2,
                     double sy2, double dx1, double dy1, double dx2, double dy2) {
  if (!AllFinite({sx1, sy1, sx2, sy2, dx1, dy1, dx2, dy2})) return;
  const Corners to = CornersOf(dx1, dy1, dx2, dy2);
  const Corners shown = Within(to, target);
  if (shown.X1 > shown.X2) return;
  for (int y = shown.Y1; y <= shown.Y2; ++y) {
    std::fill(target.Row(y) + shown.X1, target.Row(y) + shown.X2 + 1, 0);
  }
  // Nothing is drawn into the first row and column, which is all that such a target has.
  if (to.X1 >= to.X2 || to.Y1 >= to.Y2) return;
  Reduction(source, CornersOf(sx1, sy1, sx2, sy2), target, to).Draw();
}

}  // namespace brindlemoor
