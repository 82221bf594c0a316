// Composing the two images of a card: background, a piece of the foreground, frame, thumbnail.
#pragma once

#include <cstdint>

#include "core/records.h"
#include "platform/raster.h"

namespace brindlemoor {

inline constexpr int kMainWidth = 300;  ///< of the large image, in pixels
inline constexpr int kMainHeight = 450;
inline constexpr int kMiniSize = 65;     ///< of the thumbnail, both ways
inline constexpr int kFrameMargin = 30;  ///< room around the picture within the large image
inline constexpr int kBevelWidth = 10;
inline constexpr int kMainQuality = 100;  ///< of the JPEG files
inline constexpr int kMiniQuality = 85;

/// A rectangle between real numbers, as the composition reckons with.
struct DrawArea {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
};

/// Where the crop of the foreground is drawn in the large image: in a box of 270 by 420 centred at
/// (150, 225). scale is the factor of its size. The crop must not be empty.
DrawArea MainTarget(const CropCoordinates& crop, double& scale);

/// Gives each far coordinate that is 0 the width or height of the foreground.
void CompleteCrop(CropCoordinates& crop, const Raster& foreground);
/// True when both pieces have a width and a height above 0.
bool IsUsable(const CropCoordinates& crop);

/// Makes a surface of the large image's size out of a background: a picture of that size as it is,
/// another stretched, none black.
Raster MainSurface(const Raster& background);

/// Draws the crop of a foreground into the two surfaces, with its frames; the thumbnail gets the
/// border picture on top, without its black pixels, unless that is empty. crop must be complete and
/// usable. frameColor has red high and blue low.
void DrawCardImages(const Raster& foreground, const CropCoordinates& crop, std::int32_t frameColor,
                    const Raster& miniBorder, Raster& main, Raster& mini);

}  // namespace brindlemoor
