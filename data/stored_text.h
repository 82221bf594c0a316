// StoredText: a text file as it is stored, changed in places.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// What comes in place of a piece of a text; with Begin equal to End it comes between.
struct TextEdit {
  std::size_t Begin;  ///< byte of the decoded text
  std::size_t End;
  std::string Text;  ///< UTF-8
};

/// What no edit touches keeps its bytes: encoding, byte order mark and line ends too.
class StoredText {
 public:
  StoredText() = default;
  explicit StoredText(std::string bytes);

  const std::string& Bytes() const { return bytes_; }
  /// As UTF-8.
  const std::string& Text() const { return text_; }
  /// What ends the first line; CR LF where there is only one line.
  std::string_view LineEnd() const;
  /// The bytes after the edits, which do not overlap; those of one place come in their order. Where
  /// the file is no UTF-8 and lacks a character of theirs, all of it becomes UTF-8.
  std::string With(std::vector<TextEdit> edits) const;

 private:
  std::string bytes_;
  std::string text_;
  std::size_t mark_ = 0;               ///< bytes of the byte order mark
  bool hasOneByteCharacters_ = false;  ///< Windows-1252
};

}  // namespace brindlemoor
