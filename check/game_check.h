// Checking whole folders and lists of card files, across their files.
#pragma once

#include <string>
#include <vector>

#include "check/finding.h"

namespace brindlemoor {

struct CheckResult {
  std::vector<Finding> Findings;  ///< sorted by place
  int Files = 0;                  ///< that were read
  bool CouldRead = true;          ///< false when a path, or a file of a folder, could not be read
};

/// Checks files, and the card files of folders and of their direct subfolders. The program's folder
/// of either is its own or the one above, whichever has the game; of a game's subfolder only the
/// findings in its files are told. What only all files of a game can tell (traits that nothing
/// gives, decks that break the rules) is checked for folders. Reads through the desktop of the
/// session, which stays as it is.
CheckResult CheckPaths(const std::vector<std::string>& paths);

/// The program's folder of the game that the files of a folder belong to: that folder, or the one
/// above, whichever has a game; "" when neither has. Reads through the desktop of the session.
std::string FolderOfGame(const std::string& folder);

}  // namespace brindlemoor
