// ProgramCopy: whether the program runs more than once on a folder.
#pragma once

#include <string>

#include "platform/machine_file.h"

namespace brindlemoor {

/// One of the programs that run on a folder at the same time. Each holds a small file of the folder
/// that says its number; the file goes with it, and a crash lets go of it, too.
class ProgramCopy {
 public:
  /// Takes the lowest number that no running program has.
  explicit ProgramCopy(const std::string& folder);

  /// From 1; the first one where numbers can't be held in the folder.
  int Number() const { return number_; }

 private:
  HeldFile held_;
  int number_ = 1;
};

}  // namespace brindlemoor
