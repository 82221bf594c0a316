// Which file holds what a player owns in a game.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/profiles.h"
#include "text/text.h"

namespace brindlemoor {

/// Name of the player file of the current profile for a game, under which it is saved:
/// "Ann_Goblins.plr", names encoded as file names are. Where two games have the name, and ever
/// since that was so, the rules file is part of it: "Ann_Goblins%~Goblins.txt.plr". "" for a number
/// that is no game, or one without a name.
std::string PlayerFileName(int gameIndex);

/// What the names of a player's files begin with, in every game: "Ann_".
std::string BeginningOfPlayerFiles(std::string_view player);

/// The files in the program's folder that are surely this player's, of one of kPlayersEndings.
std::vector<std::string> FilesOfPlayer(std::string_view player,
                                       std::string_view ending = kPlayerFileEnding);

/// Name of the file for a match of a game: the one above with another ending, "Ann_Goblins.match".
std::string MatchFileName(int gameIndex);
/// The same for how matches of the game ended: "Ann_Goblins.results".
std::string ResultsFileName(int gameIndex);

/// Name of the file to read for it: this one or, while it is not there, an earlier one that surely
/// is this player's and this game's.
std::string StoredPlayerFile(int gameIndex);

/// The player file in use: that of the game in progress, or at the list of games the one that was
/// read there. "" for none.
std::string OwnPlayerFileName();

/// The rules file that goes with it in the list of profiles.
Text RulesOfOwnFile();

/// Says in a message box when there is a file that StoredPlayerFile leaves alone, since it may be
/// somebody else's.
void TellPlayerFileLeftAlone(int gameIndex);

}  // namespace brindlemoor
