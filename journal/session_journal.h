// Journals of sessions with windows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "journal/journal_tape.h"

namespace brindlemoor {

class ArchiveLibrary;
class FileSystem;
class JournalWriter;

/// How the recorded program was started.
struct SessionStart {
  std::string Folder;  ///< absolute
  bool Debug = false;
  std::optional<std::uint64_t> Seed;
  int Copy = 1;  ///< of the programs that ran on the folder
};

/// Writes the head of a session's journal: the start and the state of the program's folder.
void WriteSessionHead(JournalWriter& writer, const SessionStart& start, FileSystem& files);

/// How a journal is played again.
struct ReplayOptions {
  std::string Folder;  ///< where the journal's folder lies now, absolute; nothing in it is changed
  /// Gets every page and other text file that the replay writes.
  std::function<void(const std::string& name, std::string_view bytes)> OnText{};
  /// Gets, before the replay begins, what differs in the files that the program started with.
  std::function<void(const std::vector<std::string>& differences)> OnFiles{};
  /// What reads the archives that the user opened; nullptr for the plain format of tests.
  std::shared_ptr<const ArchiveLibrary> Archives{};
  /// Called when a turn of a match is about to be taken, with everything planned.
  std::function<void()> BeforeTurn{};
};

/// Plays a session again, up to its first difference. Begins with a fresh session and leaves one.
ReplayResult ReplaySession(const Journal& journal, const ReplayOptions& options);

}  // namespace brindlemoor
