// Putting a game that was passed on into a program's folder: all of it or nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sharing/game_archive.h"

namespace brindlemoor {

class FileSystem;

/// What becomes of a file of the archive.
enum class FileFate : std::uint8_t {
  kNew,      ///< nothing of this name is there
  kSame,     ///< the very same file is there
  kDiffers,  ///< another file of this name is there
};

/// What opening an archive means for a folder.
struct OpeningPlan {
  std::vector<FileFate> Fates;       ///< of the archive's files, in their order
  std::vector<std::string> Remarks;  ///< what to think of, sentences
  std::string Problem;               ///< why it can't be put there at all, a sentence

  std::size_t Count(FileFate fate) const;
};

/// Compares an archive with a program's folder (absolute), which stays as it is.
OpeningPlan PlanOpening(const GameArchive& archive, FileSystem& files, const std::string& folder);

/// What shall become of files of the folder that differ from the archive's.
enum class Differing : std::uint8_t {
  kReplace,   ///< the old ones are kept beside as "Cards.txt.old~"
  kKeepMine,  ///< they stay, and the archive's are not taken
};

struct OpeningResult {
  std::size_t Written = 0;  ///< files that are there now and were not before
  /// What the replaced files are called now, in the program's folder.
  std::vector<std::string> Kept;
  std::string Problem;  ///< a sentence; then the folder is as it was, or the text says what is not
};

/// Puts the files of an archive into a program's folder. They are written aside first, then moved
/// into their places; a program that is ended in between leaves that to FinishOpening. One program
/// at a time opens archives in a folder.
OpeningResult OpenInFolder(const GameArchive& archive, const OpeningPlan& plan, Differing differing,
                           FileSystem& files, const std::string& folder);

/// Brings to its end what a program that was ended has left in a folder: files that were all
/// written are moved into their places, others are removed. Says what was done; "" for nothing.
std::string FinishOpening(FileSystem& files, const std::string& folder);

}  // namespace brindlemoor
