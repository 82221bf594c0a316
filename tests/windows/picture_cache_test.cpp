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
    const QString path = folder_.path() + "/" + name;
    EXPECT_TRUE(image.convertToFormat(format).save(path));
    return path;
  }

  QTemporaryDir folder_;
};

TEST_F(PictureCacheTest, PicturesKeepTheirProportionAndColour) {
  PictureCache cache;
  const struct {
    int Width, Height;
    QImage::Format Format;
    QSize Shown;
  } kCases[] = {
      {200, 300, QImage::Format_RGB32, {60, 90}},    {300, 100, QImage::Format_RGB32, {90, 30}},
      {20, 30, QImage::Format_RGB32, {60, 90}},      {200, 300, QImage::Format_Mono, {60, 90}},
      {200, 300, QImage::Format_Indexed8, {60, 90}},
  };
  int number = 0;
  for (const auto& [width, height, format, shown] : kCases) {
    const QString file = Save(QString("%1.png").arg(++number), width, height, Qt::white, format);
    const QImage picture = cache.Scaled(file, {90, 90}).toImage();
    EXPECT_EQ(picture.size(), shown) << number;
    EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(Qt::white)) << number;
  }
}

TEST_F(PictureCacheTest, AChangedFileIsReadAgain) {
  PictureCache cache;
  const QString file = Save("card.png", 10, 10, Qt::red);
  EXPECT_EQ(cache.Scaled(file, {5, 5}).toImage().pixelColor(2, 2), QColor(Qt::red));
  Save("card.png", 20, 10, Qt::blue);
  EXPECT_EQ(cache.Scaled(file, {5, 5}).toImage().pixelColor(2, 1), QColor(Qt::blue));
  QFile::remove(file);
  EXPECT_TRUE(cache.Scaled(file, {5, 5}).isNull());
}

TEST_F(PictureCacheTest, WhatIsNoImageShowsNothing) {
  PictureCache cache;
  QFile broken(folder_.path() + "/broken.png");
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("\x89PNG\r\n\x1a\n and then nothing that makes sense");
  broken.close();
  // The header of a bitmap of 60000 by 60000 pixels, without a single pixel behind it.
  QFile huge(folder_.path() + "/huge.bmp");
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
  huge.write(
      QByteArray::fromHex("424d36000000000000003600000028000000"
                          "60ea000060ea0000010018000000000000000000130b0000130b0000"
                          "0000000000000000"));
  huge.close();
  for (const QString& file : {broken.fileName(), huge.fileName(), folder_.path(), QString(),
                              folder_.path() + "/missing.png"}) {
    EXPECT_TRUE(cache.Scaled(file, {50, 50}).isNull()) << file.toStdString();
  }
  EXPECT_TRUE(cache.Scaled(Save("card.png", 10, 10, Qt::red), {0, 50}).isNull());
}

TEST_F(PictureCacheTest, ManyPicturesStayWithinTheBound) {
  constexpr int kBound = 256 * 1024;
  PictureCache cache(kBound);
  for (int number = 0; number < 40; ++number) {
    const QString file = Save(QString("%1.png").arg(number), 64, 64, QColor(number, 0, 0));
    const QPixmap picture = cache.Scaled(file, {100, 100});
    EXPECT_EQ(picture.toImage().pixelColor(50, 50).red(), number);
    EXPECT_LE(cache.BytesHeld(), kBound);
  }
  EXPECT_GT(cache.BytesHeld(), kBound / 2);
}

}  // namespace
}  // namespace brindlemoor
