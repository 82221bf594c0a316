// The windows of a session, and those of a session without any.
#include "game/windows.h"

#include "core/state.h"

namespace brindlemoor {

const GameWindows kNoWindows = {
    .ShowMainWindow = [] {},
    .RaiseMainWindow = [] {},
    .ShowMain = [](std::string_view /*file*/) { State().PageText.clear(); },
    .SetTurnButton = [](std::string_view /*caption*/) {},
    .FullSizeImages = [] { return 0; },
    .UpdateHand = [] {},
    .HideHand = [] {},
    .ShowMatchEnd = [] {},
    .BlankSideViews = [] {},
    .ShowFirstSteps = [] {},
    .ChooseProfile = [] {},
    .ShowDeckManager = [] { return false; },
    .NotesOnGames = [](const std::string& /*folder*/) { return std::string(); },
};

const GameWindows& Windows() { return *State().Windows; }

}  // namespace brindlemoor
