// The profile list "PlayerProfiles.txt".
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Fills Profiles from the list in the program's folder; one free element when there is none.
void LoadProfiles();
/// Writes the list, the current profile copied onto its line. Says so when that fails.
void SaveProfiles();
/// Changes the line of a player in the list on the disk; a line without a name takes it out. "" or
/// what went wrong.
std::string ReplaceProfile(std::string_view name, const ProfileRec& line);
/// Takes a player for this program, to its end. False when another program on the folder has them.
bool HoldPlayer(std::string_view name);
/// Lets other programs have the player again.
void ReleasePlayer(std::string_view name);
/// What names of the files end with that hold what a player owns, a match that shall go on, how
/// matches ended, and what the player has chosen.
inline constexpr std::string_view kPlayerFileEnding = ".plr";
inline constexpr std::string_view kMatchFileEnding = ".match";
inline constexpr std::string_view kResultsFileEnding = ".results";
inline constexpr std::string_view kSettingsFileEnding = ".settings";
inline constexpr std::array<std::string_view, 4> kPlayersEndings = {
    kPlayerFileEnding, kMatchFileEnding, kResultsFileEnding, kSettingsFileEnding};

/// True for the files that the program writes for its players: those of kPlayersEndings, the
/// profile list and who played last.
bool BelongsToPlayers(std::string_view path);
/// True for the path of a text file that is none of those: rules, opponents, decks.
bool IsCardFileName(std::string_view path);

/// Names the player of the last run.
inline constexpr std::string_view kLastPlayerFile = "LastPlayer.settings";

/// The most bytes that a player's name may take in the name of a file.
inline constexpr std::size_t kPlayerNameBytes = 100;

/// Why a name can't be the beginning of a file name such as "Rook_Starter.txt", "" when it can.
std::string RefuseNameInFiles(std::string_view name);
/// Why a player's name can't be taken, "" when it can: it becomes part of a file name.
std::string RefusePlayerName(std::string_view name);

}  // namespace brindlemoor
