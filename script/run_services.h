// What runs of scripts ask of the floors above them.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// A row of calls that a session is given when it is opened (game/session_opening.h).
struct RunServices {
  /// Takes the cards out of a card file for a side, without duplicates, to the location; whatever
  /// else is written in it changes nothing. False when the file can't be read.
  bool (*TakeCardsOut)(std::string_view file, PlayerState& player, std::string_view location);
  /// Tests (mode 1) or tests and pays (mode 0) a card's price: -1 when it can be paid, 0 when not.
  int (*PayCost)(const Card& card, int mode);
  /// Ends the game in progress and saves the player.
  void (*EndGame)();
};

/// Those of the session.
const RunServices& Services();

}  // namespace brindlemoor
