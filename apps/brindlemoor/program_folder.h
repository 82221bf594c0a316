// Which folder the program works in.
#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// What the choice of the folder depends on.
struct FolderChoice {
  std::string Argument;  ///< the folder of the command line, "" for none
  std::string ExecutableFolder;
  std::string DataHome;                   ///< value of XDG_DATA_HOME, "" for none
  std::string Home;                       ///< value of HOME
  std::vector<std::string> ShippedGames;  ///< where the games that come with the program may lie
};

/// The program's folder, absolute, or what is wrong.
struct ProgramFolderResult {
  std::string Folder;
  std::string Error;  ///< "" when Folder can be used
  /// Where the games lie that the user's own folder is filled and kept up to date with; "" for any
  /// other folder.
  std::string Shipped{};
};

/// The folder of the command line; else the executable's folder if it holds games; else the user's
/// data folder, which gets a copy of the shipped games when it holds none.
ProgramFolderResult FindProgramFolder(const FolderChoice& choice);

/// True when a text file directly in the folder declares a game.
bool HoldsGames(const std::string& folder);

}  // namespace brindlemoor
