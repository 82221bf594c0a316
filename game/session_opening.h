// A fresh session of the engine.
#pragma once

#include <memory>
#include <string>

namespace brindlemoor {

class Platform;

/// Begins a session afresh, on a desktop and in a folder. Runs of scripts can ask what the game
/// gives; there are no windows. The session of a whole program begins in editor/program_session.h.
void OpenSession(std::shared_ptr<Platform> desktop, std::string folder);

}  // namespace brindlemoor
