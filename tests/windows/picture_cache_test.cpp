// Pictures of files: proportion, freshness, the bound, and files that are no images.
#include "platform/qt/picture_cache.h"

#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QPainter>
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
  QString Write(const QString& name, const QByteArray& bytes, const QDateTime& changed = {}) {
    QFile file(folder_.path() + "/" + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.flush();
    EXPECT_TRUE(!changed.isValid() || file.setFileTime(changed, QFile::FileModificationTime));
    return file.fileName();
  }
  static QByteArray Read(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  QTemporaryDir folder_;
  LocalFileSystem files_;
  PictureCache cache_{files_};
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
  const QByteArray blue = Read(Save("blue.png", 10, 10, Qt::blue));
  Write("card.png", blue, QDateTime::currentDateTime().addSecs(5));
  EXPECT_EQ(cache_.Scaled(file, {5, 5}).toImage().pixelColor(2, 2), QColor(Qt::blue));
  QFile::remove(file);
  EXPECT_TRUE(cache_.Scaled(file, {5, 5}).isNull());
}

TEST_F(PictureCacheTest, AFileThatDidNotChangeIsNotReadAgain) {
  const QByteArray red = Read(Save("red.bmp", 10, 10, Qt::red));
  const QByteArray blue = Read(Save("blue.bmp", 10, 10, Qt::blue));
  const QDateTime then = QDateTime::currentDateTime().addSecs(-60);
  const QString card = Write("card.bmp", red, then);
  const QString broken = Write("broken.bmp", QByteArray(red.size(), 'x'), then);
  const QPixmap first = cache_.Scaled(card, {5, 5});
  EXPECT_TRUE(cache_.Scaled(broken, {5, 5}).isNull());
  Write("card.bmp", blue, then);
  Write("broken.bmp", blue, then);
  EXPECT_EQ(cache_.Scaled(card, {5, 5}).cacheKey(), first.cacheKey());
  EXPECT_TRUE(cache_.Scaled(broken, {5, 5}).isNull());
  EXPECT_FALSE(cache_.Scaled(Write("broken.bmp", blue, then.addSecs(1)), {5, 5}).isNull());
}

TEST_F(PictureCacheTest, MuchLargerPicturesLookTheSame) {
  QImage image(1200, 300, QImage::Format_RGB32);
  image.fill(Qt::red);
  QPainter(&image).fillRect(600, 0, 600, 300, Qt::blue);
  const QString file = folder_.path() + "/large.jpg";
  ASSERT_TRUE(image.save(file, "jpeg", 95));
  // The same one, turned to the right by what cameras write into their files.
  QByteArray turned = Read(file);
  turned.insert(2, QByteArray::fromHex("ffe1002245786966000"
                                       "04d4d002a0000000800010112000300000001000600000000"
                                       "0000"));
  const struct {
    QString File;
    QSize Box, Shown;
    QPoint Red, Blue;
  } cases[] = {
      {file, {41, 41}, {41, 10}, {2, 5}, {38, 5}},
      {Write("turned.jpg", turned), {41, 41}, {10, 41}, {5, 2}, {5, 38}},
      {file, {250, 200}, {250, 62}, {9, 9}, {240, 50}},  // not that much larger
  };
  for (const auto& row : cases) {
    const QImage shown = cache_.Scaled(row.File, row.Box).toImage();
    ASSERT_EQ(shown.size(), row.Shown);
    EXPECT_GT(shown.pixelColor(row.Red).red(), 240);
    EXPECT_GT(shown.pixelColor(row.Blue).blue(), 240);
  }
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
