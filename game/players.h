// The players of a folder: their names and files change together.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// What a player's files hold, a game a line: "Wickwater: 31 cards and 540 tokens". "" for a player
/// without any.
std::string HoldingsOf(std::string_view player);

/// Gives a player another name, and the files with what is owned along with it. "" or why nothing
/// was changed.
std::string RenamePlayer(std::string_view player, std::string_view name);

/// Takes a player out of the list, and the files of what is owned away. "" or what went wrong.
std::string DeletePlayer(std::string_view player);

/// Who played last on this folder, "" for nobody.
std::string LastPlayer();
void NoteLastPlayer(std::string_view player);

}  // namespace brindlemoor
