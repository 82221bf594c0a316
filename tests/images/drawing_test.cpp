// The drawing algorithms on pictures small enough to work every pixel out on paper.
#include "images/drawing.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace brindlemoor {
// Prints the pixels in a failure.
static void PrintTo(const Raster& raster, std::ostream* out) {
  for (int y = 0; y < raster.Height(); ++y) {
    *out << '\n' << std::hex;
    for (int x = 0; x < raster.Width(); ++x) *out << ' ' << raster.Pixel(x, y);
  }
}

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Raster Plain(int width, int height, std::int32_t color) {
  Raster raster(width, height);
  for (int y = 0; y < height; ++y) std::fill_n(raster.Row(y), width, color);
  return raster;
}

Raster Pixels(const std::vector<std::vector<std::int32_t>>& rows) {
  Raster raster(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (int y = 0; y < raster.Height(); ++y) {
    for (int x = 0; x < raster.Width(); ++x) raster.SetPixel(x, y, rows[y][x]);
  }
  return raster;
}

constexpr std::int32_t Grey(int level) { return level << 16 | level << 8 | level; }

Raster Greys(std::vector<std::vector<std::int32_t>> rows) {
  for (auto& row : rows) {
    for (std::int32_t& level : row) level = Grey(level);
  }
  return Pixels(rows);
}

/// Reduces the first 8 by 8 pixels of a picture by half.
Raster Halved(const Raster& source) {
  Raster target = Plain(5, 5, Grey(9));
  ResamplePicture(source, target, 0, 0, 8, 8, 0, 0, 4, 4);
  return target;
}

TEST(RoundToEven, HalvesGoToTheEvenNeighbourAndOddNumbersStayInRange) {
  EXPECT_EQ(RoundToEven(0.5), 0);
  EXPECT_EQ(RoundToEven(1.5), 2);
  EXPECT_EQ(RoundToEven(-2.5), -2);
  EXPECT_EQ(RoundToEven(2.51), 3);
  EXPECT_EQ(RoundToEven(kNaN), 0);
  EXPECT_EQ(RoundToEven(-kInfinite), std::numeric_limits<int>::min());
  EXPECT_EQ(RoundToEven(1e12), std::numeric_limits<int>::max());
}

// Both ratios are 2, so column n takes the pixels 2n - 1 to 2n + 1 of row 2m and then of column 2n.
// Column 4 would begin at 8, the end of the row; row 4 reads row 8, which is not there, and then
// only pixel 7 of its columns.
TEST(ResamplePicture, CarriesTheSumsFromPixelToPixelAndRowToRow) {
  // The first pixel starts at 0: (0 + 3 * 64) / 4 = 48, then (48 + 3 * 64) / 4 = 60. The second:
  // (60 + 192) / 4 = 63, (63 + 192) / 4 = 63.75. The third is nearer still.
  EXPECT_EQ(Halved(Plain(8, 8, Grey(64))), Greys({{0, 0, 0, 0, 0},
                                                  {0, 60, 64, 64, 0},
                                                  {0, 64, 64, 64, 0},
                                                  {0, 64, 64, 64, 0},
                                                  {0, 64, 64, 64, 0}}));
  // Left half blue, right half red, 192 each. Row 1: blue 144, 180; blue (180 + 192) / 4 = 93 and
  // red 384 / 4 = 96, then blue 93 / 4 = 23.25 and red (96 + 576) / 4 = 168; blue 1.45 and red
  // 190.5, which rounds to the even number. Row 2 goes on from there: blue (1.45 + 576) / 4 =
  // 144.4, then 180.1; red 190.5 / 16 = 11.9.
  Raster halves = Plain(8, 8, 0x0000C0);
  for (int y = 0; y < 8; ++y) std::fill_n(halves.Row(y) + 4, 4, 0xC00000);
  const Raster reduced = Halved(halves);
  EXPECT_EQ(reduced.Pixel(1, 1), 180);
  EXPECT_EQ(reduced.Pixel(2, 1), 168 << 16 | 23);
  EXPECT_EQ(reduced.Pixel(3, 1), 190 << 16 | 1);
  EXPECT_EQ(reduced.Pixel(1, 2), 12 << 16 | 180);
}

TEST(ResamplePicture, LeavesOutBlackPixelsOnly) {
  // Without it: (60 + 2 * 64) / 3 = 62.7, (62.7 + 128) / 3 = 63.6. Counted, it would give 43.75.
  Raster picture = Plain(8, 8, Grey(64));
  picture.SetPixel(4, 2, 0);
  EXPECT_EQ(Halved(picture), Halved(Plain(8, 8, Grey(64))));
  // One component is enough to count: green and blue (60 + 128) / 4 = 47, (47 + 128) / 4 = 43.75,
  // of which the next pixel has (43.75 + 192) / 4 = 58.9, (58.9 + 192) / 4 = 62.7.
  picture.SetPixel(4, 2, 0x400000);
  EXPECT_EQ(Halved(picture).Pixel(2, 1), 0x402C2C);
  EXPECT_EQ(Halved(picture).Pixel(3, 1), 0x403F3F);
  EXPECT_EQ(Halved(Raster(8, 8)), Raster(5, 5));
}

TEST(ResamplePicture, AreasOfBlackStayBlack) {
  Raster picture = Plain(8, 8, 0);
  for (int y = 0; y < 8; ++y) std::fill_n(picture.Row(y), 4, Grey(64));
  const Raster reduced = Halved(picture);
  for (int y = 1; y < 4; ++y) {
    EXPECT_GT(reduced.Pixel(1, y), 0);
    EXPECT_EQ(reduced.Pixel(3, y), 0);
  }
}

TEST(ResamplePicture, PassesRunOnlyAlongASideThatShrinks) {
  const Raster picture = Plain(8, 8, Grey(64));
  // Across only: 192 / 4 = 48, then (48 + 192) / 4 = 60, 63; the next row goes on. Row 4 of the
  // source lies inside, as the picture is higher than the rectangle.
  Raster target = Plain(6, 5, Grey(9));
  ResamplePicture(picture, target, 0, 0, 8, 4, 0, 0, 4, 4);
  EXPECT_EQ(target, Greys({{0, 0, 0, 0, 0, 9},
                           {0, 48, 60, 63, 0, 9},
                           {0, 64, 64, 64, 0, 9},
                           {0, 64, 64, 64, 0, 9},
                           {0, 64, 64, 64, 0, 9}}));
  // Down only: columns 1 to 3 (column 4 would begin at the right edge). Row 2 is at the bottom: it
  // has one pixel a column, (63 + 64) / 2 = 63.5 and on, as what lies below does not belong to it.
  Raster higher = Plain(8, 8, 0xFFFFFF);
  for (int y = 0; y < 4; ++y) std::fill_n(higher.Row(y), 8, Grey(64));
  target = Plain(6, 5, Grey(9));
  ResamplePicture(higher, target, 0, 0, 4, 4, 1, 1, 5, 3);
  EXPECT_EQ(target, Greys({{9, 9, 9, 9, 9, 9},
                           {9, 0, 0, 0, 0, 0},
                           {9, 0, 48, 60, 63, 0},
                           {9, 0, 64, 64, 64, 0},
                           {9, 9, 9, 9, 9, 9}}));
  // Down, while twice as wide: columns 1 and 2 lie at 0.5 and 1, and nothing begins behind that.
  target = Plain(6, 3, Grey(9));
  ResamplePicture(higher, target, 0, 0, 2, 4, 0, 0, 4, 2);
  EXPECT_EQ(target, Greys({{0, 0, 0, 0, 0, 9}, {0, 48, 60, 0, 0, 9}, {0, 62, 63, 0, 0, 9}}));
  // Neither: nothing is ever added.
  target = Plain(9, 9, Grey(9));
  ResamplePicture(picture, target, 0, 0, 8, 8, 0, 0, 8, 8);
  EXPECT_EQ(target, Raster(9, 9));
}

// Columns 1 to 3 lie at -2, 0 and 2, rows 1 to 4 at -2, 0, 2 and 4; places up to 0 are not sampled.
// Row 2: (0 + 64) / 2 = 32 and (32 + 64) / 2 = 48; (48 + 192) / 4 = 60 and (60 + 64) / 2 = 62.
// What is carried over shows where the next row has nothing of its own.
TEST(ResamplePicture, ReadsBlackOutsideThePicture) {
  Raster target = Plain(5, 5, Grey(9));
  ResamplePicture(Plain(4, 4, Grey(64)), target, -4, -4, 4, 4, 0, 0, 4, 4);
  EXPECT_EQ(target, Greys({{0, 0, 0, 0, 0},
                           {0, 0, 0, 0, 0},
                           {0, 0, 48, 62, 0},
                           {0, 62, 64, 64, 0},
                           {0, 64, 64, 64, 0}}));
  // Rows at -0.5 and 0: half a pixel above the picture is not yet its first row. (48 + 64) / 2
  // = 56.
  target = Plain(5, 5, Grey(9));
  ResamplePicture(Plain(4, 4, Grey(64)), target, 0, -1, 8, 1, 0, 0, 4, 4);
  EXPECT_EQ(target, Greys({{0, 0, 0, 0, 0},
                           {0, 0, 0, 0, 0},
                           {0, 48, 56, 56, 0},
                           {0, 0, 0, 0, 0},
                           {0, 0, 0, 0, 0}}));
}

// L light, D dark, half the frame's colour and half the picture's; the middle is at width's end.
// The diagonals are light, down to the lower right corner.
TEST(BevelFrame, TwoPixelsWide) {
  Raster surface = Plain(7, 7, Grey(100));
  surface.SetPixel(3, 3, 0);  // a black component counts as 1
  surface.SetPixel(5, 2, 0x000064);
  BevelFrame(surface, 1, 1, 5, 5, Grey(200), 0x0000C8, 2);
  const std::int32_t l = Grey(150), d = 0x323296, o = Grey(100);
  EXPECT_EQ(surface, Pixels({{o, o, o, o, o, o, o},
                             {o, l, l, l, l, l, o},
                             {o, l, l, l, l, 150, o},  // red and green 0.5 round to 0
                             {o, l, l, 0x010101, d, d, o},
                             {o, l, l, d, l, d, o},
                             {o, l, d, d, d, l, o},
                             {o, o, o, o, o, o, o}}));
  // In a frame more than twice as high as wide the left band is dark around its middle.
  surface = Plain(5, 21, Grey(100));
  BevelFrame(surface, 0, 0, 4, 20, Grey(200), 0x0000C8, 2);
  EXPECT_EQ(surface.Pixel(0, 4), l);
  EXPECT_EQ(surface.Pixel(0, 5), d);
  EXPECT_EQ(surface.Pixel(0, 16), l);
}

// The edge pixel fades as much as the one beside it. Pixels that the surface lacks are left out.
TEST(BevelFrame, FadesIntoThePictureAndIsClipped) {
  Raster surface = Plain(9, 9, Grey(200));
  BevelFrame(surface, 0.5, -20, 8.4, 40, 0, 0, 4);
  const Raster row = Greys({{50, 50, 100, 150, 200, 150, 100, 50, 50}});
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 9; ++x) EXPECT_EQ(surface.Pixel(x, y), row.Pixel(x, 0)) << x << "," << y;
  }
}

TEST(StretchCopy, CopiesSmoothsAndAverages) {
  struct Case {
    const char* what;
    std::vector<std::vector<std::int32_t>> source;
    double from[4], to[4];
    std::vector<std::vector<std::int32_t>> drawn;  // into 4 by 2 pixels of level 9
  };
  const Case cases[] = {
      {"its own size, moved",
       {{1, 2}, {3, 4}},
       {0, 0, 2, 2},
       {1, 0, 2, 2},
       {{9, 1, 2, 9}, {9, 3, 4, 9}}},
      {"a piece", {{1, 2, 3}, {4, 5, 6}}, {1, 1, 2, 1}, {0, 0, 2, 1}, {{5, 6, 9, 9}, {9, 9, 9, 9}}},
      {"half over the upper left corner of both",
       {{1, 2}, {3, 4}},
       {-1, 0, 3, 2},
       {-1, -1, 3, 2},
       {{3, 4, 9, 9}, {9, 9, 9, 9}}},
      {"beyond the lower right corner of both",
       {{1, 2}, {3, 4}},
       {1, 1, 5, 5},
       {3, 1, 5, 5},
       {{9, 9, 9, 9}, {9, 9, 9, 4}}},
      // Centres at -1/4, 1/4, 3/4 and 5/4 of the way from the left pixel to the right one.
      {"twice as wide", {{0, 100}}, {0, 0, 2, 1}, {0, 0, 4, 1}, {{0, 25, 75, 100}, {9, 9, 9, 9}}},
      {"smoothing stays inside the piece",
       {{200, 0, 100, 200}},
       {1, 0, 2, 1},
       {0, 0, 4, 1},
       {{0, 25, 75, 100}, {9, 9, 9, 9}}},
      {"half as large",
       {{10, 20, 1, 1}, {30, 40, 1, 2}},
       {0, 0, 4, 2},
       {0, 0, 2, 1},
       {{25, 1, 9, 9}, {9, 9, 9, 9}}},
      // One and a half pixels each: (30 + 60 / 2) / 1.5 and (60 / 2 + 90) / 1.5.
      {"three to two", {{30, 60, 90}}, {0, 0, 3, 1}, {0, 0, 2, 1}, {{40, 80, 9, 9}, {9, 9, 9, 9}}},
      {"halves round to even",
       {{1, 2}},
       {0.5, 0, 1.5, 1},
       {1.5, 0.5, 2, 0.9},
       {{9, 9, 1, 2}, {9, 9, 9, 9}}},
  };
  for (const Case& row : cases) {
    Raster target = Plain(4, 2, Grey(9));
    StretchCopy(Greys(row.source), row.from[0], row.from[1], row.from[2], row.from[3], target,
                row.to[0], row.to[1], row.to[2], row.to[3]);
    EXPECT_EQ(target, Greys(row.drawn)) << row.what;
  }
}

// Each must come back, and change just so many of 5 by 5 pixels.
TEST(Drawing, RectanglesOfNoSense) {
  struct Case {
    double x1, y1, x2, y2;
    int reducedInto, framed;
  };
  const Case cases[] = {
      {2, 0, 2, 4, 5, 5},                               // one pixel wide
      {0, 2, 4, 2, 5, 5},                               // one pixel high
      {2, 2, 2, 2, 1, 1},                               // one pixel
      {4, 0, 0, 4, 0, 0},                               // the wrong way round
      {0, 4, 4, 0, 0, 0},    {-9, -9, -1, -1, 0, 0},    // outside
      {5, 5, 9, 9, 0, 0},    {-2, -2, 2, 2, 9, 5 + 3},  // the middle of 5 by 5 is left of the frame
      {kNaN, 0, 4, 4, 0, 0}, {0, 0, 4, kInfinite, 0, 0}, {-1e300, -1e300, 1e300, 1e300, 25, 0},
  };
  for (const Case& row : cases) {
    const auto changed = [](const Raster& raster) {
      int count = 0;
      for (int at = 0; at < 25; ++at) count += raster.Pixel(at % 5, at / 5) != Grey(9);
      return count;
    };
    SCOPED_TRACE(testing::Message() << row.x1 << " " << row.y1 << " " << row.x2 << " " << row.y2);
    Raster target = Plain(5, 5, Grey(9));
    ResamplePicture(Plain(3, 3, Grey(200)), target, 0, 0, 99, 99, row.x1, row.y1, row.x2, row.y2);
    EXPECT_EQ(changed(target), row.reducedInto);
    target = Plain(5, 5, Grey(9));
    ResamplePicture(Plain(3, 3, Grey(9)), target, row.x1, row.y1, row.x2, row.y2, 0, 0, 4, 4);
    EXPECT_EQ(changed(target) > 0, std::isfinite(row.x1 + row.y2)) << "as a source";
    target = Plain(5, 5, Grey(9));
    BevelFrame(target, row.x1, row.y1, row.x2, row.y2, Grey(99), Grey(99), 2);
    EXPECT_EQ(changed(target), row.framed);
    BevelFrame(target, 0, 0, 4, 4, 0, 0, 0);
    EXPECT_EQ(changed(target), row.framed) << "a frame of no width";
    Raster none;
    ResamplePicture(none, none, 0, 0, 9, 9, row.x1, row.y1, row.x2, row.y2);
    BevelFrame(none, row.x1, row.y1, row.x2, row.y2, 1, 1, 2);
    StretchCopy(none, row.x1, row.y1, row.x2, row.y2, target, 0, 0, 5, 5);
    StretchCopy(target, 0, 0, 5, 5, none, row.x1, row.y1, row.x2, row.y2);
    EXPECT_TRUE(none.Empty());
    EXPECT_EQ(changed(target), row.framed) << "copied from nothing";
  }
}

}  // namespace
}  // namespace brindlemoor
