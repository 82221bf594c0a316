// Journal: the file of a journal, read.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "journal/journal_text.h"

namespace brindlemoor {

class JournalWriter;

inline constexpr std::string_view kSessionJournal = "session";
inline constexpr std::string_view kMatchJournal = "match";
inline constexpr std::string_view kSimulationJournal = "simulation";

/// What the head of a journal says, and the records behind it.
struct Journal {
  std::string Program;  ///< version
  std::string Kind;
  std::string Folder;  ///< the program's folder, absolute
  std::map<std::string, std::string> Options{};
  std::vector<JournalRecord> Files{};    ///< the state of the folder, see start_state.h
  std::vector<JournalRecord> Records{};  ///< what happened
  bool Ended = false;                    ///< the program ended in order

  /// An option that is a number; 0 for one that is missing or none.
  std::uint64_t Number(const std::string& option) const;
};

/// Writes a journal's head; what happens follows.
void WriteHead(JournalWriter& writer, const Journal& head);

/// Reads the bytes of a journal. A last line without its end counts for nothing: the program was
/// cut off there. "" or what is wrong with the file.
std::string ReadJournal(std::string_view bytes, Journal& journal);

}  // namespace brindlemoor
