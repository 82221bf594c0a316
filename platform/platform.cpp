// The accessor of the session's desktop.
#include "platform/platform.h"

#include "core/state.h"

namespace brindlemoor {

Platform& Desktop() { return *State().Desktop; }

}  // namespace brindlemoor
