// The cutting of a text into fields.
#include "data/field_stream.h"

#include <utility>

#include "text/encoding.h"

namespace brindlemoor {

namespace {

bool IsBlank(char character) { return character == ' ' || character == '\t'; }
bool EndsField(char character) {
  return character == ',' || character == '\n' || character == '\r';
}

/// Number of line ends in a text; CR LF counts once.
int LineEnds(std::string_view text) {
  int count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) ++count;
    if (text[i] == '\r') ++count;
  }
  return count;
}

}  // namespace

FieldStream::FieldStream(std::string bytes) : text_(DecodeFileText(std::move(bytes))) {}

bool FieldStream::Read(std::string& field) {
  field.clear();
  unclosed_ = false;
  if (position_ >= text_.size()) return false;
  while (position_ < text_.size() && IsBlank(text_[position_])) ++position_;
  fieldLine_ = line_;
  fieldOffset_ = position_;
  if (position_ < text_.size() && text_[position_] == '"') {
    ReadQuoted(field);
  } else {
    ReadPlain(field);
  }
  SkipEnd();
  return true;
}

void FieldStream::ReadPlain(std::string& field) {
  const std::size_t start = position_;
  while (position_ < text_.size() && !EndsField(text_[position_])) ++position_;
  field.assign(text_, start, position_ - start);
}

void FieldStream::ReadQuoted(std::string& field) {
  const std::size_t start = position_ + 1;
  fieldOffset_ = start;
  const std::size_t quote = text_.find('"', start);
  unclosed_ = quote == std::string::npos;
  const std::size_t end = unclosed_ ? text_.size() : quote;
  field.assign(text_, start, end - start);
  line_ += LineEnds(field);
  position_ = unclosed_ ? end : end + 1;
  while (position_ < text_.size() && !EndsField(text_[position_])) ++position_;
}

void FieldStream::SkipEnd() {
  if (position_ >= text_.size()) return;
  const char end = text_[position_++];
  if (end == ',') return;
  if (end == '\r' && position_ < text_.size() && text_[position_] == '\n') ++position_;
  ++line_;
}

}  // namespace brindlemoor
