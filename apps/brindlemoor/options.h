// The command line of the desktop program.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brindlemoor {

struct Options {
  std::string Folder;
  std::string Archive;  ///< of a game, to be opened at the start; "" for none
  std::optional<std::uint64_t> Seed;
  std::string Journal;  ///< file or folder for the journal of the session, "" for none
  bool Debug = false;
  bool Compose = false;                  ///< card images of the folder, and no windows
  std::optional<std::uint64_t> Quality;  ///< of composed images, from 0 to 100
  bool Help = false;
  bool Version = false;
  std::string Error;  ///< what is wrong with the command line, "" when it is right
};

/// arguments are those behind the program's name.
Options ReadOptions(const std::vector<std::string>& arguments);

/// What --help prints.
const char* HelpText();

}  // namespace brindlemoor
