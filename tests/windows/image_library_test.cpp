// Image files as strangers make them: odd, broken and oversized ones, and what is written.
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/qt/qt_image_library.h"

namespace brindlemoor {
namespace {

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;

/// Red above, blue below.
QImage TwoColors(int width, int height, QImage::Format format = QImage::Format_RGB32) {
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) image.setPixel(x, y, 2 * y < height ? kRed : kBlue);
  }
  return image.convertToFormat(format);
}

QByteArray Written(const QImage& image, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(100);
  EXPECT_TRUE(writer.write(image)) << format;
  return buffer.data();
}

QByteArray Hex(const char* digits) { return QByteArray::fromHex(digits); }

/// Bytes with others in the place of those from at on.
QByteArray With(QByteArray bytes, qsizetype at, const QByteArray& others) {
  return bytes.replace(at, others.size(), others);
}

quint32 Checksum(const QByteArray& bytes) {
  quint32 sum = ~0U;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = (sum & 1U) != 0 ? sum >> 1U ^ 0xEDB88320U : sum >> 1U;
  }
  return ~sum;
}

/// A PNG file whose head tells another size.
QByteArray PngOfSize(QByteArray bytes, const char* size) {
  bytes = With(bytes, 16, Hex(size));
  QByteArray sum(4, '\0');
  qToBigEndian(Checksum(bytes.mid(12, 17)), sum.data());
  return With(bytes, 29, sum);
}

QByteArray JpegOfSize(const QByteArray& bytes, const char* heightAndWidth) {
  return With(bytes, bytes.indexOf(Hex("ffc0")) + 5, Hex(heightAndWidth));
}

/// A JPEG file whose camera lay on its side.
QByteArray Turned(QByteArray bytes) {
  return bytes.insert(
      2, Hex("ffe10022 457869660000 4d4d002a00000008 0001 0112 0003 00000001 00060000 00000000"));
}

/// Eight by eight pixels of one ink: each part is its first coefficient, 127 or -128.
QByteArray CmykJpeg() {
  const QByteArray quantisers(64, '\10');
  return Hex("ffd8 ffee000e 41646f6265 0064 0000 0000 00") + Hex("ffdb004300") + quantisers +
         Hex("ffc00014 08 0008 0008 04 01110002110003110004 1100") +
         // Codes of the first coefficients: "0" for seven bits, "10" for eight; "0" ends a block.
         Hex("ffc40015 00 01010000000000000000000000000000 0708") +
         Hex("ffc40014 10 01000000000000000000000000000000 00") +
         Hex("ffda000e 04 0100 0200 0300 0400 003f00") +
         // -128: 10 01111111 0; 127, three times: 0 1111111 0.
         Hex("9fcfe7f3fb") + Hex("ffd9");
}

/// One pixel, red in the first picture and blue in the second.
QByteArray AnimatedGif() {
  return "GIF89a" + Hex("0100 0100 80 00 00 ff0000 0000ff") +
         Hex("21f904 00 0a00 00 00 2c 0000 0000 0100 0100 00 02 02 4401 00") +
         Hex("21f904 00 0a00 00 00 2c 0000 0000 0100 0100 00 02 02 4c01 00 3b");
}

class ImageLibraryTest : public testing::Test {
 protected:
  std::string Put(const QString& name, const QByteArray& bytes) {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName().toStdString();
  }
  std::string Put(const QString& name, const std::string& bytes) {
    return Put(name, QByteArray::fromStdString(bytes));
  }
  /// The status of reading a file, which must leave the picture alone.
  int Refusal(const std::string& path) {
    Raster picture(7, 3);
    const int status = library_.Load(path, picture);
    EXPECT_EQ(picture, Raster(7, 3));
    return status;
  }
  ImageEncoderId EncoderOf(const std::string& pattern) {
    for (const ImageEncoder& encoder : library_.Encoders()) {
      if (encoder.FilenameExtension.find(pattern) != std::string::npos) return encoder.Id;
    }
    ADD_FAILURE() << "no encoder for " << pattern;
    return {};
  }

  QTemporaryDir folder_;
  LocalFileSystem files_;
  QtImageLibrary library_{files_};
};

/// True when no part of the colours is far from that of the other.
bool Near(std::int32_t color, std::int32_t other) {
  for (const int shift : {0, 8, 16}) {
    if (std::abs((color >> shift & 0xFF) - (other >> shift & 0xFF)) > 4) return false;
  }
  return true;
}

TEST_F(ImageLibraryTest, OddPicturesComeOutRight) {
  QImage half(3, 4, QImage::Format_ARGB32);
  half.fill(qRgba(255, 0, 0, 128));
  half.setPixel(2, 3, qRgba(0, 0, 255, 255));
  QImage grey(5, 4, QImage::Format_Grayscale8);
  grey.fill(0x36);
  const QImage plain = TwoColors(40, 60);
  const struct {
    const char* Name;
    QByteArray Bytes;
    int Width, Height;
    std::int32_t First, Last;  ///< colour of the upper left and of the lower right pixel
  } rows[] = {
      {"plain.png", Written(plain, "png"), 40, 60, 0xFF0000, 0xFF},
      {"plain.jpg", Written(plain, "jpeg"), 40, 60, 0xFF0000, 0xFF},
      {"plain.webp", Written(plain, "webp"), 40, 60, 0xFF0000, 0xFF},
      {"plain.ppm", Written(plain, "ppm"), 40, 60, 0xFF0000, 0xFF},
      {"upper case.PNG", Written(plain, "png"), 40, 60, 0xFF0000, 0xFF},
      {"really a png.jpg", Written(plain, "png"), 40, 60, 0xFF0000, 0xFF},
      {"really a jpeg.bmp", Written(plain, "jpeg"), 40, 60, 0xFF0000, 0xFF},
      {"no extension", Written(plain, "bmp"), 40, 60, 0xFF0000, 0xFF},
      {"palette.bmp", Written(TwoColors(5, 4, QImage::Format_Indexed8), "bmp"), 5, 4, 0xFF0000,
       0xFF},
      {"sixteen bits.png", Written(TwoColors(5, 4, QImage::Format_RGBX64), "png"), 5, 4, 0xFF0000,
       0xFF},
      {"grey.png", Written(grey, "png"), 5, 4, 0x363636, 0x363636},
      {"half see-through.png", Written(half, "png"), 3, 4, 0x800000, 0xFF},
      {"on its side.jpg", Turned(Written(TwoColors(60, 40), "jpeg")), 40, 60, 0xFF, 0xFF0000},
      {"inks.jpg", CmykJpeg(), 8, 8, 0x00FFFF, 0x00FFFF},
      {"animated.gif", AnimatedGif(), 1, 1, 0xFF0000, 0xFF0000},
      {"bytes behind.jpg", Written(plain, "jpeg") + "more", 40, 60, 0xFF0000, 0xFF},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Name);
    const std::string path = Put(row.Name, row.Bytes);
    Raster picture;
    ASSERT_EQ(library_.Load(path, picture), kImageOk);
    EXPECT_EQ(picture.Width(), row.Width);
    EXPECT_EQ(picture.Height(), row.Height);
    PictureSize size;
    EXPECT_EQ(library_.LoadSize(path, size), kImageOk);
    EXPECT_EQ(size, (PictureSize{row.Width, row.Height}));
    const std::int32_t first = picture.Pixel(0, 0);
    const std::int32_t last = picture.Pixel(picture.Width() - 1, picture.Height() - 1);
    if (std::string_view(row.Name) == "on its side.jpg") {
      // The upper rows have become the right-hand columns.
      EXPECT_TRUE(Near(picture.Pixel(picture.Width() - 1, 0), 0xFF0000));
      EXPECT_TRUE(Near(first, 0x0000FF)) << std::hex << first;
      continue;
    }
    EXPECT_TRUE(Near(first, row.First)) << std::hex << first;
    EXPECT_TRUE(Near(last, row.Last)) << std::hex << last;
  }
}

TEST_F(ImageLibraryTest, FilesThatAreNoPicturesAreRefusedWithAStatus) {
  const QByteArray png = Written(TwoColors(40, 60), "png");
  const QByteArray jpeg = Written(TwoColors(40, 60), "jpeg");
  const QByteArray bmp = Written(TwoColors(40, 60), "bmp");
  const struct {
    const char* Name;
    QByteArray Bytes;
    int Status;
  } rows[] = {
      {"empty.png", "", kImageUnknownFormat},
      {"text.jpg", "This is no picture.", kImageUnknownFormat},
      {"drawing.png", "<svg xmlns='http://www.w3.org/2000/svg'/>", kImageUnknownFormat},
      {"program.xpm", "/* XPM */ static char*x[]={\"1 1 1 1\",\"a c red\",\"a\"};",
       kImageUnknownFormat},
      {"head only.png", png.left(8), kImageGenericError},
      {"start only.jpg", jpeg.left(4), kImageGenericError},
      {"no colours.bmp", bmp.left(30), kImageGenericError},
      {"empty segments.jpg", Hex("ffd8ffe00000ffe00000"), kImageGenericError},
      {"huge.png", PngOfSize(png, "00007530 00007530"), kImageOutOfMemory},
      {"huge.bmp", With(bmp.left(100), 18, Hex("30750000 30750000")), kImageGenericError},
      {"huge upside down.bmp", With(bmp.left(100), 18, Hex("30750000 d08affff")),
       kImageGenericError},
      {"huge.jpg", JpegOfSize(jpeg, "7530 7530"), kImageOutOfMemory},
      {"huge.gif", With(With(AnimatedGif(), 6, Hex("30753075")), 32, Hex("30753075")),
       kImageOutOfMemory},
      {"large but empty.bmp", With(bmp.left(100), 18, Hex("30750000 d0070000")),
       kImageGenericError},
      {"wide beyond reason.bmp", With(bmp, 18, Hex("ffffff7f ffffff7f")), kImageGenericError},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Name);
    const std::string path = Put(row.Name, row.Bytes);
    EXPECT_EQ(Refusal(path), row.Status);
    PictureSize size;
    EXPECT_EQ(library_.LoadSize(path, size), row.Status);
  }
}

TEST_F(ImageLibraryTest, PicturesThatAreCutOffAreRefusedAtAnyPlace) {
  const std::pair<const char*, QByteArray> whole[] = {
      {"a.png", Written(TwoColors(40, 60), "png")},
      {"a.jpg", Written(TwoColors(40, 60), "jpeg")},
      {"a.bmp", Written(TwoColors(40, 60), "bmp")},
      {"a.gif", AnimatedGif().left(42)},
      {"a.webp", Written(TwoColors(40, 60), "webp")},
      {"a.ppm", Written(TwoColors(40, 60), "ppm")},
      {"p.bmp", Written(TwoColors(40, 60, QImage::Format_Indexed8), "bmp")},
  };
  for (const auto& [name, bytes] : whole) {
    Raster picture;
    ASSERT_EQ(library_.Load(Put(name, bytes), picture), kImageOk) << name;
    // The last bytes of a PNG file hold no part of the picture.
    const qsizetype most = bytes.size() - (bytes.startsWith("\x89PNG") ? 9 : 1);
    for (qsizetype length = 0; length <= most; length += 1 + length / 16) {
      EXPECT_NE(Refusal(Put(name, bytes.left(length))), kImageOk) << name << " " << length;
    }
    EXPECT_NE(Refusal(Put(name, bytes.left(most))), kImageOk) << name;
  }
}

TEST_F(ImageLibraryTest, PicturesWithManyScansDoNotKeepTheReaderBusy) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpeg");
  writer.setProgressiveScanWrite(true);
  ASSERT_TRUE(writer.write(TwoColors(16, 16)));
  QByteArray many = buffer.data();
  const qsizetype first = many.indexOf(Hex("ffda"));
  const QByteArray scan = many.mid(first, many.indexOf('\xff', first + 2) - first);
  for (int count = 0; count < 400; ++count) many.insert(first, scan);
  Raster picture;
  EXPECT_EQ(library_.Load(Put("many.jpg", many), picture), kImageOk);
  // A few kilobytes that ask for a walk over sixty million pixels, hundreds of times.
  const qsizetype size = many.indexOf(Hex("ffc2")) + 5;
  EXPECT_EQ(Refusal(Put("many.jpg", With(many, size, Hex("1f40 1f40")))), kImageGenericError);
}

TEST_F(ImageLibraryTest, WhatIsNoFileOrMayNotBeReadIsRefusedAtOnce) {
  const std::string folder = folder_.path().toStdString();
  EXPECT_EQ(Refusal(folder), kImageAccessDenied);
  EXPECT_EQ(Refusal(folder + "/missing.png"), kImageFileNotFound);
  EXPECT_EQ(Refusal(""), kImageFileNotFound);
  EXPECT_EQ(Refusal(folder + std::string("/a\0.png", 7)), kImageInvalidParameter);
  const std::string pipe = folder + "/pipe.png";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(Refusal(pipe), kImageAccessDenied);
  EXPECT_EQ(Refusal("/dev/zero"), kImageAccessDenied);

  const std::string locked = Put("locked.png", Written(TwoColors(2, 2), "png"));
  ASSERT_EQ(chmod(locked.c_str(), 0), 0);
  ASSERT_EQ(chmod(folder.c_str(), 0755), 0);
  const uid_t user = geteuid();
  constexpr uid_t kNobody = 65534;
  ASSERT_EQ(user == 0 ? seteuid(kNobody) : 0, 0);  // the super user may read everything
  const int status = Refusal(locked);
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_EQ(status, kImageAccessDenied);
}

TEST_F(ImageLibraryTest, PicturesOfManyMegapixelsAreRead) {
  QImage image(6000, 6000, QImage::Format_Mono);
  image.fill(1);
  Raster picture;
  ASSERT_EQ(library_.Load(Put("large.png", Written(image, "png")), picture), kImageOk);
  EXPECT_EQ(picture.Pixel(5999, 5999), 0xFFFFFF);
}

TEST_F(ImageLibraryTest, PicturesSurviveFilesThatLoseNothing) {
  Raster picture(23, 17);
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      picture.SetPixel(x, y, (x * 11) << 16 | (y * 15) << 8 | (x * y) % 256);
    }
  }
  for (const char* pattern : {"*.BMP", "*.PNG"}) {
    std::string bytes;
    ASSERT_EQ(library_.Encode(picture, EncoderOf(pattern), std::nullopt, bytes), kImageOk);
    Raster read;
    ASSERT_EQ(library_.Load(Put("again", bytes), read), kImageOk);
    EXPECT_EQ(read, picture) << pattern;
  }
}

TEST_F(ImageLibraryTest, WhatCanNotBeWrittenLeavesTheBytesAlone) {
  const ImageEncoderId jpeg = EncoderOf("*.JPG");
  std::string bytes = "before";
  EXPECT_EQ(library_.Encode(Raster(), jpeg, 85, bytes), kImageInvalidParameter);
  EXPECT_EQ(library_.Encode(Raster(1, 1), ImageEncoderId{}, 85, bytes), kImageUnknownFormat);
  EXPECT_EQ(library_.Encode(Raster(70'000, 1), jpeg, 85, bytes), kImageGenericError);
  EXPECT_EQ(bytes, "before");
}

using Quantisers = std::array<int, 64>;

/// The tables of a JPEG file, each in the order of the file.
std::vector<Quantisers> TablesOf(const std::string& bytes) {
  const auto byte = [&](std::size_t at) { return int{static_cast<unsigned char>(bytes.at(at))}; };
  std::vector<Quantisers> tables;
  for (std::size_t at = 2; byte(at + 1) != 0xDA;) {
    const auto end = at + 2 + static_cast<std::size_t>(byte(at + 2) << 8 | byte(at + 3));
    if (byte(at + 1) == 0xDB) {
      for (std::size_t table = at + 4; table < end; table += 65) {
        EXPECT_LE(byte(table), 1) << "one byte each";
        tables.emplace_back();
        for (std::size_t index = 0; index < 64; ++index) {
          tables.back()[index] = byte(table + 1 + index);
        }
      }
    }
    at = end;
  }
  return tables;
}

/// A table of the standard for a quality, in the order of the file: along the diagonals.
Quantisers Scaled(const Quantisers& base, int quality) {
  const int scale = quality < 50 ? 5000 / quality : 200 - 2 * quality;
  Quantisers scaled{};
  std::size_t next = 0;
  for (int diagonal = 0; diagonal < 15; ++diagonal) {
    for (int step = 0; step <= diagonal; ++step) {
      const int row = diagonal % 2 == 0 ? diagonal - step : step;
      const int column = diagonal - row;
      if (row > 7 || column > 7) continue;
      const int number = base[static_cast<std::size_t>(row * 8 + column)];
      scaled[next++] = std::clamp((number * scale + 50) / 100, 1, 255);
    }
  }
  return scaled;
}

TEST_F(ImageLibraryTest, TheQualityReachesTheFile) {
  constexpr Quantisers kLuminance = {16,  11,  10,  16,  24, 40, 51,  61,  12,  12,  14,  19,  26,
                                     58,  60,  55,  14,  13, 16, 24,  40,  57,  69,  56,  14,  17,
                                     22,  29,  51,  87,  80, 62, 18,  22,  37,  56,  68,  109, 103,
                                     77,  24,  35,  55,  64, 81, 104, 113, 92,  49,  64,  78,  87,
                                     103, 121, 120, 101, 72, 92, 95,  98,  112, 100, 103, 99};
  Quantisers chrominance;
  chrominance.fill(99);
  constexpr std::array<int, 16> kCorner = {17, 18, 24, 47, 18, 21, 26, 66,
                                           24, 26, 56, 99, 47, 66, 99, 99};
  for (std::size_t at = 0; at < kCorner.size(); ++at)
    chrominance[at / 4 * 8 + at % 4] = kCorner[at];
  for (const int quality : {100, 85, 50, 10, 1}) {
    std::string bytes;
    ASSERT_EQ(library_.Encode(Raster(16, 16), EncoderOf("*.JPG"), quality, bytes), kImageOk);
    const std::vector<Quantisers> tables = TablesOf(bytes);
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_EQ(tables[0], Scaled(kLuminance, quality)) << quality;
    EXPECT_EQ(tables[1], Scaled(chrominance, quality)) << quality;
  }
}

}  // namespace
}  // namespace brindlemoor
