// The profile list "PlayerProfiles.txt".
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// Fills Profiles from the list in the program's folder; one free element when there is none.
void LoadProfiles();
/// Writes the list, the current profile copied onto its line. Says so when that fails.
void SaveProfiles();
/// True for the files that the program writes for its players: player files and the profile list.
bool BelongsToPlayers(std::string_view path);

/// Characters that no file name can hold on some system.
inline constexpr std::string_view kNotInFileNames = "/\\:*?\"<>|";

/// Why a name can't be part of a file name, "" when it can.
std::string RefuseNameInFiles(std::string_view name);
/// Why a player's name can't be taken, "" when it can: it becomes part of a file name.
std::string RefusePlayerName(std::string_view name);

}  // namespace brindlemoor
