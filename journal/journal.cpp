// The head of a journal, and which records there are.
#include "journal/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "journal/journal_writer.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kMagic = "brindlemoor-journal";
constexpr std::string_view kFormat = "1";
constexpr std::size_t kManyFields = 1'000'000;

enum class Part { kHead, kFiles, kRecords };

/// A word of a journal, and how many fields it has.
struct RecordRow {
  std::string_view Word;
  Part Where;
  std::size_t Least;
  std::size_t Most;
};
constexpr std::array<RecordRow, 36> kRows = {{
    {"program", Part::kHead, 1, 1},
    {"kind", Part::kHead, 1, 1},
    {"folder", Part::kHead, 1, 1},
    {"option", Part::kHead, 2, 2},
    {"file", Part::kFiles, 2, 2},
    {"others", Part::kFiles, 2, 2},
    {"keep", Part::kFiles, 2, 2},
    {"event", Part::kRecords, 4, 8},
    {"message", Part::kRecords, 1, 1},
    {"question", Part::kRecords, 2, 2},
    {"saving", Part::kRecords, 2, 2},
    {"choice", Part::kRecords, 2, 2},
    {"input", Part::kRecords, 1, 2},
    {"openfile", Part::kRecords, 1, 2},
    {"savefile", Part::kRecords, 1, 2},
    {"openfolder", Part::kRecords, 1, 2},
    {"color", Part::kRecords, 1, 2},
    {"clock", Part::kRecords, 1, 1},
    {"drives", Part::kRecords, 0, kManyFields},
    {"show", Part::kRecords, 2, 2},
    {"encoders", Part::kRecords, 0, kManyFields},
    {"load", Part::kRecords, 4, 4},
    {"size", Part::kRecords, 4, 4},
    {"encode", Part::kRecords, 1, 1},
    {"document", Part::kRecords, 1, 1},
    {"outside", Part::kRecords, 2, kManyFields},
    {"before", Part::kRecords, 2, 3},
    {"changed", Part::kRecords, 2, 3},
    {"write", Part::kRecords, 5, 5},
    {"picture", Part::kRecords, 1, 1},
    {"remove", Part::kRecords, 1, 1},
    {"failed", Part::kRecords, 3, 3},
    {"playing", Part::kRecords, 3, 3},
    {"played", Part::kRecords, 8, 8},
    {"result", Part::kRecords, 2, 2},
    {"end", Part::kRecords, 0, 0},
}};

bool IsRow(const JournalRecord& record, Part part) {
  return std::ranges::any_of(kRows, [&](const RecordRow& row) {
    return row.Where == part && row.Word == record.Word && record.Fields.size() >= row.Least &&
           record.Fields.size() <= row.Most;
  });
}

/// Reads line after line.
class Reader {
 public:
  Reader(std::string_view bytes, Journal& journal) : rest_(bytes), journal_(journal) {}

  std::string Read() {
    JournalRecord record;
    if (!Next(record) || record.Word != kMagic) return "it is no journal";
    if (record.Fields != JournalFields{std::string(kFormat)}) {
      return "it is a journal of another program version";
    }
    bool started = false;
    while (Next(record)) {
      if (!started && record.Word == "start" && record.Fields.empty()) {
        started = true;
      } else if (journal_.Ended || !Store(record, started)) {
        return Joined("line ", line_, " is no line of a journal");
      }
    }
    if (broken_) return Joined("line ", line_, " is no line of a journal");
    if (started) return "";
    return "it ends before the program started";
  }

 private:
  /// Takes the next whole line; false at the end and at a line that can't be read.
  bool Next(JournalRecord& record) {
    const std::size_t end = rest_.find('\n');
    if (end == rest_.npos) return false;
    ++line_;
    record = {};
    record.Line = line_;
    broken_ = !ReadJournalLine(rest_.substr(0, end), record);
    rest_.remove_prefix(end + 1);
    return !broken_;
  }

  bool Store(JournalRecord& record, bool started) {
    if (started) {
      if (!IsRow(record, Part::kRecords)) return false;
      journal_.Ended = record.Word == "end";
      journal_.Records.push_back(std::move(record));
      return true;
    }
    if (IsRow(record, Part::kFiles)) {
      journal_.Files.push_back(std::move(record));
      return true;
    }
    if (!IsRow(record, Part::kHead)) return false;
    if (record.Word == "option") {
      journal_.Options[record.Fields[0]] = record.Fields[1];
      return true;
    }
    std::string& place = record.Word == "program" ? journal_.Program
                         : record.Word == "kind"  ? journal_.Kind
                                                  : journal_.Folder;
    place = record.Fields[0];
    return true;
  }

  std::string_view rest_;
  Journal& journal_;
  int line_ = 0;
  bool broken_ = false;
};

}  // namespace

std::uint64_t Journal::Number(const std::string& option) const {
  const auto entry = Options.find(option);
  std::uint64_t number = 0;
  if (entry == Options.end()) return 0;
  const std::string& text = entry->second;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc() && end == text.data() + text.size() ? number : 0;
}

void WriteHead(JournalWriter& writer, const Journal& head) {
  writer.Add(kMagic, {std::string(kFormat)});
  writer.Add("program", {head.Program});
  writer.Add("kind", {head.Kind});
  writer.Add("folder", {head.Folder});
  for (const auto& [name, value] : head.Options) writer.Add("option", {name, value});
  for (const JournalRecord& file : head.Files) writer.Add(file.Word, file.Fields);
  writer.Add("start");
}

std::string ReadJournal(std::string_view bytes, Journal& journal) {
  journal = {};
  return Reader(bytes, journal).Read();
}

}  // namespace brindlemoor
