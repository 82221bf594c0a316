// Reading and scaling pictures.
#include "platform/qt/picture_cache.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

namespace brindlemoor {

namespace {

constexpr qint64 kMostPixels = 64'000'000;

QPixmap ReadScaled(const QString& file, QSize box) {
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && qint64{size.width()} * size.height() > kMostPixels) return {};
  QImage image = reader.read();
  if (image.isNull()) return {};
  // Few-coloured images would be scaled within their own colours.
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  return QPixmap::fromImage(image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

QPixmap PictureCache::Scaled(const QString& file, QSize box) {
  if (file.isEmpty() || box.isEmpty()) return {};
  const QFileInfo info(file);
  if (!info.isFile()) return {};
  const QString key = QString("%1x%2 %3 %4 %5")
                          .arg(box.width())
                          .arg(box.height())
                          .arg(info.lastModified().toMSecsSinceEpoch())
                          .arg(info.size())
                          .arg(file);
  if (const QPixmap* known = pictures_.object(key)) return *known;
  const QPixmap picture = ReadScaled(file, box);
  const int cost = 1 + picture.width() * picture.height() * 4 / kUnit;
  pictures_.insert(key, new QPixmap(picture), cost);
  return picture;
}

}  // namespace brindlemoor
