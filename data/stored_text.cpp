// Edits of a text, applied to the bytes of its file.
#include "data/stored_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/encoding.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsWithin(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// False when a text has a character that the encoding lacks.
bool EncodeAll(std::vector<TextEdit>& edits) {
  for (TextEdit& edit : edits) {
    auto encoded = EncodedAsWindows1252(edit.Text);
    if (!encoded) return false;
    edit.Text = std::move(*encoded);
  }
  return true;
}

std::string Applied(const std::string& bytes, const std::vector<TextEdit>& edits) {
  std::string out;
  std::size_t position = 0;
  for (const TextEdit& edit : edits) {
    const std::size_t begin = std::max(position, edit.Begin);
    out.append(bytes, position, begin - position);
    out += edit.Text;
    position = std::max(begin, edit.End);
  }
  return out.append(bytes, position);
}

}  // namespace

StoredText::StoredText(std::string bytes) : bytes_(std::move(bytes)) {
  text_ = DecodeFileText(bytes_);
  if (bytes_.starts_with(kByteOrderMark)) mark_ = kByteOrderMark.size();
  // Only UTF-8 loses its mark when it is decoded.
  hasOneByteCharacters_ = bytes_.compare(mark_, text_.size(), text_) != 0;
  if (hasOneByteCharacters_) mark_ = 0;
}

std::string_view StoredText::LineEnd() const {
  const std::size_t end = text_.find_first_of("\r\n");
  if (end == std::string::npos || text_.compare(end, 2, "\r\n") == 0) return "\r\n";
  return text_[end] == '\r' ? "\r" : "\n";
}

std::string StoredText::With(std::vector<TextEdit> edits) const {
  std::ranges::stable_sort(edits, {}, &TextEdit::Begin);
  if (hasOneByteCharacters_) {
    std::vector<TextEdit> encoded = edits;
    if (!EncodeAll(encoded)) return Applied(text_, edits);
    edits = std::move(encoded);
  }
  // From bytes of the text, which only grow, to bytes of the file.
  std::size_t read = 0;
  std::size_t characters = 0;
  const auto inFile = [&](std::size_t offset) {
    if (!hasOneByteCharacters_) return mark_ + offset;
    for (; read < offset; ++read) characters += IsWithin(text_[read]) ? 0 : 1;
    return mark_ + characters;
  };
  for (TextEdit& edit : edits) {
    edit.Begin = inFile(edit.Begin);
    edit.End = inFile(edit.End);
  }
  return Applied(bytes_, edits);
}

}  // namespace brindlemoor
