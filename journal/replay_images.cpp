// Answers about image files out of a journal.
#include "journal/replay_images.h"

#include <cstdint>

#include "journal/session_words.h"

namespace brindlemoor {

std::vector<ImageEncoder> ReplayImages::Encoders() const {
  if (tape_.Stopped()) return {};
  const JournalRecord& record = tape_.Expect("encoders", {}, "asks for kinds of image files");
  auto encoders = ReadEncoders(record.Fields);
  if (!encoders) tape_.Damaged(record);
  return *encoders;
}

int ReplayImages::TakeSize(std::string_view word, const std::string& path,
                           PictureSize& size) const {
  if (tape_.Stopped()) return kImageGenericError;
  const JournalRecord& record = tape_.Expect(word, {path}, "reads the image file");
  const auto status = ReadInt(record.Fields[1]);
  const auto width = ReadInt(record.Fields[2]);
  const auto height = ReadInt(record.Fields[3]);
  if (!status || !width || !height) tape_.Damaged(record);
  if (*status != kImageOk) return *status;
  const bool isPicture =
      *width > 0 && *height > 0 && std::int64_t{*width} * *height <= kMostPicturePixels;
  if (!isPicture) tape_.Damaged(record);
  size = {*width, *height};
  return kImageOk;
}

int ReplayImages::Load(const std::string& path, Raster& picture) const {
  PictureSize size;
  const int status = TakeSize("load", path, size);
  if (status == kImageOk) picture = Raster(size.Width, size.Height);
  return status;
}

int ReplayImages::LoadSize(const std::string& path, PictureSize& size) const {
  return TakeSize("size", path, size);
}

int ReplayImages::Encode(const Raster&, const ImageEncoderId&, std::optional<int>,
                         std::string& bytes) const {
  if (tape_.Stopped()) return kImageGenericError;
  const JournalRecord& record = tape_.Expect("encode", {}, "makes an image file");
  const auto status = ReadInt(record.Fields[0]);
  if (!status) tape_.Damaged(record);
  if (*status == kImageOk) bytes = "a picture";
  return *status;
}

}  // namespace brindlemoor
