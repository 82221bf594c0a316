// Which files of a folder make up a game.
#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// A file that goes with a game.
struct GameFile {
  std::string Path;
  std::string Name;  ///< in the program's folder: "goblins/Cards.txt"
};

struct GameContents {
  std::vector<GameFile> Files;  ///< by name
  /// Files of the program's folder and the folders directly below that are no part of the game, and
  /// the folders in those, by name.
  std::vector<std::string> LeftOut;
  std::vector<std::string> Problems;  ///< what is named and missing: "Cards.txt, line 3: …"
  std::vector<std::string> Remarks;   ///< what can't be told
};

/// Follows a game of the list from its rules: card files as the engine looks for them, pictures,
/// help pages with what they show and lead to, and the tests of this game in the folder "tests". A
/// file that lies above the program's folder goes into it. Players' files and the program's own
/// pages are never part of a game. The game becomes the one in progress.
GameContents ContentsOfGame(int gameIndex);

}  // namespace brindlemoor
