// Reading and writing image files.
#include "platform/qt/qt_image_library.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <algorithm>
#include <cstring>
#include <filesystem>

#include "platform/machine_file.h"
#include "platform/qt/image_file.h"

namespace brindlemoor {

namespace {

struct WrittenFormat {
  ImageEncoder Encoder;
  const char* Name;  ///< the writer's
};
// The numbers are this library's own.
const WrittenFormat kFormats[] = {
    {{{1}, "*.BMP;*.DIB;*.RLE"}, "bmp"},
    {{{2}, "*.JPG;*.JPEG;*.JPE;*.JFIF"}, "jpeg"},
    {{{3}, "*.PNG"}, "png"},
    {{{4}, "*.WEBP"}, "webp"},
};

constexpr int kMostMegabytes = 256;
static_assert((qint64{kMostMegabytes} << 20) > kMostPicturePixels * 4);

/// The bytes of a file. A place behind them, as damaged pictures name, is refused without a word.
class FileBytes : public QBuffer {
 public:
  bool seek(qint64 position) override { return position <= size() && QBuffer::seek(position); }
};

/// An image file that is being read.
class OpenImage {
 public:
  OpenImage(const FileSystem& files, const std::string& path) : files_(files), path_(path) {}

  /// Reads the file, and of the picture its head.
  int Begin() {
    if (path_.find('\0') != std::string::npos) return kImageInvalidParameter;
    auto bytes = files_.Read(path_);
    if (!bytes) return WhyUnread();
    bytes_ = std::move(*bytes);
    file_.setData(QByteArray::fromRawData(bytes_.data(), static_cast<qsizetype>(bytes_.size())));
    file_.open(QIODevice::ReadOnly);
    kind_ = ImageReaderName(file_);
    if (kind_ == nullptr) return kImageUnknownFormat;
    if (!IsWholeImage(file_, kind_)) return kImageGenericError;
    reader_.setAutoDetectImageFormat(false);
    reader_.setAutoTransform(true);
    reader_.setFormat(kind_);
    reader_.setDevice(&file_);
    if (!reader_.canRead()) return Status();
    size_ = reader_.size();
    const bool tooLarge = qint64{size_.width()} * size_.height() > kMostPicturePixels;
    return tooLarge ? int{kImageOutOfMemory} : int{kImageOk};
  }

  /// The size of the picture when it stands upright; invalid where only reading it would tell.
  QSize UprightSize() const { return IsTurned() ? size_.transposed() : size_; }

  int Read(QImage& picture, QSize enough) {
    ReadLess(enough);
    picture = reader_.read();
    return picture.isNull() ? Status() : int{kImageOk};
  }

 private:
  int WhyUnread() const {
    if (files_.WhyUnread(path_).empty()) return kImageFileNotFound;
    std::error_code failure;
    const auto size = std::filesystem::file_size(path_, failure);
    return !failure && size > kLargestFile ? kImageOutOfMemory : kImageAccessDenied;
  }

  bool IsTurned() const {
    return reader_.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  }

  /// Lets the reader leave out what is not needed. Of the formats only this one saves by it.
  void ReadLess(QSize enough) {
    if (enough.isEmpty() || std::strcmp(kind_, "jpeg") != 0) return;
    if (IsTurned()) enough.transpose();
    const QSize less = size_.scaled(enough, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (less.width() < size_.width()) reader_.setScaledSize(less);
  }

  int Status() const {
    switch (reader_.error()) {
      case QImageReader::FileNotFoundError:
        return kImageFileNotFound;
      case QImageReader::DeviceError:
        return kImageSystemError;
      case QImageReader::UnsupportedFormatError:
        return kImageUnknownFormat;
      default:
        return kImageGenericError;
    }
  }

  const FileSystem& files_;
  const std::string& path_;
  std::string bytes_;
  FileBytes file_;
  QImageReader reader_;
  QSize size_;
  const char* kind_ = nullptr;
};

}  // namespace

QtImageLibrary::QtImageLibrary(const FileSystem& files) : files_(files) {
  // Its own bound would be met far below that of the pixels.
  QImageReader::setAllocationLimit(kMostMegabytes);
}

std::vector<ImageEncoder> QtImageLibrary::Encoders() const {
  const QList<QByteArray> known = QImageWriter::supportedImageFormats();
  std::vector<ImageEncoder> encoders;
  for (const WrittenFormat& format : kFormats) {
    if (known.contains(format.Name)) encoders.push_back(format.Encoder);
  }
  return encoders;
}

int ReadImage(const FileSystem& files, const std::string& path, QSize enough, QImage& picture) {
  OpenImage file(files, path);
  QImage read;
  int status = file.Begin();
  if (status == kImageOk) status = file.Read(read, enough);
  if (status != kImageOk) return status;
  // Premultiplied colours are those over black. The conversion happens in place where it can.
  picture = std::move(read).convertToFormat(
      read.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return picture.isNull() ? int{kImageOutOfMemory} : int{kImageOk};
}

int QtImageLibrary::Load(const std::string& path, Raster& picture) const {
  QImage image;
  if (const int status = ReadImage(files_, path, {}, image); status != kImageOk) return status;
  const int width = image.width();
  Raster read(width, image.height());
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    std::transform(line, line + width, read.Row(y),
                   [](QRgb pixel) { return static_cast<std::int32_t>(pixel & 0xFFFFFF); });
  }
  picture = std::move(read);
  return kImageOk;
}

int QtImageLibrary::LoadSize(const std::string& path, PictureSize& size) const {
  OpenImage file(files_, path);
  if (const int status = file.Begin(); status != kImageOk) return status;
  QSize found = file.UprightSize();
  if (!found.isValid()) {
    QImage picture;
    if (const int status = file.Read(picture, {}); status != kImageOk) return status;
    found = picture.size();
  }
  size = {found.width(), found.height()};
  return kImageOk;
}

int QtImageLibrary::Encode(const Raster& picture, const ImageEncoderId& encoder,
                           std::optional<int> quality, std::string& bytes) const {
  if (picture.Empty()) return kImageInvalidParameter;
  const char* name = nullptr;
  for (const WrittenFormat& format : kFormats) {
    if (format.Encoder.Id == encoder) name = format.Name;
  }
  if (name == nullptr) return kImageUnknownFormat;
  // The rows of the drawing are the rows of an image whose highest bytes don't count.
  const QImage image(reinterpret_cast<const uchar*>(picture.Row(0)), picture.Width(),
                     picture.Height(), QImage::Format_RGB32);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, name);
  if (quality) writer.setQuality(*quality);
  if (!writer.write(image)) return kImageGenericError;
  bytes.assign(buffer.data().constData(), static_cast<std::size_t>(buffer.data().size()));
  return kImageOk;
}

}  // namespace brindlemoor
