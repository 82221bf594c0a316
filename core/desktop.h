// The desktop of the session, as the logic sees it.
#pragma once

#include "platform/platform.h"

namespace brindlemoor {

/// The session's desktop. There is one while the program runs.
Platform& Desktop();

}  // namespace brindlemoor
