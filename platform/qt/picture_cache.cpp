// Reading and scaling pictures.
#include "platform/qt/picture_cache.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <filesystem>

namespace brindlemoor {

namespace {

constexpr qint64 kMostPixels = 64'000'000;
constexpr int kMuchLarger = 4;  // times the box, from which a file is read scaled

/// Lets the reader leave out what a small box would not show. Of the formats only this one saves
/// time by it.
void ReadLessOfLargePictures(QImageReader& reader, QSize size, QSize box) {
  if (reader.format() != "jpeg") return;
  // The size is the one before the picture is turned.
  if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90)) box.transpose();
  if (size.width() <= kMuchLarger * box.width() || size.height() <= kMuchLarger * box.height()) {
    return;
  }
  reader.setScaledSize(size.scaled(2 * box, Qt::KeepAspectRatio).expandedTo({1, 1}));
}

QPixmap ReadScaled(const QString& file, QSize box) {
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && qint64{size.width()} * size.height() > kMostPixels) return {};
  ReadLessOfLargePictures(reader, size, box);
  QImage image = reader.read();
  if (image.isNull()) return {};
  // Few-coloured images would be scaled within their own colours.
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  return QPixmap::fromImage(image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

QPixmap PictureCache::Scaled(const QString& file, QSize box) {
  if (file.isEmpty() || box.isEmpty()) return {};
  // Times of the toolkit are local ones: they would look up the time zone at every painting.
  std::error_code error;
  const auto changed =
      std::filesystem::last_write_time(QFileInfo(file).filesystemFilePath(), error);
  if (error) return {};
  const Key key{file, box, qint64{changed.time_since_epoch().count()}};
  if (const QPixmap* known = pictures_.object(key)) return *known;
  const QPixmap picture = ReadScaled(file, box);
  const qsizetype cost = 1 + qsizetype{picture.width()} * picture.height() * 4 / kUnit;
  pictures_.insert(key, new QPixmap(picture), cost);
  return picture;
}

}  // namespace brindlemoor
