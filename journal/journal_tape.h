// JournalTape: the records of a journal, taken one after the other by a replay.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "journal/journal.h"

namespace brindlemoor {

/// Leaves the logic when a replay is over: at its first difference, or where the journal was cut
/// off. Nothing that the logic does afterwards would say anything, and a loop that asks until it is
/// answered would never end.
struct ReplayStopped {};

/// What a replay came to.
struct ReplayResult {
  std::string Problem{};     ///< why the journal can't be used, "" when it can
  std::string Difference{};  ///< the first, "" when there is none
  bool CutOff = false;       ///< the journal has no end
  int Events = 0;            ///< that were delivered, or matches that were played
  int Texts = 0;             ///< pages and other text files, and results of matches, found equal
};

class JournalTape {
 public:
  explicit JournalTape(std::vector<JournalRecord> records) : records_(std::move(records)) {}

  /// The record that comes next; nullptr at the end of the journal, or when the replay is over.
  const JournalRecord* Next() const;
  /// Takes the next record, which is there.
  const JournalRecord& Take() { return records_[next_++]; }

  /// Takes the next record, which must be of that word and begin with those fields; otherwise the
  /// replay is over. doing says what the program does, for whoever reads the difference.
  const JournalRecord& Expect(std::string_view word, std::initializer_list<std::string_view> fields,
                              std::string_view doing);
  /// Compares a text that the program writes with the record that comes next.
  void ExpectText(const std::string& name, std::string_view bytes);

  /// The replay is over: the program does something else than the journal says.
  [[noreturn]] void Differ(std::string_view what);
  /// The replay is over, as the journal is.
  [[noreturn]] void Stop();
  /// The replay is over: a record can't be one that a program wrote.
  [[noreturn]] void Damaged(const JournalRecord& record);
  bool Stopped() const { return stopped_; }

  /// What the user is doing, for whoever reads a difference.
  std::string Doing = "the start of the program";
  ReplayResult Result;

 private:
  const std::vector<JournalRecord> records_;
  std::size_t next_ = 0;
  std::map<std::string, std::string> texts_;  // the last version of each
  bool stopped_ = false;
};

/// A record in a few words.
std::string Shown(const JournalRecord& record);

}  // namespace brindlemoor
