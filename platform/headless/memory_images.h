// MemoryImageLibrary: plain image files of a file system, for desktops without a toolkit.
#pragma once

#include <map>

#include "platform/files.h"
#include "platform/image_library.h"

namespace brindlemoor {

/// Knows one format under every name: the binary portable pixmap with 255 shades ("P6 WIDTH HEIGHT
/// 255", one byte of white space, the pixels). What it encodes with a quality carries that in a
/// comment.
class MemoryImageLibrary : public ImageLibrary {
 public:
  explicit MemoryImageLibrary(const FileSystem& files) : files_(files) {}

  /// Paths that can't be loaded, and the status that they give.
  std::map<std::string, int> LoadErrors;
  std::vector<ImageEncoder> Known = {
      {{1}, "*.BMP;*.DIB;*.RLE"}, {{2}, "*.JPG;*.JPEG;*.JPE;*.JFIF"}, {{3}, "*.PNG"}};

  std::vector<ImageEncoder> Encoders() const override { return Known; }
  int Load(const std::string& path, Raster& picture) const override;
  int LoadSize(const std::string& path, PictureSize& size) const override;
  int Encode(const Raster& picture, const ImageEncoderId& encoder, std::optional<int> quality,
             std::string& bytes) const override;

  /// The bytes of a file without a comment.
  static std::string PixmapBytes(const Raster& picture);

 private:
  const FileSystem& files_;
};

}  // namespace brindlemoor
