// Findings as HTML.
#include "check/findings_page.h"

#include <algorithm>

#include "check/game_check.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kShown = 100;

}  // namespace

std::string FindingsPage(const std::string& folder) {
  std::vector<Finding> findings = CheckPaths({folder}).Findings;
  if (findings.empty()) return "";
  const std::size_t shown = std::min(findings.size(), kShown);
  std::string html = Joined("<hr><b>Findings in the card files: ", findings.size(), "</b>");
  for (std::size_t n = 0; n < shown; ++n) {
    std::string& file = findings[n].File;
    if (file.starts_with(folder + "/")) file.erase(0, folder.size() + 1);
    html += Joined("<br>", HtmlText(FindingLine(findings[n])));
  }
  if (shown < findings.size()) html += "<br>...";
  return html;
}

}  // namespace brindlemoor
