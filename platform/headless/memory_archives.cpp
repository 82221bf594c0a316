// The plain format of archives.
#include "platform/headless/memory_archives.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kHead = "FILES\n";
constexpr std::string_view kDamaged = "is damaged";
constexpr std::size_t kBlock = 4096;

struct KindWord {
  std::string_view Word;
  ArchiveEntryKind Kind;
  bool IsEncrypted = false;
};
constexpr std::array<KindWord, 5> kKinds = {{{"FILE", ArchiveEntryKind::kFile},
                                             {"FOLDER", ArchiveEntryKind::kFolder},
                                             {"LINK", ArchiveEntryKind::kLink},
                                             {"OTHER", ArchiveEntryKind::kOther},
                                             {"LOCKED", ArchiveEntryKind::kFile, true}}};

/// Cuts the text up to a mark off, and the mark.
std::string_view CutTo(std::string_view& text, char mark) {
  const std::size_t end = std::min(text.find(mark), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

}  // namespace

std::string MemoryArchiveLibrary::Read(std::string_view archive, ArchiveVisitor& visitor) const {
  if (!archive.starts_with(kHead)) return "is no archive";
  archive.remove_prefix(kHead.size());
  while (!archive.empty()) {
    const std::string_view word = CutTo(archive, ' ');
    const std::string_view count = CutTo(archive, ' ');
    const std::string_view name = CutTo(archive, '\n');
    const auto* kind = std::ranges::find(kKinds, word, &KindWord::Word);
    std::size_t size = 0;
    std::from_chars(count.data(), count.data() + count.size(), size);
    if (kind == kKinds.end() || size > archive.size()) return std::string(kDamaged);
    if (!visitor.Begin({std::string(name), kind->Kind, kind->IsEncrypted})) return "";
    for (std::size_t at = 0; at < size; at += kBlock) {
      if (!visitor.Take(archive.substr(at, std::min(kBlock, size - at)))) return "";
    }
    archive.remove_prefix(size);
  }
  return "";
}

std::string MemoryArchiveLibrary::Write(std::span<const ArchiveFile> files,
                                        std::string& archive) const {
  archive = kHead;
  for (const ArchiveFile& file : files) {
    archive += Joined("FILE ", file.Bytes.size(), " ", file.Name, "\n", file.Bytes);
  }
  return "";
}

}  // namespace brindlemoor
