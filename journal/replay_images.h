// Image files in a replay: what the library of the recorded desktop answered.
#pragma once

#include "journal/journal_tape.h"
#include "platform/image_library.h"

namespace brindlemoor {

/// Gives pictures of the recorded sizes, all black: a terminal reads no image formats, and no page
/// depends on what a picture shows.
class ReplayImages : public ImageLibrary {
 public:
  explicit ReplayImages(JournalTape& tape) : tape_(tape) {}

  std::vector<ImageEncoder> Encoders() const override;
  int Load(const std::string& path, Raster& picture) const override;
  int LoadSize(const std::string& path, PictureSize& size) const override;
  int Encode(const Raster& picture, const ImageEncoderId& encoder, std::optional<int> quality,
             std::string& bytes) const override;

 private:
  int TakeSize(std::string_view word, const std::string& path, PictureSize& size) const;
  JournalTape& tape_;
};

}  // namespace brindlemoor
