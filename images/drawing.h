// The drawing algorithms of card images, on rasters.
#pragma once

#include <cstdint>

#include "platform/raster.h"

namespace brindlemoor {

// Rectangles come as real numbers; their corners become places by RoundToEven, once. One that is
// not finite draws nothing, and what lies outside the target is left out.

/// A number rounded to the nearest integer, a half to the even neighbour. NaN gives 0, numbers
/// beyond an int its ends.
int RoundToEven(double number);

/// Draws a frame that fades into the picture: at an edge of the rectangle (both corners belong to
/// it) a pixel has almost the frame's colour, at width pixels from it the picture's. The top and
/// left bands take the light colour, the others the dark one.
void BevelFrame(Raster& surface, double x1, double y1, double x2, double y2,
                std::int32_t lightColor, std::int32_t darkColor, int width);

/// Reduces a rectangle of source into one of target; both are inclusive. Each pixel averages the
/// source's pixels around its place, black ones left out, and carries over a part of the one
/// before. Places without a sample come out black, the first row and column always. Pixels outside
/// the source count as black. The two are different pictures.
void ResamplePicture(const Raster& source, Raster& target, double sx1, double sy1, double sx2,
                     double sy2, double dx1, double dy1, double dx2, double dy2);

/// Copies a rectangle of source into one of target, stretching it. In its own size the copy has the
/// same pixels; enlarged, it is smoothed; reduced, it is averaged. Places of the target without a
/// pixel of the source stay as they are.
void StretchCopy(const Raster& source, double sx, double sy, double sWidth, double sHeight,
                 Raster& target, double dx, double dy, double dWidth, double dHeight);

}  // namespace brindlemoor
