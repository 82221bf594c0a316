// Opening a session for a while, and putting the former one back.
#include "check/check_session.h"

#include <memory>
#include <utility>

#include "game/session_opening.h"
#include "platform/headless/headless_platform.h"

namespace brindlemoor {

CheckSession::CheckSession() : before_(std::exchange(State(), Session{})) {}

CheckSession::~CheckSession() {
  before_.Desktop->Files().KeepTo(before_.ProgramFolder);
  State() = std::move(before_);
}

void CheckSession::Begin(const std::string& folder, OverlayFileSystem::Test hides) {
  auto desktop = std::make_shared<HeadlessPlatform>(
      std::make_unique<OverlayFileSystem>(before_.Desktop->Files(), std::move(hides)));
  desktop->AcceptMessages = true;
  OpenSession(std::move(desktop), folder);
  State().Profile.PlayerName = "Check";  // nobody is asked for a name
}

}  // namespace brindlemoor
