// ShippedList: the files that come with the program, in each edition of its games.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace brindlemoor {

/// Where the list lies in the folder of the games that come with the program. It is copied with
/// them, so in the user's folder it tells what was put there. tools/shipped_files.py writes it.
inline constexpr std::string_view kShippedList = "ShippedFiles.list";

/// Hashes of files by their names in the program's folder ("wickwater/WickwaterCards.txt").
using FileHashes = std::map<std::string, std::string>;

struct ShippedList {
  FileHashes First;   ///< of the first edition, which was copied without its list
  FileHashes Latest;  ///< of the edition that the list came with
  std::set<std::pair<std::string, std::string>> Known;  ///< name and hash, of all editions
};

/// Reads the bytes of a list; nothing where they are none, or where a line of them is wrong.
std::optional<ShippedList> ReadShippedList(std::string_view bytes);

}  // namespace brindlemoor
