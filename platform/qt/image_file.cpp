// Walking through image files from block to block.
#include "platform/qt/image_file.h"

#include <QIODevice>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace brindlemoor {

namespace {

using namespace std::string_view_literals;

/// More passes over the pixels than any program writes would keep the reader busy for minutes.
constexpr qint64 kMostPixelsOfAllScans = 2'000'000'000;

/// Bytes of a file, one after the other. Behind its end there are zeros.
class ByteWalk {
 public:
  explicit ByteWalk(QIODevice& file) : file_(file) { file_.seek(0); }

  bool AtEnd() {
    if (at_ < filled_) return false;
    filled_ = std::max<qint64>(file_.read(buffer_.data(), qint64{kBufferSize}), 0);
    at_ = 0;
    return filled_ == 0;
  }
  int Byte() { return AtEnd() ? 0 : static_cast<unsigned char>(buffer_[Index(at_++)]); }
  std::uint32_t BigEndian(int bytes) {
    std::uint32_t number = 0;
    while (bytes-- > 0) number = number << 8U | static_cast<std::uint32_t>(Byte());
    return number;
  }
  std::uint32_t LittleEndian(int bytes) {
    std::uint32_t number = 0;
    for (int at = 0; at < bytes; ++at) number |= static_cast<std::uint32_t>(Byte()) << (8 * at);
    return number;
  }
  void Skip(qint64 count) {
    const qint64 known = std::min(count, filled_ - at_);
    at_ += known;
    // Some devices stay where they are when they are sent behind their end.
    if (count > known) file_.seek(std::min(file_.pos() + count - known, file_.size()));
  }
  /// Goes behind the next byte of a value; false where there is none.
  bool SkipBehind(int value) {
    while (!AtEnd()) {
      const char* from = buffer_.data() + at_;
      const void* found = std::memchr(from, value, Index(filled_ - at_));
      at_ = found == nullptr ? filled_ : at_ + (static_cast<const char*>(found) - from) + 1;
      if (found != nullptr) return true;
    }
    return false;
  }

 private:
  static constexpr int kBufferSize = 1 << 16;
  static std::size_t Index(qint64 number) { return static_cast<std::size_t>(number); }

  QIODevice& file_;
  std::array<char, kBufferSize> buffer_{};
  qint64 at_ = 0;
  qint64 filled_ = 0;
};

bool IsWholePng(QIODevice& file) {
  constexpr std::uint32_t kEnd = 0x49454E44;  // "IEND"
  constexpr int kChecksum = 4;
  ByteWalk walk(file);
  walk.Skip(8);
  while (!walk.AtEnd()) {
    const std::uint32_t length = walk.BigEndian(4);
    if (walk.BigEndian(4) == kEnd) return true;
    walk.Skip(qint64{length} + kChecksum);
  }
  return false;
}

bool IsWholeJpeg(QIODevice& file) {
  constexpr int kMark = 0xFF;
  constexpr int kStart = 0xD8;
  constexpr int kEnd = 0xD9;
  constexpr int kScan = 0xDA;
  qint64 pixels = 0;
  qint64 scanned = 0;
  ByteWalk walk(file);
  while (walk.SkipBehind(kMark)) {
    int marker = kMark;
    while (marker == kMark && !walk.AtEnd()) marker = walk.Byte();
    if (marker == kEnd) return true;
    const bool alone = marker <= 1 || (marker >= 0xD0 && marker <= kStart);
    if (alone) continue;
    qint64 rest = qint64{walk.BigEndian(2)} - 2;
    const bool frame = marker > 0xC0 && marker <= 0xCF && marker % 4 != 0;
    if (marker == 0xC0 || frame) {
      walk.Skip(1);
      pixels = qint64{walk.BigEndian(2)};
      pixels *= walk.BigEndian(2);
      rest -= 5;
    }
    if (marker == kScan && (scanned += pixels) > kMostPixelsOfAllScans) return false;
    walk.Skip(std::max(rest, qint64{0}));
  }
  return false;
}

/// Skips blocks that begin with their length, up to one without any. False at the file's end.
bool SkipSubBlocks(ByteWalk& walk) {
  while (!walk.AtEnd()) {
    const int length = walk.Byte();
    if (length == 0) return true;
    walk.Skip(length);
  }
  return false;
}

void SkipColorTable(ByteWalk& walk, int flags) {
  if ((flags & 0x80) != 0) walk.Skip(qint64{3} << ((flags & 7) + 1));
}

/// The first picture counts.
bool IsWholeGif(QIODevice& file) {
  constexpr int kExtension = 0x21;
  constexpr int kPicture = 0x2C;
  ByteWalk walk(file);
  walk.Skip(10);
  const int flags = walk.Byte();
  walk.Skip(2);
  SkipColorTable(walk, flags);
  int block = walk.Byte();
  for (; block == kExtension; block = walk.Byte()) {
    walk.Skip(1);
    if (!SkipSubBlocks(walk)) return false;
  }
  if (block != kPicture) return false;
  walk.Skip(8);
  SkipColorTable(walk, walk.Byte());
  walk.Skip(1);
  return SkipSubBlocks(walk);
}

bool IsWholeBmp(QIODevice& file) {
  constexpr int kFileHead = 14;
  constexpr std::uint32_t kShortHead = 12;
  constexpr std::uint32_t kMostBits = 32;
  ByteWalk walk(file);
  walk.Skip(10);
  const std::uint32_t offset = walk.LittleEndian(4);
  const std::uint32_t head = walk.LittleEndian(4);
  const bool isShort = head == kShortHead;
  const int bytes = isShort ? 2 : 4;
  const qint64 width = static_cast<std::int32_t>(walk.LittleEndian(bytes));
  const qint64 height = std::abs(qint64{static_cast<std::int32_t>(walk.LittleEndian(bytes))});
  walk.Skip(2);
  const std::uint32_t bits = walk.LittleEndian(2);
  const std::uint32_t packing = isShort ? 0 : walk.LittleEndian(4);
  const std::uint32_t packedSize = isShort ? 0 : walk.LittleEndian(4);
  const qint64 room = file.size() - std::max(qint64{offset}, qint64{kFileHead} + head);
  const bool runLengths = packing == 1 || packing == 2;
  if (runLengths) return packedSize <= room;
  if (width < 1 || height < 1 || bits < 1 || bits > kMostBits) return false;
  const qint64 row = (width * bits + 31) / 32 * 4;
  return height <= room / row;
}

bool IsAnyway(QIODevice&) { return true; }

struct ImageKind {
  std::string_view Magic;  ///< "?" stands for any byte
  const char* Reader;
  bool (*IsWhole)(QIODevice& file);
};
constexpr ImageKind kKinds[] = {
    {"\x89PNG\r\n\x1A\n"sv, "png", IsWholePng},
    {"\xFF\xD8\xFF"sv, "jpeg", IsWholeJpeg},
    {"GIF8"sv, "gif", IsWholeGif},
    {"BM"sv, "bmp", IsWholeBmp},
    {"RIFF????WEBP"sv, "webp", IsAnyway},
    {"II*\0"sv, "tiff", IsAnyway},
    {"MM\0*"sv, "tiff", IsAnyway},
    {"\0\0\1\0"sv, "ico", IsAnyway},
    {"P1"sv, "pbm", IsAnyway},
    {"P2"sv, "pgm", IsAnyway},
    {"P3"sv, "ppm", IsAnyway},
    {"P4"sv, "pbm", IsAnyway},
    {"P5"sv, "pgm", IsAnyway},
    {"P6"sv, "ppm", IsAnyway},
};

bool Begins(std::string_view bytes, std::string_view magic) {
  return bytes.size() >= magic.size() &&
         std::equal(magic.begin(), magic.end(), bytes.begin(),
                    [](char wanted, char byte) { return wanted == '?' || wanted == byte; });
}

}  // namespace

const char* ImageReaderName(QIODevice& file) {
  constexpr qint64 kLongestMagic = 12;
  const QByteArray head = file.peek(kLongestMagic);
  const std::string_view bytes(head.constData(), static_cast<std::size_t>(head.size()));
  for (const ImageKind& kind : kKinds) {
    if (Begins(bytes, kind.Magic)) return kind.Reader;
  }
  return nullptr;
}

bool IsWholeImage(QIODevice& file, const char* reader) {
  const qint64 place = file.pos();
  const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const ImageKind& row) {
    return std::strcmp(row.Reader, reader) == 0;
  });
  const bool whole = kind != std::end(kKinds) && kind->IsWhole(file);
  file.seek(place);
  return whole;
}

}  // namespace brindlemoor
