// The state in which a program's folder was when the program started.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "journal/journal_text.h"

namespace brindlemoor {

class FileSystem;

/// Files that change from start to start: those of players, copies of unsaved cards and the marker
/// of the debug mode. A journal keeps them whole.
bool IsKeptWhole(std::string_view path);

/// Files whose bytes a replay neither makes nor compares: pictures and documents for printing.
bool IsOpaque(std::string_view path);

/// The records "keep NAME TEXT" of the files that are kept whole, of a folder and its direct
/// subfolders: without what a link or a file that can't be read holds. The files lead no further
/// than that folder from then on.
std::vector<JournalRecord> KeptFilesOf(FileSystem& files, const std::string& folder);

/// Those records, "file NAME HASH" for the other card files and "others FOLDER HASH" for the names
/// of what else lies in a folder (pages left out, they are made anew).
std::vector<JournalRecord> StartStateOf(FileSystem& files, const std::string& folder);

/// What differs between two such states, a line for each file.
std::vector<std::string> StateDifferences(const std::vector<JournalRecord>& journal,
                                          const std::vector<JournalRecord>& now);

}  // namespace brindlemoor
