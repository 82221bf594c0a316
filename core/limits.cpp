// The notice on the report page that a bound was reached.
#include "core/limits.h"

#include "core/state.h"
#include "text/text.h"

namespace brindlemoor::limits {

void ReportLimit(std::string_view what) {
  Session& state = State();
  if (!state.LimitsReported.emplace(what).second) return;
  state.PhaseBanner += Joined("<br><font color=#FF9900>", what, "</font><br>");
}

}  // namespace brindlemoor::limits
