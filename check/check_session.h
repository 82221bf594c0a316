// CheckSession: a session of its own for those who look through card files.
#pragma once

#include <string>

#include "core/state.h"
#include "platform/headless/overlay_files.h"

namespace brindlemoor {

/// A session of its own on the files of the present one, which comes back at the end.
class CheckSession {
 public:
  CheckSession();
  ~CheckSession();
  CheckSession(const CheckSession&) = delete;
  CheckSession& operator=(const CheckSession&) = delete;

  /// Begins it afresh in a folder, without the files that are to be hidden.
  void Begin(const std::string& folder, OverlayFileSystem::Test hides);

 private:
  Session before_;
};

}  // namespace brindlemoor
