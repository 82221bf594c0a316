// What the small pictures on pages of a match stand for.
#pragma once

#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

/// Tool tips of the resources in the report's header and of the badges of traits.
std::vector<PictureTip> ReportTips();

}  // namespace brindlemoor
