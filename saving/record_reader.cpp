// Numbers and texts out of bytes.
#include "saving/record_reader.h"

#include <limits>

#include "saving/record_writer.h"

namespace brindlemoor {

RecordReader::RecordReader(std::string_view bytes, std::string_view folder, int version)
    : bytes_(bytes), version_(version) {
  const std::size_t count = TakeCount(kMostElements);
  texts_.reserve(count);
  for (std::size_t index = 0; index < count && !failed_; ++index) {
    const std::size_t size = TakeCount(std::numeric_limits<std::int64_t>::max());
    std::string_view text = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    const bool isMarked = text.starts_with(kFolderMark);
    if (isMarked) text.remove_prefix(1);
    texts_.push_back(isMarked && text.starts_with('/') ? Text(Joined(folder, text)) : Text(text));
  }
}

std::uint64_t RecordReader::TakeBits() {
  constexpr unsigned kMore = 0x80;
  std::uint64_t bits = 0;
  for (int shift = 0; shift < 64 && !bytes_.empty(); shift += 7) {
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    bits |= static_cast<std::uint64_t>(byte & ~kMore) << shift;
    if ((byte & kMore) == 0) return bits;
  }
  failed_ = true;
  return 0;
}

std::int64_t RecordReader::TakeNumber() {
  const std::uint64_t bits = TakeBits();
  return static_cast<std::int64_t>((bits >> 1) ^ (~(bits & 1) + 1));
}

std::size_t RecordReader::TakeCount(std::int64_t most) {
  const std::uint64_t count = TakeBits();
  if (count <= bytes_.size() && count <= static_cast<std::uint64_t>(most)) return count;
  failed_ = true;
  return 0;
}

Text RecordReader::TakeText() {
  const std::uint64_t number = TakeBits();
  if (number == 0) return {};
  if (number <= texts_.size()) return texts_[number - 1];
  failed_ = true;
  return {};
}

void RecordReader::TakeList(TraitWords& words, std::int64_t /*most*/) {
  if (bytes_.empty()) {
    failed_ = true;
    return;
  }
  const auto used = static_cast<unsigned char>(bytes_.front());
  bytes_.remove_prefix(1);
  for (int word = 1; word <= TraitWords::kWords; ++word) {
    if ((used >> (word - 1) & 1) == 0) continue;
    const std::uint64_t bits = TakeBits();
    if (bits > std::numeric_limits<std::uint32_t>::max()) failed_ = true;
    words[word] = static_cast<std::uint32_t>(bits);
  }
}

}  // namespace brindlemoor
