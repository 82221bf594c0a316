// Giving a session what its lower floors ask for.
#include "game/session_opening.h"

#include <utility>

#include "core/desktop.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "game/card_play.h"
#include "game/player_files.h"
#include "game/windows.h"
#include "script/run_services.h"

namespace brindlemoor {

namespace {

constexpr RunServices kServices = {TakeCardsOut, PayCost, EndGame};

}  // namespace

void OpenSession(std::shared_ptr<Platform> desktop, std::string folder) {
  Session& session = State();
  session = Session{};
  session.Desktop = std::move(desktop);
  session.ProgramFolder = session.CurrentFolder = std::move(folder);
  session.Desktop->Files().KeepTo(session.ProgramFolder);
  session.Services = &kServices;
  session.Windows = &kNoWindows;
}

}  // namespace brindlemoor
