// Pictures of files: proportion, freshness, the bound, and files that are no images.
#include "platform/qt/picture_cache.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

class PictureCacheTest : public testing::Test {
 protected:
  QString Save(const QString& name, int width, int height, QColor color,
               QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.convertToFormat(format).save(folder_.path() + "/" + name));
    return folder_.path() + "/" + name;
  }
  QString Write(const QString& name, const QByteArray& bytes) {
    QFile file(folder_.path() + "/" + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName();
  }

  QTemporaryDir folder_;
  PictureCache cache_;
};

TEST_F(PictureCacheTest, PicturesKeepTheirProportionAndColour) {
  const struct {
    int Width, Height;
    QImage::Format Format;
    QSize Shown;
  } cases[] = {
      {200, 300, QImage::Format_RGB32, {60, 90}},    {300, 100, QImage::Format_RGB32, {90, 30}},
      {20, 30, QImage::Format_RGB32, {60, 90}},      {200, 300, QImage::Format_Mono, {60, 90}},
      {200, 300, QImage::Format_Indexed8, {60, 90}},
  };
  for (const auto& [width, height, format, shown] : cases) {
    const QString file =
        Save(QString("%1%2.png").arg(width).arg(format), width, height, Qt::white, format);
    const QImage picture = cache_.Scaled(file, {90, 90}).toImage();
    EXPECT_EQ(picture.size(), shown) << width << " " << format;
    EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(Qt::white)) << format;
  }
}

TEST_F(PictureCacheTest, AChangedFileIsReadAgain) {
  const QString file = Save("card.png", 10, 10, Qt::red);
  EXPECT_EQ(cache_.Scaled(file, {5, 5}).toImage().pixelColor(2, 2), QColor(Qt::red));
  Save("card.png", 20, 10, Qt::blue);
  EXPECT_EQ(cache_.Scaled(file, {5, 5}).toImage().pixelColor(2, 1), QColor(Qt::blue));
  QFile::remove(file);
  EXPECT_TRUE(cache_.Scaled(file, {5, 5}).isNull());
}

TEST_F(PictureCacheTest, WhatIsNoImageShowsNothing) {
  // The header of a bitmap of 60000 by 60000 pixels, without a single pixel behind it.
  const QByteArray huge = QByteArray::fromHex(
      "424d3600000000000000360000002800000060ea000060ea0000010018000000000000000000130b0000130b0000"
      "0000000000000000");
  for (const QString& file :
       {Write("broken.png", "\x89PNG\r\n\x1a\n and then nothing that makes sense"),
        Write("huge.bmp", huge), folder_.path(), QString(), folder_.path() + "/missing.png"}) {
    EXPECT_TRUE(cache_.Scaled(file, {50, 50}).isNull()) << file.toStdString();
  }
  EXPECT_TRUE(cache_.Scaled(Save("card.png", 10, 10, Qt::red), {0, 50}).isNull());
}

}  // namespace
}  // namespace brindlemoor
