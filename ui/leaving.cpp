// Saving before the program goes on.
#include "ui/leaving.h"

#include "core/desktop.h"
#include "core/state.h"
#include "game/player_file_names.h"
#include "game/player_saving.h"
#include "text/text.h"

namespace brindlemoor {

bool MayLeavePlayer(Leaving leaving) {
  bool asks = leaving == Leaving::kAsksFirst;
  while (PlayerIsUnsaved()) {
    if (asks) {
      const SaveAnswer answer =
          Desktop().AskSaving(Joined("The cards, decks and tokens of ", State().Profile.PlayerName,
                                     " have changed and are not saved.  Save them?"));
      if (answer == SaveAnswer::kCancel) return false;
      if (answer == SaveAnswer::kDiscard) return true;
    }
    asks = true;
    // A running script may hold cards of the collection, which must not be sorted then.
    if (State().TurnRunning == 1) {
      StorePlayer();
    } else {
      WritePlayerFile(OwnPlayerFileName());
    }
  }
  return true;
}

}  // namespace brindlemoor
