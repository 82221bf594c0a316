// Events and encoders as fields.
#include "journal/session_words.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/hex_digits.h"

namespace brindlemoor {

namespace {

template <class Number>
std::optional<Number> ReadWhole(const std::string& text, int base = 10) {
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, failure] = std::from_chars(text.data(), end, number, base);
  if (text.empty() || failure != std::errc() || rest != end) return std::nullopt;
  return number;
}

std::optional<ImageEncoderId> ReadId(const std::string& text) {
  ImageEncoderId id{};
  if (text.size() != 2 * id.size()) return std::nullopt;
  for (std::size_t index = 0; index < id.size(); ++index) {
    const auto byte = ReadWhole<std::uint8_t>(text.substr(2 * index, 2), 16);
    if (!byte) return std::nullopt;
    id[index] = *byte;
  }
  return id;
}

struct SaveAnswerRow {
  SaveAnswer Answer;
  std::string_view Word;
};
constexpr std::array<SaveAnswerRow, 3> kSaveAnswers = {{{SaveAnswer::kSave, "save"},
                                                        {SaveAnswer::kDiscard, "discard"},
                                                        {SaveAnswer::kCancel, "cancel"}}};

}  // namespace

std::string WordOf(SaveAnswer answer) {
  return std::string(std::ranges::find(kSaveAnswers, answer, &SaveAnswerRow::Answer)->Word);
}

SaveAnswer SaveAnswerOf(std::string_view word) {
  const auto row = std::ranges::find(kSaveAnswers, word, &SaveAnswerRow::Word);
  return row == kSaveAnswers.end() ? SaveAnswer::kCancel : row->Answer;
}

std::optional<int> ReadInt(const std::string& text) { return ReadWhole<int>(text); }
std::optional<std::uint64_t> ReadUnsigned(const std::string& text) {
  return ReadWhole<std::uint64_t>(text);
}

JournalFields EventFields(int number, const Moment& when, const std::string& form,
                          const UserEvent& event) {
  const UserEventRow& row = RowOf(event.Kind);
  JournalFields fields{std::to_string(number), when.Text(), std::string(row.Word), form};
  if (!event.Control.empty()) fields.push_back(event.Control);
  if (row.Numbers >= 1) fields.push_back(std::to_string(event.Number));
  if (row.Numbers >= 2) fields.push_back(std::to_string(event.Y));
  if (row.HasText) fields.push_back(event.Text);
  return fields;
}

std::optional<RecordedEvent> ReadEvent(const JournalFields& fields) {
  if (fields.size() < 4) return std::nullopt;
  const auto number = ReadInt(fields[0]);
  const auto when = Moment::Read(fields[1]);
  const UserEventRow* row = FindEventRow(fields[2]);
  if (!number || *number < 1 || !when || row == nullptr) return std::nullopt;
  RecordedEvent read{*number, *when, fields[3], {.Kind = row->Kind}};
  std::size_t next = 4;
  const std::size_t carried = static_cast<std::size_t>(row->Numbers) + (row->HasText ? 1 : 0);
  if (fields.size() == next + carried + 1) read.Event.Control = fields[next++];
  if (fields.size() != next + carried) return std::nullopt;
  for (int place = 0; place < row->Numbers; ++place) {
    const auto value = ReadInt(fields[next++]);
    if (!value) return std::nullopt;
    (place == 0 ? read.Event.Number : read.Event.Y) = *value;
  }
  if (row->HasText) read.Event.Text = fields[next];
  return read;
}

JournalFields FieldsOf(const std::vector<ImageEncoder>& encoders) {
  JournalFields fields;
  for (const ImageEncoder& encoder : encoders) {
    std::string& id = fields.emplace_back();
    for (const std::uint8_t byte : encoder.Id) AppendHex(id, byte);
    fields.push_back(encoder.FilenameExtension);
  }
  return fields;
}

std::optional<std::vector<ImageEncoder>> ReadEncoders(const JournalFields& fields) {
  if (fields.size() % 2 != 0) return std::nullopt;
  std::vector<ImageEncoder> encoders;
  for (std::size_t index = 0; index < fields.size(); index += 2) {
    const auto id = ReadId(fields[index]);
    if (!id) return std::nullopt;
    encoders.push_back({*id, fields[index + 1]});
  }
  return encoders;
}

}  // namespace brindlemoor
