// What belongs to one firing of an action: the roll of ONECHANCE and whether ECHOONCE has spoken.
#pragma once

#include <cstdint>

#include "core/state.h"

namespace brindlemoor {

/// A new firing has no roll and has said nothing. Those of TRAITCHANGE share what was there when
/// the walk over the changed traits began.
inline void BeginFiring() {
  Session& session = State();
  if (session.TraitChangeBusy == 1) return;
  session.SharedChanceRoll = 0;
  session.EchoedOnce = 0;
}

/// A firing within another one (a death, an entry, a trait change, a reaction): when it ends, the
/// outer one has its roll and its mark back.
class OwnFiring {
 public:
  OwnFiring() : roll_(State().SharedChanceRoll), echoed_(State().EchoedOnce) {}
  OwnFiring(const OwnFiring&) = delete;
  OwnFiring& operator=(const OwnFiring&) = delete;
  ~OwnFiring() {
    State().SharedChanceRoll = roll_;
    State().EchoedOnce = echoed_;
  }

 private:
  int roll_;
  std::uint8_t echoed_;
};

}  // namespace brindlemoor
