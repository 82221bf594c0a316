// Saving before the program goes on.
#include "game/leaving.h"

#include "core/desktop.h"
#include "core/state.h"
#include "game/match_outcome.h"
#include "game/player_saving.h"
#include "text/text.h"

namespace brindlemoor {

bool MayLeavePlayer(Leaving leaving) {
  if (leaving == Leaving::kSavesFirst && StorePlayer()) return true;
  while (PlayerIsUnsaved()) {
    const SaveAnswer answer =
        Desktop().AskSaving(Joined("The cards, decks and tokens of ", State().Profile.PlayerName,
                                   " have changed and are not saved.  Save them?"));
    if (answer == SaveAnswer::kCancel) return false;
    if (answer == SaveAnswer::kDiscard) {
      LetPlayerGo();
      return true;
    }
    if (StorePlayer(Saving::kAsked)) return true;
  }
  return true;
}

bool MayLeaveMatch() {
  if (!MatchIsRunning()) return true;
  return Desktop().AskYesNo(Joined("Give up the match against ", State().Match.Opponent,
                                   "?  Your cards and tokens are kept."));
}

}  // namespace brindlemoor
