// The windows as the game sees them.
#include "ui/window_session.h"

#include <utility>

#include "check/findings_page.h"
#include "core/desktop.h"
#include "core/state.h"
#include "game/session_opening.h"
#include "game/windows.h"
#include "ui/editor_door.h"
#include "ui/first_steps.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

const GameWindows kWindows = {
    .ShowMainWindow = [] { Desktop().ShowForm(TheMainWindow(), false); },
    .RaiseMainWindow = [] { Desktop().RaiseForm(TheMainWindow()); },
    .ShowMain = ShowMain,
    .SetTurnButton =
        [](std::string_view caption) { TheMainWindow().Command1.Caption = std::string(caption); },
    .FullSizeImages = [] { return TheMainWindow().fullsizemen.Checked ? 1 : 0; },
    .UpdateHand = UpdateHand,
    .HideHand = HideHand,
    .ShowMatchEnd = ShowMatchEnd,
    .BlankSideViews = BlankSideViews,
    .ShowFirstSteps = ShowFirstSteps,
    .ChooseProfile = ChooseProfile,
    .ShowDeckManager = ShowDeckManager,
    .NotesOnGames = FindingsPage,
};

}  // namespace

void OpenWindowSession(std::shared_ptr<Platform> desktop, std::string folder) {
  OpenSession(std::move(desktop), std::move(folder));
  State().Windows = &kWindows;
  State().Editor = &kNoEditor;
}

}  // namespace brindlemoor
