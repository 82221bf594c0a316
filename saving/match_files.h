// The files that a match was read from, and whether they are still the same.
#pragma once

#include <string>
#include <vector>

#include "core/match_record.h"

namespace brindlemoor {

/// Notes in the record of the match (MatchRecord::Files) those files that it does not know yet:
/// rules, opponent, the card files of the game's folder, and where cards came from otherwise. What
/// has been noted once is not read again, and what can't be read is not noted.
void NoteMatchFiles();

/// A line for each file that is not what it was: "goblins/Cards.txt has changed".
std::vector<std::string> ChangedFiles(const std::vector<MatchFile>& files);

/// The files count from now on as they are.
void TakeFilesAsTheyAre(std::vector<MatchFile>& files);

}  // namespace brindlemoor
