// FieldStream: a text file read field by field, as card files and profile lists are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlemoor {

/// Fields end at a comma or a line end; blanks before one are skipped; a field in double quotes may
/// hold commas and line ends and has no escape. What stands between a closing quote and the end of
/// its field is dropped. LF, CR LF and CR end lines; an empty line is an empty field.
class FieldStream {
 public:
  /// Takes the bytes of a file (UTF-8 or Windows-1252).
  explicit FieldStream(std::string bytes);
  /// Reads the next field. False at the end of the file.
  bool Read(std::string& field);
  /// 1-based line on which the field read last began.
  int Line() const { return fieldLine_; }
  /// Byte of Text() at which the content of the field read last began, behind a double quote.
  std::size_t Offset() const { return fieldOffset_; }
  /// Bytes of Text() that are read.
  std::size_t Position() const { return position_; }
  /// The decoded text of the file.
  const std::string& Text() const { return text_; }
  /// True when the field read last began with a double quote that the file never closes.
  bool Unclosed() const { return unclosed_; }

 private:
  void ReadPlain(std::string& field);
  void ReadQuoted(std::string& field);
  void SkipEnd();

  std::string text_;
  std::size_t position_ = 0;
  int line_ = 1;
  int fieldLine_ = 1;
  std::size_t fieldOffset_ = 0;
  bool unclosed_ = false;
};

}  // namespace brindlemoor
