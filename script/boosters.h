// Boosters: the commands that hand cards of a store to the player's collection.
#pragma once

#include "script/run.h"

namespace brindlemoor {

Step BoosterCommand(Run& run);
Step BoosterWithReqsCommand(Run& run);
Step BoosterCardCommand(Run& run);

}  // namespace brindlemoor
