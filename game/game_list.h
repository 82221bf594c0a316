// Finding games and opponents in the program's folder, and the page that lists them.
#pragma once

#include <string>

namespace brindlemoor {

/// Fills Games from the ".txt" files of the program's folder and the games' subfolders.
void DiscoverGames();

/// The HTML of the game list.
std::string ComposeGameList();

/// Composes, writes and shows the game list page.
void ShowGameList();

}  // namespace brindlemoor
