// TurnRecord: what the last turn changed, as a window may tell it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/text.h"

namespace brindlemoor {

/// What became of a card that is seen on the table, or of the player's hand.
enum class CardFate : std::uint8_t {
  kHitPoints,     ///< it has more or fewer than before
  kCame,          ///< it is on the table now
  kDied,          ///< it had hit points and is nowhere now
  kWent,          ///< it is on the table no longer
  kChangedSides,  ///< it belongs to the other side now
  kDrawn,         ///< it is in the player's hand now
};

struct CardNews {
  CardFate Fate = CardFate::kCame;
  int Side = 0;  ///< of the card, after the turn where it is still there
  Text Name;
  double Change = 0;  ///< of its hit points
  double Left = 0;    ///< hit points now
};

/// Something that the player planned and that came to nothing.
struct RefusedPlan {
  std::string Name;    ///< plain text
  std::string Reason;  ///< a sentence, "" where none is known
};

struct TurnRecord {
  int Turn = 0;         ///< its number in the match, 0 for the one that begins it
  bool IsTold = false;  ///< somebody looks; a simulation tells nobody, and nothing is gathered
  std::string Said{};   ///< by scripts, as the report shows it
  std::vector<CardNews> News{};
  std::vector<RefusedPlan> Refusals{};
  std::int32_t Tokens = 0;  ///< that the player has more than before
};

/// Notes in the session's record what came to nothing.
void NoteRefusal(std::string name, std::string reason);

}  // namespace brindlemoor
