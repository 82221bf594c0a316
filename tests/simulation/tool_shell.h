// Running the terminal program as a user does.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

#include "text/text.h"

namespace brindlemoor {

/// What a command line wrote, both outputs, and "status N" behind it.
inline std::string Shell(const std::string& command) {
  std::string text;
  FILE* pipe = ::popen(Joined("{ ", command, "; } 2>&1").c_str(), "r");
  if (pipe == nullptr) return "no shell";
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    text.append(buffer.data(), count);
  }
  return text + Joined("status ", WEXITSTATUS(::pclose(pipe)));
}

}  // namespace brindlemoor
