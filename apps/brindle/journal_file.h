// Reading a journal that the command line names.
#pragma once

#include <string>

namespace brindlemoor {

struct Journal;

/// "" or why it can't be used.
std::string ReadJournalFile(const std::string& path, Journal& journal);

}  // namespace brindlemoor
