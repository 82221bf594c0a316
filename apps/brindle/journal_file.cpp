// Reading a journal that the command line names.
#include "apps/brindle/journal_file.h"

#include "journal/journal.h"
#include "platform/files.h"
#include "text/text.h"

namespace brindlemoor {

std::string ReadJournalFile(const std::string& path, Journal& journal) {
  const auto bytes = LocalFileSystem().Read(path);
  if (!bytes) return Joined("can't read ", path);
  const std::string problem = ReadJournal(*bytes, journal);
  if (!problem.empty()) return Joined("can't use ", path, ": ", problem);
  return journal.Folder.starts_with('/') ? "" : Joined("can't use ", path, ": its head is damaged");
}

}  // namespace brindlemoor
