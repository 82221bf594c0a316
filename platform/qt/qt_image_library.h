// QtImageLibrary: image files by the toolkit's readers and writers.
#pragma once

#include <QSize>

#include "platform/files.h"
#include "platform/image_library.h"

class QImage;

namespace brindlemoor {

/// Reads a picture as ImageLibrary::Load does, but keeps what lets something through
/// (premultiplied). One that is larger than enough may come smaller, not smaller than fits into
/// that; an empty size asks for all of it.
int ReadImage(const FileSystem& files, const std::string& path, QSize enough, QImage& picture);

/// Needs no display. Sets what the toolkit allows every picture of the program to take.
class QtImageLibrary : public ImageLibrary {
 public:
  /// The files outlive this.
  explicit QtImageLibrary(const FileSystem& files);

  std::vector<ImageEncoder> Encoders() const override;
  int Load(const std::string& path, Raster& picture) const override;
  int LoadSize(const std::string& path, PictureSize& size) const override;
  int Encode(const Raster& picture, const ImageEncoderId& encoder, std::optional<int> quality,
             std::string& bytes) const override;

 private:
  const FileSystem& files_;
};

}  // namespace brindlemoor
