// SessionAside: the session as it is now, for later.
#pragma once

#include "core/state.h"

namespace brindlemoor {

/// Puts the session back at its end, whatever was done to it meanwhile. Records keep their
/// addresses in a copy, not in a move.
class SessionAside {
 public:
  SessionAside() : kept_(State()) {}
  ~SessionAside() { State() = kept_; }
  SessionAside(const SessionAside&) = delete;
  SessionAside& operator=(const SessionAside&) = delete;

 private:
  Session kept_;
};

}  // namespace brindlemoor
