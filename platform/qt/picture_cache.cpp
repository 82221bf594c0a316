// Reading and scaling pictures.
#include "platform/qt/picture_cache.h"

#include <QFileInfo>
#include <QImage>
#include <filesystem>

#include "platform/qt/qt_image_library.h"

namespace brindlemoor {

namespace {

constexpr int kSpareSize = 2;  // times the box: what a reader may leave out is not seen then

QPixmap ReadScaled(const FileSystem& files, const QString& file, QSize box) {
  QImage image;
  if (ReadImage(files, file.toStdString(), kSpareSize * box, image) != kImageOk) return {};
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
  const QPixmap picture = ReadScaled(files_, file, box);
  const qsizetype cost = 1 + qsizetype{picture.width()} * picture.height() * 4 / kUnit;
  pictures_.insert(key, new QPixmap(picture), cost);
  return picture;
}

}  // namespace brindlemoor
