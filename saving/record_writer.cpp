// Numbers and texts as bytes.
#include "saving/record_writer.h"

namespace brindlemoor {

namespace {

/// Seven bits a byte, the lowest first; the high bit says that more follow.
void AppendCount(std::string& bytes, std::uint64_t count) {
  constexpr std::uint64_t kMore = 0x80;
  for (; count >= kMore; count >>= 7) bytes += static_cast<char>(count | kMore);
  bytes += static_cast<char>(count);
}

}  // namespace

void RecordWriter::PutNumber(std::int64_t number) {
  // The sign goes to the end, so that small negative numbers are short too.
  AppendCount(records_,
              (static_cast<std::uint64_t>(number) << 1) ^ static_cast<std::uint64_t>(number >> 63));
}

void RecordWriter::PutCount(std::size_t count) { AppendCount(records_, count); }

void RecordWriter::PutText(std::string_view text) {
  if (text.empty()) {
    PutCount(0);
    return;
  }
  const auto [entry, isNew] = numbers_.try_emplace(text, texts_.size() + 1);
  if (isNew) texts_.push_back(text);
  PutCount(entry->second);
}

void RecordWriter::PutList(const TraitWords& words) {
  unsigned used = 0;
  for (int word = 1; word <= TraitWords::kWords; ++word) {
    if (words[word] != 0) used |= 1U << (word - 1);
  }
  records_ += static_cast<char>(used);
  for (int word = 1; word <= TraitWords::kWords; ++word) {
    if (words[word] != 0) PutCount(words[word]);
  }
}

std::string RecordWriter::Bytes() const {
  std::string bytes;
  AppendCount(bytes, texts_.size());
  for (std::string_view text : texts_) {
    const bool isPath = !folder_.empty() && text.starts_with(folder_) &&
                        text.substr(folder_.size()).starts_with('/');
    if (isPath) text.remove_prefix(folder_.size());
    const bool isMarked = isPath || text.starts_with(kFolderMark);
    AppendCount(bytes, text.size() + (isMarked ? 1 : 0));
    if (isMarked) bytes += kFolderMark;
    bytes += text;
  }
  return bytes += records_;
}

}  // namespace brindlemoor
