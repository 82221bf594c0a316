// The versions of the package and of the program in one line.
#include "apps/version_text.h"

#include "core/program_version.h"
#include "text/text.h"

namespace brindlemoor {

std::string VersionText(std::string_view program) {
  return Joined(program, " ", BRINDLEMOOR_PACKAGE_VERSION, " (Brindlemoor version ",
                kProgramVersion, ")\n");
}

}  // namespace brindlemoor
