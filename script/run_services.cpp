// The session's run services.
#include "script/run_services.h"

#include "core/state.h"

namespace brindlemoor {

const RunServices& Services() { return *State().Services; }

}  // namespace brindlemoor
