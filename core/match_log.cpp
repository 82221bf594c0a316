// What happens in a match, noted for whoever counts it.
#include "core/match_log.h"

#include "core/state.h"

namespace brindlemoor {

void LogMatchEvent(MatchEvent kind, int side, const Card& card) {
  MatchLog* log = State().Log.get();
  if (log != nullptr) log->Events.push_back({kind, side, card.UniqueID, card.Name});
}

void LogWorth(const Card& card, bool payable, double worth) {
  MatchLog* log = State().Log.get();
  if (log != nullptr) log->Worths.push_back({card.UniqueID, card.Name, payable, worth});
}

int WinnerOf(const MatchLog& log) {
  int winner = 0;
  for (const LoggedEvent& event : log.Events) {
    if (event.Kind != MatchEvent::kWon) continue;
    if (winner != 0 && winner != event.Side) return 0;
    winner = event.Side;
  }
  return winner;
}

}  // namespace brindlemoor
