// JournalWriter: appends records to the file of a journal.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "journal/journal_text.h"
#include "platform/machine_file.h"

namespace brindlemoor {

inline constexpr std::string_view kJournalExtension = ".journal";

/// Every record is in the file before the call returns, so a program that crashes or is killed
/// leaves its journal. Processes that a process with a journal starts as its copies may share it.
class JournalWriter {
 public:
  JournalWriter() = default;
  JournalWriter(const JournalWriter&) = delete;
  JournalWriter& operator=(const JournalWriter&) = delete;

  /// Begins a journal at a path, or in a folder under a name of the time. A file or a link that is
  /// there already is not touched. "" or why there can be no journal.
  std::string Open(const std::string& path);
  const std::string& Path() const { return path_; }
  /// False before Open, and after a failure.
  bool Works() const { return file_.IsOpen(); }
  /// True when a record could not be written: the journal lacks its end.
  bool Failed() const { return failed_; }

  /// Told once when a record can't be written; none is written from then on.
  std::function<void(const std::string& problem)> OnFailure;

  void Add(std::string_view word, const JournalFields& fields = {});
  /// The program ended in order: the last record. What is told afterwards counts for nothing.
  void End();
  /// A page or another text file that the program writes, as what it changes of the version before.
  void AddText(const std::string& name, std::string_view bytes);

 private:
  void Fail(std::string_view reason);

  GrowingFile file_;
  bool failed_ = false;
  std::size_t written_ = 0;
  std::string path_;
  std::map<std::string, std::string> texts_;  // the last version of each
};

}  // namespace brindlemoor
