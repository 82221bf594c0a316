// Leaving what the player owns: for another game, or for good.
#pragma once

namespace brindlemoor {

enum class Leaving {
  kSavesFirst,  ///< asks only when that fails
  kAsksFirst
};

/// Sees to it that nothing the player owns is lost unnoticed: saves it, or asks whether to save it,
/// to let it go or to stay. False to stay.
bool MayLeavePlayer(Leaving leaving);

}  // namespace brindlemoor
