// Links that the report's tables lack.
#pragma once

#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

/// The names of the cards without a picture to click on, in the order of the report's tables.
std::vector<CellLink> LinksWithoutPicture();

}  // namespace brindlemoor
