// Carrying scenario files out.
#pragma once

#include <functional>
#include <string>

#include "scenario/scenario_library.h"
#include "scenario/scenario_report.h"

namespace brindlemoor {

struct Scene;

/// Is shown the scene, and the session with it, behind each line that was carried out.
using SceneWatcher = std::function<void(const Scene& scene)>;

/// Carries out every scenario of a file and adds to the report what it came to. Each begins with a
/// fresh session; what it writes stays in memory. The session is left empty.
void RunScenarioFile(const std::string& path, ScenarioLibrary& library, ScenarioReport& report,
                     const SceneWatcher& watch = {});

}  // namespace brindlemoor
