// MatchLog: what happens in a match, noted for whoever counts it.
#pragma once

#include <cstdint>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

enum class MatchEvent : std::uint8_t {
  kDrawn,   ///< a card came from the draw pile into the hand of a side
  kPlayed,  ///< a side paid a card and put it on the table
  kWon,     ///< a script gave the match to a side
};

struct LoggedEvent {
  MatchEvent Kind = MatchEvent::kDrawn;
  int Side = 0;
  Text UniqueID;  ///< of the card
  Text Name;
};

/// What the computer thought of a card in a hand when it looked through it.
struct LoggedWorth {
  Text UniqueID;
  Text Name;
  bool Payable = false;
  double Worth = 0;  ///< PRIORITY and all
};

/// What happened in one match, in order.
struct MatchLog {
  std::vector<LoggedEvent> Events;
  std::vector<LoggedWorth> Worths;
};

/// Notes an event, if somebody keeps a log (Session::Log).
void LogMatchEvent(MatchEvent kind, int side, const Card& card);

void LogWorth(const Card& card, bool payable, double worth);

/// The side to which scripts gave the match, 0 for none or for both.
int WinnerOf(const MatchLog& log);

}  // namespace brindlemoor
