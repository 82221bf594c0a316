// Bringing the games that come with a newer program into the user's folder.
#pragma once

#include <string>

namespace brindlemoor {

class FileSystem;

/// Replaces and removes what the user has not touched in a folder (absolute) that was filled with
/// the shipped games, adds what is new, and leaves the rest as it is: all of that or nothing. What
/// a program that was ended has left of an update is brought to its end before. Says what was done,
/// what stayed because it is the user's, or what went wrong; "" where nothing of that is. Without a
/// newer edition two lists are read and no other file.
std::string UpdateGames(FileSystem& files, const std::string& folder, const std::string& shipped);

}  // namespace brindlemoor
