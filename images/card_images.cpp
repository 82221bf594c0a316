// A card's large image and its thumbnail, made of background, foreground, frames and border.
#include "images/card_images.h"

#include <algorithm>
#include <limits>

#include "images/drawing.h"

namespace brindlemoor {
namespace {

std::int16_t CropValue(int size) {
  return static_cast<std::int16_t>(std::min<int>(size, std::numeric_limits<std::int16_t>::max()));
}

std::int32_t Shade(std::int32_t color, double factor) {
  std::int32_t shade = 0;
  for (const int shift : {16, 8, 0}) {
    shade |= std::min(RoundToEven((color >> shift & 0xFF) * factor), 255) << shift;
  }
  return shade;
}

void DrawMain(const Raster& foreground, const CropCoordinates& crop, std::int32_t frameColor,
              Raster& main) {
  double scale = 1;
  const DrawArea area = MainTarget(crop, scale);
  if (scale < 1) {
    ResamplePicture(foreground, main, crop.MainX1, crop.MainY1, crop.MainX2, crop.MainY2, area.X,
                    area.Y, area.X + area.Width, area.Y + area.Height);
  } else {
    StretchCopy(foreground, crop.MainX1, crop.MainY1, crop.MainX2 - crop.MainX1,
                crop.MainY2 - crop.MainY1, main, area.X, area.Y, area.Width, area.Height);
  }
  BevelFrame(main, area.X, area.Y, area.X + area.Width, area.Y + area.Height,
             Shade(frameColor, 1.25), Shade(frameColor, 0.5), kBevelWidth);
}

void DrawMini(const Raster& foreground, const CropCoordinates& crop, std::int32_t frameColor,
              Raster& mini) {
  const int width = crop.MiniX2 - crop.MiniX1;
  const int height = crop.MiniY2 - crop.MiniY1;
  const int side = std::max(width, height);
  if (side <= kMiniSize) {
    StretchCopy(foreground, crop.MiniX1, crop.MiniY1, width, height, mini, 0, 0, kMiniSize,
                kMiniSize);
  } else {
    const double centreX = (crop.MiniX1 + crop.MiniX2) / 2.0;
    const double centreY = (crop.MiniY1 + crop.MiniY2) / 2.0;
    const double half = side / 2.0;
    ResamplePicture(foreground, mini, centreX - half, centreY - half, centreX + half,
                    centreY + half, 1, 1, kMiniSize - 1, kMiniSize - 1);
  }
  BevelFrame(mini, 0, 0, kMiniSize, kMiniSize, frameColor, frameColor, kBevelWidth);
}

/// Lays a border picture on the thumbnail; black lets through what is below.
void DrawBorder(const Raster& border, Raster& mini) {
  for (int y = 0; y <= kMiniSize; ++y) {
    for (int x = 0; x <= kMiniSize; ++x) {
      if (const std::int32_t color = border.Pixel(x, y); color > 0) mini.SetPixel(x, y, color);
    }
  }
}

}  // namespace

DrawArea MainTarget(const CropCoordinates& crop, double& scale) {
  const double width = crop.MainX2 - crop.MainX1;
  const double height = crop.MainY2 - crop.MainY1;
  scale = std::min((kMainWidth - kFrameMargin) / width, (kMainHeight - kFrameMargin) / height);
  const double drawnWidth = width * scale;
  const double drawnHeight = height * scale;
  return {kMainWidth / 2.0 - drawnWidth / 2, kMainHeight / 2.0 - drawnHeight / 2, drawnWidth,
          drawnHeight};
}

void CompleteCrop(CropCoordinates& crop, const Raster& foreground) {
  if (crop.MainX2 == 0) crop.MainX2 = CropValue(foreground.Width());
  if (crop.MainY2 == 0) crop.MainY2 = CropValue(foreground.Height());
  if (crop.MiniX2 == 0) crop.MiniX2 = CropValue(foreground.Width());
  if (crop.MiniY2 == 0) crop.MiniY2 = CropValue(foreground.Height());
}

bool IsUsable(const CropCoordinates& crop) {
  return crop.MainX2 > crop.MainX1 && crop.MainY2 > crop.MainY1 && crop.MiniX2 > crop.MiniX1 &&
         crop.MiniY2 > crop.MiniY1;
}

Raster MainSurface(const Raster& background) {
  if (background.Width() == kMainWidth && background.Height() == kMainHeight) return background;
  Raster surface(kMainWidth, kMainHeight);
  StretchCopy(background, 0, 0, background.Width(), background.Height(), surface, 0, 0, kMainWidth,
              kMainHeight);
  return surface;
}

void DrawCardImages(const Raster& foreground, const CropCoordinates& crop, std::int32_t frameColor,
                    const Raster& miniBorder, Raster& main, Raster& mini) {
  if (!IsUsable(crop)) return;
  DrawMain(foreground, crop, frameColor, main);
  DrawMini(foreground, crop, frameColor, mini);
  DrawBorder(miniBorder, mini);
}

}  // namespace brindlemoor
