// Files of one game that take cards from files of another.
#pragma once

#include <string>
#include <vector>

#include "check/card_set.h"

namespace brindlemoor {

/// Tells of them; the games of the folder are those of State().Games.
void CheckForeignFiles(const CardSet& set, const std::string& shownFolder,
                       std::vector<Finding>& findings);

}  // namespace brindlemoor
