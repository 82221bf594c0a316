// Traits across the files of a game: given and never read, read and never given, written in two
// ways.
#pragma once

#include <vector>

#include "check/file_check.h"

namespace brindlemoor {

void CheckTraits(const SetFacts& facts, std::vector<Finding>& findings);

}  // namespace brindlemoor
