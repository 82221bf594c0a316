// Filling the user's data folder with the games that come with the program.
#pragma once

#include <string>

#include "platform/machine_file.h"

namespace brindlemoor {

/// The turn of one start at filling the folder: of several at the same time those that have to fill
/// it wait until the first has done. What killed starts left beside the folder is taken away then.
class FillingTurn {
 public:
  FillingTurn(const std::string& folder, bool waits);

  /// True when a killed start has left something beside a folder that is filled.
  static bool IsDue(const std::string& folder);

 private:
  HeldFile held_;
};

/// True when the folder is missing, or a filling of it has begun and is not finished.
bool IsUnfilled(const std::string& folder);

/// Copies the games with all that is in their folder. A missing folder comes into being as a whole;
/// in one that is there the files that are missing are added, and a marker tells that they are not
/// all there yet. "" or what went wrong; then the next filling goes on.
std::string FillFolder(const std::string& games, const std::string& folder);

/// Removes what killed saves have left in a program's folder and its subfolders a day ago or
/// earlier.
void RemoveOldParts(const std::string& folder);

}  // namespace brindlemoor
