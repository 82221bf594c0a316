// Looking: cards are tried and described, and nothing comes of it.
#pragma once

#include "core/session_aside.h"

namespace brindlemoor {

/// While it lasts, the session is a copy: what scripts do to tables, tokens, pages and the random
/// source is gone at the end. No game ends, and no window shows anything of it.
class Looking {
 public:
  Looking();

 private:
  SessionAside kept_;
};

}  // namespace brindlemoor
