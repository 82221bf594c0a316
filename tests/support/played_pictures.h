// Picture files for tests, and the user of the windows that choose and write pictures.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "images/picture_picker.h"
#include "platform/headless/memory_images.h"
#include "ui/progress_form.h"

namespace brindlemoor {

/// The bytes of a picture of one colour.
inline std::string PictureBytes(int width, int height, std::int32_t color) {
  Raster picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.SetPixel(x, y, color);
  }
  return MemoryImageLibrary::PixmapBytes(picture);
}

/// Clicks a picture in the picker, then corners in the large one.
inline std::function<void(Form&)> Pick(std::string path,
                                       std::vector<std::pair<int, int>> corners = {}) {
  return [path = std::move(path), corners = std::move(corners)](Form& form) {
    auto& picker = dynamic_cast<PicPick&>(form);
    picker.ShowFolder(path.substr(0, path.rfind('/')));
    for (int cell = 0; cell < PicPick::kCells && cell <= picker.FileCount; ++cell) {
      if (picker.FileList[static_cast<std::size_t>(cell)] != path) continue;
      picker.Image1[cell].MouseUp(MouseButton::kLeft);
      break;
    }
    for (const auto& [x, y] : corners) picker.Image2.PointUp(x, y);
  };
}

/// Lets a progress window take so many steps, all by default, and then gives up.
inline std::function<void(Form&)> LetWork(int steps = 100) {
  return [steps](Form& form) {
    auto& progress = dynamic_cast<ProgressForm&>(form);
    for (int step = 0; step < steps; ++step) progress.StepTimer_Tick();
    if (progress.Shown) progress.CancelButton_Click();
  };
}

}  // namespace brindlemoor
