// What the browser engine must know before the application object exists.
#pragma once

namespace brindlemoor {

/// Sets the engine's environment: no sandbox for the super user, for whom it cannot run, and no
/// graphics hardware where the machine has none. What the user has set stays.
void PrepareBrowserEngine();

}  // namespace brindlemoor
