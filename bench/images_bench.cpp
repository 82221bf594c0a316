// Composing card images out of pictures of a camera's size.
#include <benchmark/benchmark.h>
#include <cstdint>

#include "images/card_images.h"
#include "images/drawing.h"

namespace brindlemoor {
namespace {

/// A picture without black, of 1,000 by 1,500 pixels times size.
Raster Photograph(std::int64_t size) {
  Raster picture(static_cast<int>(1000 * size), static_cast<int>(1500 * size));
  std::uint32_t noise = 1;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      noise = noise * 1664525 + 1013904223;
      picture.SetPixel(x, y, static_cast<std::int32_t>(noise >> 8 | 1));
    }
  }
  return picture;
}

void BM_ResamplePicture(benchmark::State& state) {
  const Raster picture = Photograph(state.range(0));
  Raster main(kMainWidth, kMainHeight);
  for (auto _ : state) {
    ResamplePicture(picture, main, 0, 0, picture.Width(), picture.Height(), 15, 15, 285, 435);
    benchmark::DoNotOptimize(main.Row(0));
  }
}
BENCHMARK(BM_ResamplePicture)->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

/// Both images of a card, from a foreground and a background of the same size.
void BM_DrawCardImages(benchmark::State& state) {
  const Raster picture = Photograph(state.range(0));
  const Raster border(kMiniSize, kMiniSize);
  Raster mini(kMiniSize, kMiniSize);
  CropCoordinates crop;
  CompleteCrop(crop, picture);
  Raster main(kMainWidth, kMainHeight);
  for (auto _ : state) DrawCardImages(picture, crop, 0x8040C0, border, main, mini);
}
BENCHMARK(BM_DrawCardImages)->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

void BM_MainSurface(benchmark::State& state) {
  const Raster picture = Photograph(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(MainSurface(picture).Row(0));
}
BENCHMARK(BM_MainSurface)->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

/// A small picture enlarged to the whole surface.
void BM_StretchCopyEnlarging(benchmark::State& state) {
  const Raster picture(static_cast<int>(state.range(0)), static_cast<int>(state.range(0)));
  Raster main(kMainWidth, kMainHeight);
  for (auto _ : state) {
    StretchCopy(picture, 0, 0, picture.Width(), picture.Height(), main, 0, 0, kMainWidth,
                kMainHeight);
    benchmark::DoNotOptimize(main.Row(0));
  }
}
BENCHMARK(BM_StretchCopyEnlarging)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
