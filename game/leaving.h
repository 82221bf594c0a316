// Leaving what the player owns: for another game, or for good.
#pragma once

namespace brindlemoor {

enum class Leaving {
  kSavesFirst,  ///< asks only when that fails
  kAsksFirst
};

/// Asks whether a match in progress is to be saved for another day or given up. True where none is;
/// false to stay, or when it could not be saved, which is told.
bool MayLeaveMatch();

/// Sees to it that nothing the player owns is lost unnoticed: saves it, or asks whether to save it,
/// to let it go or to stay. False to stay.
bool MayLeavePlayer(Leaving leaving);

}  // namespace brindlemoor
