// Zip archives by the library of the system.
#include "archive/zip_library.h"

#include <archive.h>
#include <archive_entry.h>
#include <clocale>
#include <locale.h>
#include <memory>
#include <sys/types.h>

#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr mode_t kPlainMode = 0644;

struct FreeReader {
  void operator()(archive* reader) const { archive_read_free(reader); }
};
struct FreeWriter {
  void operator()(archive* writer) const { archive_write_free(writer); }
};
struct FreeEntry {
  void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};
using Reader = std::unique_ptr<archive, FreeReader>;
using Writer = std::unique_ptr<archive, FreeWriter>;
using Entry = std::unique_ptr<archive_entry, FreeEntry>;

/// The library turns names into those of the thread's locale, which must know all characters.
class Utf8Locale {
 public:
  Utf8Locale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
    if (locale_ != nullptr) before_ = uselocale(locale_);
  }
  ~Utf8Locale() {
    if (locale_ == nullptr) return;
    uselocale(before_);
    freelocale(locale_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t locale_;
  locale_t before_ = nullptr;
};

std::string WordsOf(archive* failed) {
  const char* words = archive_error_string(failed);
  return words != nullptr ? words : "no reason is known";
}

std::string NameOf(archive_entry* entry) {
  const char* name = archive_entry_pathname_utf8(entry);
  if (name == nullptr) name = archive_entry_pathname(entry);
  return name != nullptr ? name : "";
}

ArchiveEntryKind KindOf(archive_entry* entry) {
  if (archive_entry_symlink(entry) != nullptr || archive_entry_hardlink(entry) != nullptr) {
    return ArchiveEntryKind::kLink;
  }
  switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
      return ArchiveEntryKind::kFile;
    case AE_IFDIR:
      return ArchiveEntryKind::kFolder;
    case AE_IFLNK:
      return ArchiveEntryKind::kLink;
    default:
      return ArchiveEntryKind::kOther;
  }
}

/// Hands the bytes of an entry on. kWentOn, kEnded by the visitor, or kDamaged.
enum class Unpacked { kWentOn, kEnded, kDamaged };
Unpacked Unpack(archive* reader, ArchiveVisitor& visitor) {
  for (;;) {
    const void* block = nullptr;
    std::size_t size = 0;
    la_int64_t offset = 0;
    const int status = archive_read_data_block(reader, &block, &size, &offset);
    if (status == ARCHIVE_EOF) return Unpacked::kWentOn;
    // What is only warned of, such as a wrong checksum, is damage as well.
    if (status != ARCHIVE_OK) return Unpacked::kDamaged;
    if (!visitor.Take({static_cast<const char*>(block), size})) return Unpacked::kEnded;
  }
}

std::size_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::size_t number = 0;
  for (std::size_t byte = size; byte-- > 0;) {
    number = number << 8U | static_cast<unsigned char>(bytes[at + byte]);
  }
  return number;
}

/// The first name with a backslash in the list at the end of an archive, "" for none. The library
/// takes backslashes for "/" unasked, and whoever judges names must see what stands there.
std::string NameWithBackslash(std::string_view bytes) {
  constexpr std::string_view kEnd = "PK\x05\x06";
  constexpr std::string_view kRecord = "PK\x01\x02";
  constexpr std::size_t kEndSize = 22;
  constexpr std::size_t kRecordSize = 46;
  const std::size_t end = bytes.rfind(kEnd);
  if (end == bytes.npos || bytes.size() - end < kEndSize) return "";
  for (std::size_t at = NumberAt(bytes, end + 16, 4);
       at + kRecordSize <= end && bytes.substr(at).starts_with(kRecord);) {
    const std::size_t nameSize = NumberAt(bytes, at + 28, 2);
    const std::string_view name = bytes.substr(at + kRecordSize, nameSize);
    if (name.find('\\') != name.npos) return std::string(name);
    at += kRecordSize + nameSize + NumberAt(bytes, at + 30, 2) + NumberAt(bytes, at + 32, 2);
  }
  return "";
}

std::string AddFile(archive* writer, const ArchiveFile& file) {
  const Entry entry(archive_entry_new());
  if (entry == nullptr) return "there is no memory";
  archive_entry_set_pathname_utf8(entry.get(), file.Name.c_str());
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), kPlainMode);
  archive_entry_set_size(entry.get(), static_cast<la_int64_t>(file.Bytes.size()));
  // No time is set: it would be written as that of a time zone.
  if (archive_write_header(writer, entry.get()) != ARCHIVE_OK) return WordsOf(writer);
  if (archive_write_data(writer, file.Bytes.data(), file.Bytes.size()) !=
      static_cast<la_ssize_t>(file.Bytes.size())) {
    return WordsOf(writer);
  }
  return archive_write_finish_entry(writer) == ARCHIVE_OK ? "" : WordsOf(writer);
}

la_ssize_t AppendTo(archive*, void* bytes, const void* block, std::size_t size) {
  static_cast<std::string*>(bytes)->append(static_cast<const char*>(block), size);
  return static_cast<la_ssize_t>(size);
}

}  // namespace

std::string ZipLibrary::Read(std::string_view bytes, ArchiveVisitor& visitor) const {
  const Utf8Locale locale;
  const Reader reader(archive_read_new());
  if (reader == nullptr) return "needs more memory than there is";
  archive_read_support_format_zip_seekable(reader.get());
  if (archive_read_open_memory(reader.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) {
    return "is no zip archive";
  }
  const std::string odd = NameWithBackslash(bytes);
  if (!odd.empty() && !visitor.Begin({odd})) return "";
  for (bool isFirst = true;; isFirst = false) {
    archive_entry* entry = nullptr;
    const int status = archive_read_next_header(reader.get(), &entry);
    if (status == ARCHIVE_EOF) return "";
    // A name that is not understood is warned of; it is judged by who is told it.
    if (status != ARCHIVE_OK && status != ARCHIVE_WARN) {
      return isFirst ? "is no zip archive" : Joined("is damaged (", WordsOf(reader.get()), ")");
    }
    const std::string name = NameOf(entry);
    const bool isEncrypted = archive_entry_is_encrypted(entry) != 0;
    if (!visitor.Begin({name, KindOf(entry), isEncrypted})) return "";
    switch (Unpack(reader.get(), visitor)) {
      case Unpacked::kWentOn:
        break;
      case Unpacked::kEnded:
        return "";
      case Unpacked::kDamaged:
        return Joined("is damaged at \"", name, "\" (", WordsOf(reader.get()), ")");
    }
  }
}

std::string ZipLibrary::Write(std::span<const ArchiveFile> files, std::string& bytes) const {
  const Utf8Locale locale;
  const Writer writer(archive_write_new());
  if (writer == nullptr) return "there is no memory";
  bytes.clear();
  archive_write_set_format_zip(writer.get());
  archive_write_set_format_option(writer.get(), "zip", "hdrcharset", "UTF-8");
  archive_write_set_bytes_in_last_block(writer.get(), 1);
  if (archive_write_open(writer.get(), &bytes, nullptr, AppendTo, nullptr) != ARCHIVE_OK) {
    return WordsOf(writer.get());
  }
  for (const ArchiveFile& file : files) {
    const std::string problem = AddFile(writer.get(), file);
    if (!problem.empty()) return Joined(file.Name, ": ", problem);
  }
  return archive_write_close(writer.get()) == ARCHIVE_OK ? "" : WordsOf(writer.get());
}

}  // namespace brindlemoor
