// HiddenCards: what a side at the table does not see.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// The other side's hand and pile, the own pile's order, what the other side has lined up, and what
/// chance will bring. Which cards they are together is no secret: a player has seen the deck.
class HiddenCards {
 public:
  /// Brings what the side does not see into an order that tells nothing of how it lies: sessions
  /// that differ in hidden things alone become the same session.
  static void Forget(int side);
  /// Deals what was forgotten anew, by the session's random source.
  static void Deal(int side);
};

}  // namespace brindlemoor
