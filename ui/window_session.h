// A fresh session with windows.
#pragma once

#include <memory>
#include <string>

namespace brindlemoor {

class Platform;

/// OpenSession with the program's windows, each of which is made at its first use. There is no card
/// editor.
void OpenWindowSession(std::shared_ptr<Platform> desktop, std::string folder);

}  // namespace brindlemoor
