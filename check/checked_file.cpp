// The walk through a card file.
#include "check/checked_file.h"

#include <algorithm>
#include <array>

#include "data/field_stream.h"
#include "lint/word_distance.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// Directives that the game list and the profiles read, with their fields.
struct ListDirective {
  std::string_view Word;
  int Fields;
};
constexpr std::array<ListDirective, 2> kListDirectives = {{{"#GAMERULES", 5}, {"#GAME", 1}}};

constexpr int kFullCardFields = 8;
/// Characters are counted once by blocks, so that long lines cost no more than short ones.
constexpr std::size_t kBlock = 1024;

const std::vector<std::string_view>& DirectiveWords() {
  static const std::vector<std::string_view> words = [] {
    std::vector<std::string_view> all;
    all.reserve(kDirectiveRows.size());
    for (const DirectiveRow& row : kDirectiveRows) all.push_back(row.Word);
    return all;
  }();
  return words;
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::size_t CharactersIn(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

CheckedField Taken(const FieldStream& stream, std::string text) {
  return {std::move(text), stream.Offset(), stream.Line()};
}

}  // namespace

CheckedFile::CheckedFile(std::string path, std::string bytes) : path_(std::move(path)) {
  FieldStream stream(std::move(bytes));
  text_ = stream.Text();
  lineStarts_.push_back(0);
  for (std::size_t at = 0; at < text_.size(); ++at) {
    const bool ends = text_[at] == '\n' ||
                      (text_[at] == '\r' && (at + 1 == text_.size() || text_[at + 1] != '\n'));
    if (ends) lineStarts_.push_back(at + 1);
  }
  characters_.push_back(0);
  for (std::size_t at = 0; at + kBlock <= text_.size(); at += kBlock) {
    characters_.push_back(characters_.back() +
                          CharactersIn(std::string_view(text_).substr(at, kBlock)));
  }
  Walk(stream);
}

FilePlace CheckedFile::PlaceOf(std::size_t offset) const {
  const auto behind = std::ranges::upper_bound(lineStarts_, offset);
  const std::size_t start = *(behind - 1);
  const std::size_t column = 1 + CharactersTo(std::min(offset, text_.size())) - CharactersTo(start);
  return {static_cast<int>(behind - lineStarts_.begin()), static_cast<int>(column)};
}

std::size_t CheckedFile::CharactersTo(std::size_t offset) const {
  const std::size_t block = offset / kBlock;
  return characters_[block] +
         CharactersIn(std::string_view(text_).substr(block * kBlock, offset % kBlock));
}

Finding CheckedFile::At(std::size_t offset, FindingCode code, std::string text,
                        std::string suggestion) const {
  return {path_, PlaceOf(offset), code, std::move(text), std::move(suggestion)};
}

void CheckedFile::Note(std::size_t offset, FindingCode code, std::string text,
                       std::string suggestion) {
  if (findings_.size() >= kMostFindings) return;
  findings_.push_back(At(offset, code, std::move(text), std::move(suggestion)));
}

void CheckedFile::Walk(FieldStream& stream) {
  for (std::string word; stream.Read(word);) {
    CheckedField head = Taken(stream, word);
    if (stream.Unclosed()) {
      Note(head.Offset, FindingCode::kUnclosedQuote,
           "This double quote is never closed; the rest of the file is not read.");
      return;
    }
    if (!word.starts_with('#')) {
      NoteLeftOver(head);
      continue;
    }
    const DirectiveRow* row = FindDirective(word);
    const auto* listed = std::ranges::find(kListDirectives, word, &ListDirective::Word);
    if (row == nullptr && listed == kListDirectives.end()) {
      NoteWord(head);
      continue;
    }
    CheckedDirective directive{
        row != nullptr ? row->Word : listed->Word, row, std::move(head), {}, false};
    if (!ReadFields(stream, directive, row != nullptr ? row->Fields : listed->Fields)) return;
    directives_.push_back(std::move(directive));
  }
}

bool CheckedFile::ReadFields(FieldStream& stream, CheckedDirective& directive, int count) {
  directiveLine_ = directive.Head.Line;
  for (int number = 1; number <= count; ++number) {
    std::string text;
    if (!stream.Read(text)) {
      Note(directive.Head.Offset, FindingCode::kCutOff,
           Joined("The file ends in the middle of ", directive.Word, ", behind ", number - 1,
                  " of ", count, " fields."));
      return false;
    }
    CheckedField field = Taken(stream, std::move(text));
    if (stream.Unclosed()) {
      Note(field.Offset, FindingCode::kUnclosedQuote,
           Joined("This double quote in ", directive.Word,
                  " is never closed; the rest of the file is not read."));
      return false;
    }
    if (!directive.Moved) CheckPlace(directive, field, number, count);
    directiveLine_ = field.Line + static_cast<int>(std::ranges::count(field.Text, '\n'));
    directive.Fields.push_back(std::move(field));
  }
  return true;
}

void CheckedFile::CheckPlace(CheckedDirective& directive, const CheckedField& field, int number,
                             int count) {
  const bool location = count == kFullCardFields && number == 1;
  const bool remark = field.Text.starts_with("***") && field.Line > directive.Head.Line &&
                      text_[field.Offset - 1] != '"';
  if (!remark && (location || FindDirective(field.Text) == nullptr)) return;
  directive.Moved = true;
  Note(field.Offset, FindingCode::kMovedField,
       Joined(remark ? "A remark" : Joined("\"", field.Text, "\""), " stands where field ", number,
              " of ", directive.Word, " belongs; a field is missing before it."));
}

void CheckedFile::NoteWord(const CheckedField& field) {
  const std::string problem = ProblemOfWord(field.Text);
  if (problem.empty()) return;
  std::string sentence = problem + ".";
  if (sentence.front() >= 'a') sentence.front() = static_cast<char>(sentence.front() - 'a' + 'A');
  Note(field.Offset, FindingCode::kUnknownDirective, std::move(sentence),
       NearestWord(field.Text, DirectiveWords()));
}

/// Behind the fields of a directive, on its line, only another directive may follow.
void CheckedFile::NoteLeftOver(const CheckedField& field) {
  if (directives_.empty() || field.Text.empty() || field.Line != directiveLine_) return;
  if (directives_.back().Moved) return;
  for (const std::string_view remark : {"*", ";", "//", "--"}) {
    if (field.Text.starts_with(remark)) return;
  }
  directives_.back().Moved = true;
  Note(field.Offset, FindingCode::kMovedField,
       Joined("One field too many for ", directives_.back().Word,
              ": a comma inside a text needs double quotes around the text."));
}

}  // namespace brindlemoor
