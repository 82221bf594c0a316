// A game in one file: what strangers' archives hold, read with suspicion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/archive_library.h"

namespace brindlemoor {

/// The bounds of an archive. What is unpacked is counted; what headers say of it is not asked.
inline constexpr std::size_t kMostEntries = 10'000;
inline constexpr std::size_t kMostUnpacked = std::size_t{256} << 20;  ///< bytes of all files
/// Beyond so many bytes an archive must not unpack to more than so many times its own size.
inline constexpr std::size_t kFreelyUnpacked = std::size_t{16} << 20;
inline constexpr std::size_t kMostGrowth = 100;

/// What an archive holds, all of it or nothing.
struct GameArchive {
  std::vector<ArchiveFile> Files;  ///< by name
  std::vector<std::string> Games;  ///< the names of the games
  std::size_t Bytes = 0;           ///< of all files
  std::string Problem;             ///< why it is refused, a sentence; then there is nothing else
};

/// Reads an archive by the library of the desktop. It is refused as a whole if it is damaged, goes
/// beyond a bound, holds no game, or has an entry that is no plain file or folder, is encrypted,
/// has a name that no file of a game can have (sharing/entry_names.h) or one that is there twice,
/// in any case of letters.
GameArchive ReadGameArchive(std::string_view archive);

/// The name of the game that a text file declares, on one line; "" for none.
std::string GameDeclaredBy(const std::string& bytes);

/// A number of bytes for people, rounded up: "1.2 MB".
std::string SizeText(std::size_t bytes);

}  // namespace brindlemoor
