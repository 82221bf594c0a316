// What runs of scripts ask of the floors above them.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// What is to become of a price that can be paid.
enum class Payment : std::uint8_t { kIsTested, kIsMade };

/// A row of calls that a session is given when it is opened (game/session_opening.h).
struct RunServices {
  /// Takes the cards out of a card file for a side, without duplicates, to the location; whatever
  /// else is written in it changes nothing. False when the file can't be read.
  bool (*TakeCardsOut)(std::string_view file, PlayerState& player, std::string_view location);
  /// Tests a card's price, and pays it where that is wanted. False when it can't be paid.
  bool (*PayCost)(const Card& card, Payment payment);
  /// Ends the game in progress and saves the player.
  void (*EndGame)();
};

/// Those of the session.
const RunServices& Services();

}  // namespace brindlemoor
