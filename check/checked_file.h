// CheckedFile: a card file cut into directives and fields, each with its place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "data/directives.h"

namespace brindlemoor {

struct CheckedField {
  std::string Text;
  std::size_t Offset = 0;  ///< byte of the file's text at which Text begins
  int Line = 0;            ///< on which the field begins
};

/// A directive with the fields that the reader takes for it.
struct CheckedDirective {
  std::string_view Word;
  const DirectiveRow* Row = nullptr;  ///< nullptr for a directive of the game list
  CheckedField Head;                  ///< the word itself
  std::vector<CheckedField> Fields;
  bool Moved = false;  ///< a finding says already that a field is missing or too many
};

/// The same walk as that of the card reader; nothing of the session changes.
class CheckedFile {
 public:
  static constexpr std::size_t kMostFindings = 10'000;  ///< that are kept of one file

  /// path is what findings name; bytes are the file's.
  CheckedFile(std::string path, std::string bytes);

  const std::string& Path() const { return path_; }
  /// The decoded text, which the fields are places of.
  const std::string& Text() const { return text_; }
  const std::vector<CheckedDirective>& Directives() const { return directives_; }
  /// What was wrong with the words and the cutting of fields.
  const std::vector<Finding>& Findings() const { return findings_; }

  FilePlace PlaceOf(std::size_t offset) const;
  Finding At(std::size_t offset, FindingCode code, std::string text,
             std::string suggestion = {}) const;

 private:
  /// Characters before a byte of the text.
  std::size_t CharactersTo(std::size_t offset) const;
  void Walk(class FieldStream& stream);
  bool ReadFields(class FieldStream& stream, CheckedDirective& directive, int count);
  void NoteWord(const CheckedField& field);
  void NoteLeftOver(const CheckedField& field);
  /// Says so when a field can't be one of the directive's.
  void CheckPlace(CheckedDirective& directive, const CheckedField& field, int number, int count);
  void Note(std::size_t offset, FindingCode code, std::string text, std::string suggestion = {});

  std::string path_;
  std::string text_;
  std::vector<std::size_t> lineStarts_;
  std::vector<std::size_t> characters_;  ///< before each block of bytes
  std::vector<CheckedDirective> directives_;
  std::vector<Finding> findings_;
  int directiveLine_ = 0;  ///< on which the last field of the last directive ended
};

}  // namespace brindlemoor
