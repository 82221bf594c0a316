// Card files as other card files, scripts and stored cards name them.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What a reference to a card file may mean.
struct ReferencedFile {
  std::string Path;             ///< "" when there is none
  std::string Twin = {};        ///< a second file of this name, where no game says which is meant
  bool TooManyFolders = false;  ///< so many that no second one was looked for

  /// False when another file may be meant as well.
  bool IsSure() const { return Twin.empty() && !TooManyFolders; }
};

/// The file of this name in the folder of the game in progress (in the program's folder, for a game
/// without one), in any case of letters. "" for none, and without a game.
std::string FileOfOwnGame(std::string_view file);

/// The file that a reference means: that of the game in progress, else the one that ResolvePath
/// finds. Where that decides, all other files of the name, in any case of letters, are its twins.
ReferencedFile FindReferencedFile(std::string_view file);

/// The same for a reader or script, which takes the first of two files: they are kept as a problem
/// then, and Session::TwinsTaken counts.
std::string TakeReferencedFile(std::string_view file);

/// Keeps as a problem of a reference, once, which files it may mean and what comes of that.
void AddTwins(std::string_view file, const ReferencedFile& found, std::string_view outcome);

/// Keeps a problem of a file as a whole unless its message, of fewer than 4,000 bytes, is kept.
void AddProblemOnce(std::string_view file, std::string_view message);

}  // namespace brindlemoor
