// The one session and the problems of files, for the plain engine: equal texts are not shared.
#include "core/state.h"

#include "core/desktop.h"
#include "core/limits.h"

namespace brindlemoor {

Session internal::TheSession;

Platform& Desktop() { return *State().Desktop; }

Text InternText(std::string_view text) { return text; }

void AddProblem(std::string_view file, int line, std::string_view message) {
  auto& problems = State().Problems;
  if (problems.size() >= limits::kProblems) return;
  problems.push_back({std::string(file), line, std::string(message)});
}

}  // namespace brindlemoor
