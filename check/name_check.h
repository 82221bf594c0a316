// Names that a folder's games and card files share.
#pragma once

#include <string>
#include <vector>

#include "check/card_set.h"
#include "check/finding.h"

namespace brindlemoor {

/// Adds a finding for every game that is not listed since another one has its name, and for every
/// card file of the set for which another of its name may be taken. The set holds all card files of
/// the program's folder, which findings call shownFolder, and of its subfolders.
void CheckNames(const CardSet& set, const std::string& shownFolder, std::vector<Finding>& findings);

}  // namespace brindlemoor
