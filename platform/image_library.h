// What the program needs of a library for image files: pictures out of files, files out of
// pictures.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/raster.h"

namespace brindlemoor {

/// What operations of the library return.
enum ImageStatus : int {
  kImageOk = 0,
  kImageGenericError = 1,
  kImageInvalidParameter = 2,
  kImageOutOfMemory = 3,
  kImageSystemError = 7,
  kImageFileNotFound = 10,
  kImageAccessDenied = 12,
  kImageUnknownFormat = 13,
  kImageNotInitialized = 18,
};

/// A picture of more pixels is not read: kImageOutOfMemory.
inline constexpr std::int64_t kMostPicturePixels = 64'000'000;

using ImageEncoderId = std::array<std::uint8_t, 16>;

/// One kind of file that the library can write.
struct ImageEncoder {
  ImageEncoderId Id{};
  std::string FilenameExtension{};  ///< patterns such as "*.JPG;*.JPEG"
};

struct PictureSize {
  int Width = 0;
  int Height = 0;
  bool operator==(const PictureSize&) const = default;
};

/// Reads and writes image files. Statuses are those of ImageStatus. Nothing throws.
class ImageLibrary {
 public:
  virtual ~ImageLibrary() = default;

  virtual std::vector<ImageEncoder> Encoders() const = 0;
  /// Reads the picture of a file (absolute path): the first of an animated one, upright, and laid
  /// over black where it lets something through. On failure picture is as it was.
  virtual int Load(const std::string& path, Raster& picture) const = 0;
  /// The size that Load would give, without reading the pixels where the format allows it.
  virtual int LoadSize(const std::string& path, PictureSize& size) const = 0;
  /// The bytes of a file that holds a picture. quality is from 0 to 100 and counts for encoders
  /// that know one; without it the encoder's own is taken. On failure bytes is as it was.
  virtual int Encode(const Raster& picture, const ImageEncoderId& encoder,
                     std::optional<int> quality, std::string& bytes) const = 0;
};

}  // namespace brindlemoor
