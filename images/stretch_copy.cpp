// Copying a rectangle of one picture into one of another in a different size.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "images/drawing.h"

namespace brindlemoor {
namespace {

// Rectangles larger or farther out than this are cut to it; no picture reaches as far.
constexpr int kFarthestPlace = 500'000'000;

/// The source pixels that one target pixel is made of, along one axis.
struct Blend {
  int Place;                    ///< of the target pixel
  int First;                    ///< of the source pixels
  std::vector<double> Weights;  ///< of First and those behind it; together 1
};

/// One side of a rectangle, with the size that the picture has along it.
struct Side {
  Side(double start, double length, int pictureLength)
      : Start(std::clamp(RoundToEven(start), -kFarthestPlace, kFarthestPlace)),
        Length(std::isfinite(start + length) ? std::min(RoundToEven(length), kFarthestPlace) : 0),
        PictureLength(pictureLength) {}
  int Begin() const { return std::max(Start, 0); }
  int End() const { return std::min(Start + Length, PictureLength); }

  int Start;
  int Length;
  int PictureLength;
};

/// The part of each pixel that lies between two positions.
Blend Average(int place, double begin, double end) {
  Blend blend{place, static_cast<int>(begin), {}};
  for (int pixel = blend.First; pixel < end; ++pixel) {
    const double part = std::min(pixel + 1.0, end) - std::max<double>(pixel, begin);
    blend.Weights.push_back(part / (end - begin));
  }
  return blend;
}

/// The two pixels around a position (a whole one is a pixel's centre); those at the ends go on.
Blend Between(int place, double position, const Side& source) {
  const double whole = std::floor(position);
  const double part = position - whole;
  const int left = static_cast<int>(whole);
  if (part == 0 || left + 1 >= source.End()) return {place, left, {1.0}};
  if (left < source.Begin()) return {place, source.Begin(), {1.0}};
  return {place, left, {1 - part, part}};
}

/// A row for each place of the target whose centre lies over the source picture.
std::vector<Blend> BlendsAlong(const Side& source, const Side& target) {
  std::vector<Blend> blends;
  if (source.Length < 1 || target.Length < 1) return blends;
  const double scale = static_cast<double>(source.Length) / target.Length;
  for (int place = target.Begin(); place < target.End(); ++place) {
    const double begin = source.Start + (place - target.Start) * scale;
    const double centre = begin + scale / 2;
    if (centre < source.Begin() || centre >= source.End()) continue;
    blends.push_back(scale > 1 ? Average(place, std::max<double>(begin, source.Begin()),
                                         std::min<double>(begin + scale, source.End()))
                               : Between(place, centre - 0.5, source));
  }
  return blends;
}

struct Light {
  double Red = 0;
  double Green = 0;
  double Blue = 0;
};

/// The pixels from begin on of the rows that a blend names, blended into one row.
void BlendRows(const Raster& source, const Blend& rows, int begin, std::vector<Light>& blended) {
  std::fill(blended.begin(), blended.end(), Light{});
  for (std::size_t index = 0; index < rows.Weights.size(); ++index) {
    const std::int32_t* pixels = source.Row(rows.First + static_cast<int>(index)) + begin;
    const double weight = rows.Weights[index];
    for (Light& light : blended) {
      const std::int32_t color = *pixels++;
      light.Red += weight * (color >> 16 & 0xFF);
      light.Green += weight * (color >> 8 & 0xFF);
      light.Blue += weight * (color & 0xFF);
    }
  }
}

std::int32_t BlendPixels(const Light* lights, const std::vector<double>& weights) {
  Light sum;
  for (const double weight : weights) {
    sum.Red += weight * lights->Red;
    sum.Green += weight * lights->Green;
    sum.Blue += weight * lights->Blue;
    ++lights;
  }
  return RoundToEven(sum.Red) << 16 | RoundToEven(sum.Green) << 8 | RoundToEven(sum.Blue);
}

}  // namespace

void StretchCopy(const Raster& source, double sx, double sy, double sWidth, double sHeight,
                 Raster& target, double dx, double dy, double dWidth, double dHeight) {
  const std::vector<Blend> across =
      BlendsAlong({sx, sWidth, source.Width()}, {dx, dWidth, target.Width()});
  const std::vector<Blend> down =
      BlendsAlong({sy, sHeight, source.Height()}, {dy, dHeight, target.Height()});
  if (across.empty()) return;
  const int begin = across.front().First;
  const int end = across.back().First + static_cast<int>(across.back().Weights.size());
  std::vector<Light> blended(static_cast<std::size_t>(end - begin));
  for (const Blend& rows : down) {
    BlendRows(source, rows, begin, blended);
    std::int32_t* pixels = target.Row(rows.Place);
    for (const Blend& columns : across) {
      pixels[columns.Place] = BlendPixels(&blended[columns.First - begin], columns.Weights);
    }
  }
}

}  // namespace brindlemoor
