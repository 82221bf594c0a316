// The parts of the program that read what strangers wrote, each as a function of some bytes.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

struct FuzzTarget {
  std::string_view Name;
  /// Works on an input in a fresh session. Ends the program when something that must hold does not.
  void (*Run)(std::string_view bytes);
  /// Inputs from the shipped games, to begin with.
  std::vector<std::string> (*Corpus)(const std::string& gamesFolder);
};

std::span<const FuzzTarget> FuzzTargets();
const FuzzTarget* FindFuzzTarget(std::string_view name);

// The functions of the targets, each in the file of its name.
void FuzzCardFile(std::string_view bytes);     ///< a card data file: read, checked, written
void FuzzScript(std::string_view bytes);       ///< lines of scripts for every trigger of a table
void FuzzValue(std::string_view bytes);        ///< a value expression
void FuzzMessage(std::string_view bytes);      ///< a message, and lines of custom strings
void FuzzPage(std::string_view bytes);         ///< what stands on a page, written and read
void FuzzPlayerFile(std::string_view bytes);   ///< a player file: read, saved, read again
void FuzzProfileList(std::string_view bytes);  ///< the list of profiles, likewise
void FuzzLinks(std::string_view bytes);        ///< lines of addresses that are clicked in a match
void FuzzImage(std::string_view bytes);        ///< a picture file by way of the image bridge
void FuzzMatch(std::string_view bytes);        ///< a game folder (see FolderText): a whole match
void FuzzSavedMatch(std::string_view bytes);   ///< the file of a match: read, played, composed
void FuzzArchive(std::string_view bytes);      ///< an archive of a game: read, opened twice
void FuzzFolder(std::string_view bytes);       ///< a folder of the disk (see MadeFolder): all of it
void FuzzServer(std::string_view bytes);       ///< a card file that is typed, or frames ("@raw")
void FuzzWriters(std::string_view bytes);      ///< steps of two programs on one folder

}  // namespace brindlemoor
