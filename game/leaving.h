// Leaving what the player owns: for another game, or for good.
#pragma once

namespace brindlemoor {

enum class Leaving {
  kSavesFirst,  ///< asks only when that fails
  kAsksFirst
};

/// Asks whether a match in progress is to be given up. True where none is.
bool MayLeaveMatch();

/// Sees to it that nothing the player owns is lost unnoticed: saves it, or asks whether to save it,
/// to let it go or to stay. False to stay.
bool MayLeavePlayer(Leaving leaving);

}  // namespace brindlemoor
