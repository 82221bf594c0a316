// Looking: cards are tried and described, and nothing comes of it.
#pragma once

#include "core/state.h"

namespace brindlemoor {

/// While it lasts, the session is a copy: what scripts do to tables, tokens, pages and the random
/// source is gone at the end. No game ends, and no window shows anything of it.
class Looking {
 public:
  Looking();
  ~Looking();
  Looking(const Looking&) = delete;
  Looking& operator=(const Looking&) = delete;

 private:
  Session kept_;
};

}  // namespace brindlemoor
