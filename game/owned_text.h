// What a player owns, as the text of a player file.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

struct OwnedText {
  std::string File;  ///< the bytes of the player file
  std::string Hash;  ///< of the same in whatever order the cards lie: sorting is no change
};

/// Cards, decks and their names, and tokens of the session's player.
OwnedText TextOfOwned();

/// "12 cards and 30 tokens", of the text of a player file.
std::string ContentsOf(std::string_view text);

}  // namespace brindlemoor
