// Which names a file of a passed-on game may have.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlemoor {

/// What the ending of a name says that a file of a game is.
enum class GameFileKind : std::uint8_t { kNone, kText, kPicture, kPage, kStyle };

GameFileKind KindOfGameFile(std::string_view name);

/// True for a page or list that the program keeps under this name itself, in any case of letters
/// and for every copy of the program: it is part of no game.
bool IsProgramsOwn(std::string_view fileName);

/// Folders of a passed-on game lie directly in the program's folder.
inline constexpr std::size_t kMostEntryParts = 2;

/// Why no file can lie under this name ("goblins/Cards.txt") in a program's folder or one directly
/// below, on any system, in words that go on from it; "" when one can.
std::string WhyNoPlace(std::string_view name);
/// The same for a file of a game in an archive, which is of a kind that games have and none of the
/// program's own.
std::string WhyNoEntry(std::string_view name);
/// The same for a folder; a "/" behind it does not count.
std::string WhyNoFolderEntry(std::string_view name);

}  // namespace brindlemoor
