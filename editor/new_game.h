// A new game for its author to go on from: rules, four cards, a starter deck, an opponent, a test.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

/// A file of the program's folder of the game.
struct NewGameFile {
  std::string Path;  ///< seen from that folder, as "Goblins.txt" or "goblins/1_Starter.txt"
  std::string Text;
};

/// Why a game can't have the name, "" when it can: it becomes part of file names.
std::string RefuseGameName(std::string_view name);

/// The files of a game that plays at once, without pictures; nothing is written.
std::vector<NewGameFile> FilesOfNewGame(std::string_view name);

}  // namespace brindlemoor
