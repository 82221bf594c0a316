// Reading and writing portable pixmaps.
#include "platform/headless/memory_images.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kMagic = "P6";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr int kShades = 255;
constexpr int kBytesOfPixel = 3;

/// Takes the next number of a head; -1 when there is none. Comments and white space are passed.
int TakeNumber(std::string_view& bytes) {
  while (!bytes.empty() && (bytes[0] == '#' || kBlanks.find(bytes[0]) != kBlanks.npos)) {
    if (bytes[0] == '#') bytes.remove_prefix(std::min(bytes.find('\n'), bytes.size() - 1));
    bytes.remove_prefix(1);
  }
  int number = -1;
  const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
  if (error != std::errc() || number < 0) return -1;
  bytes.remove_prefix(static_cast<std::size_t>(end - bytes.data()));
  return number;
}

/// Takes the head of a pixmap and the byte behind it.
int TakeHead(std::string_view& bytes, PictureSize& size) {
  if (!bytes.starts_with(kMagic)) return kImageUnknownFormat;
  bytes.remove_prefix(kMagic.size());
  const int width = TakeNumber(bytes);
  const int height = TakeNumber(bytes);
  if (width < 1 || height < 1 || TakeNumber(bytes) != kShades) return kImageInvalidParameter;
  if (std::int64_t{width} * height > kMostPicturePixels) return kImageOutOfMemory;
  if (bytes.empty()) return kImageGenericError;
  bytes.remove_prefix(1);
  size = {width, height};
  return kImageOk;
}

std::string Encoded(const Raster& picture, std::string_view comment) {
  std::string bytes =
      Joined(kMagic, "\n", comment, picture.Width(), " ", picture.Height(), "\n", kShades, "\n");
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const std::int32_t color = picture.Pixel(x, y);
      for (const int shift : {16, 8, 0}) bytes += static_cast<char>((color >> shift) & 0xFF);
    }
  }
  return bytes;
}

}  // namespace

int MemoryImageLibrary::Load(const std::string& path, Raster& picture) const {
  const auto error = LoadErrors.find(path);
  if (error != LoadErrors.end()) return error->second;
  const auto file = files_.Read(path);
  if (!file) return kImageFileNotFound;
  std::string_view bytes = *file;
  PictureSize size;
  if (const int status = TakeHead(bytes, size); status != kImageOk) return status;
  const std::int64_t pixels = std::int64_t{size.Width} * size.Height;
  if (static_cast<std::int64_t>(bytes.size()) < pixels * kBytesOfPixel) return kImageGenericError;
  Raster read(size.Width, size.Height);
  std::size_t at = 0;
  const auto next = [&] {
    return static_cast<std::int32_t>(static_cast<unsigned char>(bytes[at++]));
  };
  for (int y = 0; y < size.Height; ++y) {
    for (int x = 0; x < size.Width; ++x) {
      const std::int32_t red = next();
      const std::int32_t green = next();
      read.SetPixel(x, y, red << 16 | green << 8 | next());
    }
  }
  picture = std::move(read);
  return kImageOk;
}

int MemoryImageLibrary::LoadSize(const std::string& path, PictureSize& size) const {
  const auto error = LoadErrors.find(path);
  if (error != LoadErrors.end()) return error->second;
  const auto file = files_.Read(path);
  if (!file) return kImageFileNotFound;
  std::string_view bytes = *file;
  return TakeHead(bytes, size);
}

int MemoryImageLibrary::Encode(const Raster& picture, const ImageEncoderId& encoder,
                               std::optional<int> quality, std::string& bytes) const {
  if (picture.Empty() || encoder[0] == 0) return kImageInvalidParameter;
  bytes = Encoded(picture, quality ? Joined("# quality ", *quality, "\n") : std::string());
  return kImageOk;
}

std::string MemoryImageLibrary::PixmapBytes(const Raster& picture) { return Encoded(picture, ""); }

}  // namespace brindlemoor
