// Taking records and telling what differs from them.
#include "journal/journal_tape.h"

#include <algorithm>

#include "journal/session_words.h"
#include "journal/text_change.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kShownBytes = 200;

std::optional<TextChange> ReadChange(const JournalFields& fields) {
  const auto front = ReadUnsigned(fields[2]);
  const auto back = ReadUnsigned(fields[3]);
  if (!front || !back) return std::nullopt;
  return TextChange{*front, *back, fields[4]};
}

}  // namespace

std::string Shown(const JournalRecord& record) {
  if (record.Word == "write") return Joined("write ", JournalField(record.Fields[0]));
  std::string line = JournalLine(record.Word, record.Fields);
  if (line.size() > kShownBytes) line = line.substr(0, kShownBytes) + "...";
  return line;
}

const JournalRecord* JournalTape::Next() const {
  return stopped_ || next_ >= records_.size() ? nullptr : &records_[next_];
}

const JournalRecord& JournalTape::Expect(std::string_view word,
                                         std::initializer_list<std::string_view> fields,
                                         std::string_view doing) {
  const JournalRecord* next = Next();
  if (next == nullptr) Stop();
  const bool isIt = next->Word == word && next->Fields.size() >= fields.size() &&
                    std::equal(fields.begin(), fields.end(), next->Fields.begin());
  if (isIt) return Take();
  std::string asked;
  for (const std::string_view field : fields) asked += Joined(" ", JournalField(field));
  Differ(Joined("the program ", doing, asked));
}

void JournalTape::ExpectText(const std::string& name, std::string_view bytes) {
  const JournalRecord& record = Expect("write", {name}, "writes");
  std::string& text = texts_[name];
  const auto change = ReadChange(record.Fields);
  auto recorded = change ? Changed(text, *change) : std::nullopt;
  if (!recorded || HashOf(*recorded) != record.Fields[1]) Damaged(record);
  text = std::move(*recorded);
  if (text == bytes) {
    ++Result.Texts;
    return;
  }
  stopped_ = true;
  Result.Difference = Joined("line ", record.Line, " of the journal, ", Doing, ": ", name,
                             " differs in ", TextDifference(text, bytes));
  throw ReplayStopped{};
}

void JournalTape::Differ(std::string_view what) {
  const JournalRecord* next = Next();
  Result.Difference = next == nullptr ? Joined("at the end of the journal, ", Doing, ": ", what)
                                      : Joined("line ", next->Line, " of the journal, ", Doing,
                                               ": ", what, "\n  journal: ", Shown(*next));
  stopped_ = true;
  throw ReplayStopped{};
}

void JournalTape::Stop() {
  stopped_ = true;
  throw ReplayStopped{};
}

void JournalTape::Damaged(const JournalRecord& record) {
  stopped_ = true;
  Result.Problem = Joined("line ", record.Line, " is damaged: ", Shown(record));
  throw ReplayStopped{};
}

}  // namespace brindlemoor
