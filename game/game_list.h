// Finding games and opponents in the program's folder, and the page that lists them.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Fills Games from the ".txt" files of the program's folder and the games' subfolders.
void DiscoverGames();

/// Index of the game with a name, in any case, or of the first one for "". 0 when there is none;
/// then problem says what there is.
int FindGame(std::string_view name, std::string& problem);

/// Index of the game that new files belong to: the current one, else that of the card set's rules
/// file, else the only game there is. 0 when that is not clear.
int GameOfNewFiles();

/// True for a file that is a starter deck or a card store.
bool IsStarterDeck(const std::string& path);

/// The HTML of the game list.
std::string ComposeGameList();

/// Composes, writes and shows the game list page.
void ShowGameList();

}  // namespace brindlemoor
