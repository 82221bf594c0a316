// A machine whose files fail: the test program's own system calls stand before those of the system.
#pragma once

namespace brindlemoor {

/// What the chosen call comes to.
enum class Fault {
  kNone,
  kNoSpace,      ///< nothing is written: the disk is full
  kPartWritten,  ///< half of the bytes are written, the next write finds the disk full
  kNoRights,
  kInputError,
  kKill,  ///< the process ends before the call
};

/// From now on the calls on files are counted, and the n-th (1-based) fails.
void ArmFault(int call, Fault fault);
/// Ends the counting; the number of calls.
int DisarmFault();

}  // namespace brindlemoor
