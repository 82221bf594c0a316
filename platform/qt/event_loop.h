// Beginning event loops within event handlers.
#pragma once

namespace brindlemoor {

/// Called before an event loop that runs within an event handler. Events that were posted behind
/// the one being handled would else wait in that loop until another one is posted; the browser
/// engine then waits for itself.
void WakeEventLoop();

}  // namespace brindlemoor
