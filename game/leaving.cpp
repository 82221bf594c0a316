// Saving before the program goes on.
#include "game/leaving.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/desktop.h"
#include "core/state.h"
#include "game/kept_matches.h"
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

namespace {

bool KeepMatchOrTell() {
  StorePlayer();  // the match goes on with what the player file holds
  const std::string problem = KeepMatch();
  if (!problem.empty()) Desktop().MessageBox(problem);
  return problem.empty();
}

bool GiveUpMatch() {
  RemoveKeptMatchOrTell(State().CurrentGame);
  return true;
}

/// In debug mode nothing is saved, and while a turn runs there is nothing whole to save.
bool MayGiveUpMatch() {
  return Desktop().AskYesNo(Joined("Give up the match against ", State().Match.Opponent,
                                   "?  Your cards and tokens are kept."));
}

struct WayOut {
  std::string_view Caption;
  bool (*Go)();  // false to stay
};
constexpr std::array<WayOut, 3> kWaysOut = {{
    {"Save and Leave", KeepMatchOrTell},
    {"Give Up", GiveUpMatch},
    {"Stay", [] { return false; }},
}};

}  // namespace

bool MayLeaveMatch() {
  if (!MatchIsRunning()) return true;
  if (State().DebugMode == 1 || !CanKeepMatch()) return MayGiveUpMatch();
  std::vector<std::string> captions;
  captions.reserve(kWaysOut.size());
  for (const WayOut& way : kWaysOut) captions.emplace_back(way.Caption);
  const std::size_t chosen = Desktop().AskChoice(
      Joined("Leave the match against ", State().Match.Opponent,
             "?  A match that is saved goes on from the list of games.  Your cards and tokens are "
             "kept either way."),
      captions);
  return kWaysOut[chosen].Go();
}

}  // namespace brindlemoor
