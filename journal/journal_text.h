// The text of a journal: one record per line, a word and its fields.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

using JournalFields = std::vector<std::string>;

/// A line of a journal as it was read.
struct JournalRecord {
  int Line = 0;  ///< 1-based
  std::string Word;
  JournalFields Fields;
};

/// A text as a field: as it is where it is a plain word, else in quotes, with escapes for what
/// would end the line or the quotes and for bytes that are no UTF-8.
std::string JournalField(std::string_view text);

/// The line of a record, without a line end.
std::string JournalLine(std::string_view word, const JournalFields& fields);

/// Takes a line apart; false for one that no record gives.
bool ReadJournalLine(std::string_view line, JournalRecord& record);

}  // namespace brindlemoor
