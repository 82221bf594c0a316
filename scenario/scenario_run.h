// Carrying scenario files out.
#pragma once

#include <string>

#include "scenario/scenario_library.h"
#include "scenario/scenario_report.h"

namespace brindlemoor {

/// Carries out every scenario of a file and adds to the report what it came to. Each begins with a
/// fresh session; what it writes stays in memory. The session is left empty.
void RunScenarioFile(const std::string& path, ScenarioLibrary& library, ScenarioReport& report);

}  // namespace brindlemoor
