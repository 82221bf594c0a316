// PassingLabel: a label that leaves its place to others while it is hidden.
#pragma once

#include "platform/controls.h"

namespace brindlemoor {

struct PassingLabel : Label {
  using Label::Label;
};

}  // namespace brindlemoor
