// Composing a card's images: pixels at the places where frame, picture and background meet.
#include "images/card_images.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <initializer_list>
#include <utility>

namespace brindlemoor {
namespace {

constexpr std::int32_t Grey(int level) { return level << 16 | level << 8 | level; }

Raster Plain(int width, int height, std::int32_t color) {
  Raster raster(width, height);
  for (int y = 0; y < height; ++y) std::fill_n(raster.Row(y), width, color);
  return raster;
}

/// The images of a card, on black, with the whole foreground as both pieces.
struct Composed {
  explicit Composed(const Raster& foreground, std::int32_t frameColor = Grey(128),
                    const Raster& border = Raster()) {
    CropCoordinates crop;
    CompleteCrop(crop, foreground);
    EXPECT_TRUE(IsUsable(crop));
    DrawCardImages(foreground, crop, frameColor, border, Main, Mini);
  }
  Raster Main = MainSurface(Raster());
  Raster Mini = Plain(kMiniSize, kMiniSize, Grey(100));
};

struct Spot {
  int x, y;
  std::int32_t color;
};

void ExpectSpots(const Raster& raster, std::initializer_list<Spot> spots) {
  for (const Spot& spot : spots) {
    EXPECT_EQ(raster.Pixel(spot.x, spot.y), spot.color) << spot.x << "," << spot.y;
  }
}

TEST(Crop, IsCompletedWithinItsRangeAndMustHaveASize) {
  CropCoordinates crop;
  crop.MainX1 = 10;
  crop.MiniX2 = 50;
  CompleteCrop(crop, Raster(200, 100));
  EXPECT_EQ(crop, (CropCoordinates{10, 200, 0, 100, 0, 50, 0, 100}));
  EXPECT_TRUE(IsUsable(crop));
  for (const auto& [field, value] :
       {std::pair(&CropCoordinates::MainX1, 200), std::pair(&CropCoordinates::MainY1, 101),
        std::pair(&CropCoordinates::MiniX1, 50), std::pair(&CropCoordinates::MiniY1, 100)}) {
    CropCoordinates bad = crop;
    bad.*field = static_cast<std::int16_t>(value);
    EXPECT_FALSE(IsUsable(bad)) << value;
    Raster main(kMainWidth, kMainHeight), mini(kMiniSize, kMiniSize);
    DrawCardImages(Plain(200, 100, Grey(80)), bad, Grey(128), Raster(), main, mini);
    EXPECT_EQ(main, Raster(kMainWidth, kMainHeight)) << "nothing is drawn";
  }
  CropCoordinates huge;
  CompleteCrop(huge, Raster(40'000, 1));
  EXPECT_EQ(huge, (CropCoordinates{0, 32767, 0, 1, 0, 32767, 0, 1}));
}

TEST(MainTarget, FitsTheBoxAroundTheMiddle) {
  const struct {
    int width, height;
    double scale, x, y, drawnWidth, drawnHeight;
  } cases[] = {{100, 100, 2.7, 15, 90, 270, 270},
               {270, 420, 1, 15, 15, 270, 420},
               {540, 420, 0.5, 15, 120, 270, 210},
               {100, 840, 0.5, 125, 15, 50, 420},
               {269, 420, 1, 15.5, 15, 269, 420}};
  for (const auto& row : cases) {
    CropCoordinates crop;
    crop.MainX1 = 7;
    crop.MainX2 = static_cast<std::int16_t>(7 + row.width);
    crop.MainY2 = static_cast<std::int16_t>(row.height);
    double scale = 0;
    const DrawArea area = MainTarget(crop, scale);
    EXPECT_DOUBLE_EQ(scale, row.scale);
    EXPECT_DOUBLE_EQ(area.X, row.x);
    EXPECT_DOUBLE_EQ(area.Y, row.y);
    EXPECT_DOUBLE_EQ(area.Width, row.drawnWidth);
    EXPECT_DOUBLE_EQ(area.Height, row.drawnHeight);
  }
}

TEST(MainSurface, HasTheSizeOfTheLargeImage) {
  Raster background = Plain(kMainWidth, kMainHeight, Grey(50));
  background.SetPixel(299, 449, 0x123456);
  EXPECT_EQ(MainSurface(background), background);
  EXPECT_EQ(MainSurface(Plain(30, 900, Grey(50))), Plain(kMainWidth, kMainHeight, Grey(50)));
  EXPECT_EQ(MainSurface(Raster()), Raster(kMainWidth, kMainHeight));
}

// Light is 160, dark 64. At an edge 9 parts of it meet 1 part of the picture, or of a background
// whose black counts as 1, right of and below the picture.
TEST(DrawCardImages, EnlargesASmallForegroundIntoTheMiddle) {
  ExpectSpots(Composed(Plain(100, 100, Grey(80))).Main, {{14, 225, 0},
                                                         {15, 225, Grey(152)},
                                                         {16, 225, Grey(152)},
                                                         {20, 225, Grey(120)},
                                                         {25, 225, Grey(80)},
                                                         {150, 225, Grey(80)},
                                                         {284, 225, Grey(66)},
                                                         {285, 225, Grey(58)},
                                                         {286, 225, 0},
                                                         {150, 89, 0},
                                                         {150, 90, Grey(152)},
                                                         {150, 359, Grey(66)},
                                                         {150, 360, Grey(58)},
                                                         {150, 361, 0},
                                                         {285, 90, Grey(144)},
                                                         {15, 360, Grey(144)}});
}

TEST(DrawCardImages, ForegroundOfTheBoxsSizeStaysAsItIs) {
  Raster foreground(270, 420);
  for (int y = 0; y < 420; ++y) {
    for (int x = 0; x < 270; ++x) foreground.SetPixel(x, y, 1 + x * 5003 + y * 71);
  }
  const Composed card(foreground);
  int different = 0;
  for (int y = 11; y < 410; ++y) {
    for (int x = 11; x < 260; ++x) {
      different += card.Main.Pixel(15 + x, 15 + y) != foreground.Pixel(x, y);
    }
  }
  EXPECT_EQ(different, 0);
  EXPECT_NE(card.Main.Pixel(15 + 9, 225), foreground.Pixel(9, 210)) << "the frame";
}

// Twice the box's size: the first row and column of the rectangle stay black, and the first pixel,
// (0 + 192) / 4 and (48 + 192) / 4, is darker than the others; beneath the frame they count 1, 60
// and 64 parts of the whole.
TEST(DrawCardImages, ReducesALargeForeground) {
  ExpectSpots(Composed(Plain(540, 840, Grey(64))).Main, {{14, 225, 0},
                                                         {15, 225, Grey(144)},  // 0.1 + 144
                                                         {16, 16, Grey(150)},   // 6 + 144
                                                         {16, 225, Grey(150)},  // 6.4 + 144
                                                         {150, 225, Grey(64)},
                                                         {284, 225, Grey(64)},  // 6.4 + 57.6
                                                         {285, 225, Grey(58)},  // 0.1 + 57.6
                                                         {286, 225, 0}});
  const Composed black(Plain(540, 840, 0));
  ExpectSpots(black.Main, {{150, 225, 0}, {26, 225, 0}});
}

// Five pixels from the edges picture and frame meet in equal parts. Light: 240 * 1.25 stops at 255,
// and 50 + 127.5 goes to the even neighbour; 13 * 1.25 = 16.25. Dark: 120, and 6.5 becomes 6.
TEST(DrawCardImages, ShadesOfTheFrame) {
  ExpectSpots(Composed(Plain(100, 100, Grey(100)), 0xF00D00).Main,
              {{20, 225, 178 << 16 | 58 << 8 | 50}, {280, 225, 110 << 16 | 53 << 8 | 50}});
}

// Half the foreground's size fills (1,1) to (64,64) but for its first row and column and the last
// ones, where the picture ends; 0 keeps what was there. All of that lies beneath the frame of 200.
TEST(DrawCardImages, ThumbnailOfALargeForeground) {
  const Composed card(Plain(126, 126, Grey(64)), Grey(200));
  ExpectSpots(card.Mini, {{0, 32, Grey(190)},  // 100 / 10 + 180
                          {1, 32, Grey(180)},  // 1 / 10 + 180
                          {2, 2, Grey(172)},   // 60 / 5 + 160
                          {2, 32, Grey(173)},  // 64 / 5 + 160
                          {5, 32, Grey(132)},  // in equal parts
                          {10, 32, Grey(64)},
                          {32, 32, Grey(64)},
                          {55, 32, Grey(64)},
                          {63, 32, Grey(173)},
                          {64, 32, Grey(180)}});
}

TEST(DrawCardImages, ThumbnailOfASmallForegroundFillsTheSquare) {
  Raster foreground = Plain(20, 65, 0x0000FF);
  for (int y = 0; y < 65; ++y) std::fill_n(foreground.Row(y) + 10, 10, 0xFF0000);
  ExpectSpots(Composed(foreground).Mini,
              {{12, 32, 0x0000FF}, {26, 32, 0x0000FF}, {38, 32, 0xFF0000}});
  EXPECT_EQ(Composed(Plain(65, 65, Grey(80))).Mini.Pixel(64, 32), Grey(123));  // 8 + 115.2
}

// The square around a piece of 126 by 20 reaches from -53 to 73: row 28 of the thumbnail is the
// first that meets the picture, and what was carried over fills the rows behind it.
TEST(DrawCardImages, ThumbnailSquareBeyondThePicture) {
  ExpectSpots(
      Composed(Plain(126, 20, Grey(64))).Mini,
      {{32, 12, 0}, {32, 27, 0}, {32, 28, Grey(64)}, {32, 37, Grey(64)}, {32, 53, Grey(64)}});
}

TEST(DrawCardImages, BorderLetsThroughWhereItIsBlack) {
  Raster border(65, 70);
  for (int at = 0; at < 65; ++at) {
    for (const int end : {0, 64}) {
      border.SetPixel(at, end, 0x00FF00);
      border.SetPixel(end, at, 0x00FF00);
    }
  }
  const Raster foreground = Plain(126, 126, Grey(64));
  Raster expected = Composed(foreground).Mini;
  const Composed bordered(foreground, Grey(128), border);
  EXPECT_NE(bordered.Mini, expected);
  for (int at = 0; at < 65; ++at) {
    for (const int end : {0, 64}) {
      expected.SetPixel(at, end, 0x00FF00);
      expected.SetPixel(end, at, 0x00FF00);
    }
  }
  EXPECT_EQ(bordered.Mini, expected);
  // A border of one pixel covers one pixel.
  expected = Composed(foreground).Mini;
  expected.SetPixel(0, 0, 0x000001);
  EXPECT_EQ(Composed(foreground, Grey(128), Plain(1, 1, 0x000001)).Mini, expected);
}

}  // namespace
}  // namespace brindlemoor
