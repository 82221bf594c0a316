// Slots and positions held against the tables that they lead into.
#include "saving/match_checks.h"

#include <algorithm>

#include "core/cards.h"
#include "core/state.h"

namespace brindlemoor {

namespace {

bool IsSlotOrNone(const Session& session, std::int64_t slot) {
  return slot >= 0 && slot <= session.CardTable.UpperBound();
}

bool SidesAgree(const Session& session) {
  for (int side = 1; side <= session.Players.UpperBound(); ++side) {
    const PlayerState& player = session.Players[side];
    if (player.PlayerNo != side || player.Hand.UpperBound() != kHandPositions ||
        !IsSlotOrNone(session, player.PlayerCard)) {
      return false;
    }
  }
  return true;
}

bool TableAgrees(const Session& session) {
  const Pile& table = session.CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    // A card that a file has put there has no number yet.
    if (!IsFree(table[slot]) && table[slot].Slot != slot && table[slot].Slot != 0) return false;
  }
  return IsSlotOrNone(session, session.LastEntered) &&
         session.PendingCount <= session.PendingCards.UpperBound();
}

bool ListsAgree(const Session& session) {
  const auto isOnTable = [&](const Hit& hit) { return IsSlotOrNone(session, hit.Slot); };
  return std::ranges::all_of(
             session.HitTable,
             [&](const std::vector<Hit>& hits) { return std::ranges::all_of(hits, isOnTable); }) &&
         std::all_of(session.PlayQueue.begin(), session.PlayQueue.end(),
                     [](int position) { return position <= kHandPositions; });
}

}  // namespace

bool TablesAgree(const Session& session) {
  return !session.Match.RulesFile.empty() && SidesAgree(session) && TableAgrees(session) &&
         ListsAgree(session);
}

}  // namespace brindlemoor
